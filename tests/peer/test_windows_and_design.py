"""Windowed designs against the whole design at 50 digits, against scipy.signal.firwin, and their response.

Error analysis, first order, unit roundoff u = 2^-53. Elementary functions round to the nearest; the bounds
leave them a whole unit in the last place: u absolute for a sine or cosine, 2 u relative for exp and pow. The double
nearest to pi is off by 0.36 u relative, in 2 pi, 4 pi, 6 pi too.

Ideal response. An edge w = wc pi carries 1.4 u, the angle t w another u, so 2.4 u |t| w absolute; each sine
adds u. With s sines (one per term: lowpass 1, highpass and bandpass 2, bandstop 3), whose partial sums
stay below s, the additions add at most s (s - 1) u. The denominator t pi carries 1.4 u and the quotient u.
        |dh| <= u [ (2.4 |t| sum of w + s + s (s - 1)) / (|t| pi) + 2.4 |h| ]
where the sum runs over the angles of all sines, pi among them. At the centre the difference of two
edges, a quotient and a subtraction from one are off by at most 8 u.

Windows, absolute error of w[n], values at most 1:
    cosine sums    the angle k x, x up to 2 pi, carries at most 3.4 u relative, so the cosine is off by
                   3.4 k 2 pi u + u; a literal and a product add 2 u a_k; four additions of partial sums
                   below 1 add 4 u:                             u (sum a_k (21.4 k + 3) + 4)
    Kaiser         u carries 2 u, r = u^2 6 u, q = 1 - r 7 u absolute. I0(7 sqrt q) is a power series in q;
                   its derivative divided by I0(7) is at most 3.5 I1(7) / I0(7) = 3.3, giving 23 u. The
                   root and the product with 7 put 2 u into sqrt q, so 4 u q into q: 13 u. A term of the
                   series is two powers (2 u each), a factorial's rounding (doubled, below 6 u where it
                   is not exact) and two quotients: 12 u, and 25 additions of positive terms: 37 u,
                   once more in the normaliser, and a quotient. The series is cut after 25 terms, which
                   leaves 10^-25.                               112 u
    Gaussian       the argument v of exp, up to 3.125, carries 6 u relative; e^-v v <= 0.37, so 2.3 u, and
                   2 u of exp itself:                           5 u
    Triang, Bartlett   a quotient and a subtraction:            3 u
    Bartlett-Hann  t 1.5 u absolute; the cosine's angle 2 pi 1.5 u + 1.4 u pi, so 14 u, times 0.38; the
                   triangle and the sums 6 u:                   12 u
    Parzen         r up to 1 carries u. r <= 1/2: 6 r^2 and 6 r^3 carry 5 u and 7 u of at most 1.5 and 0.75,
                   sums 3 u: 16 u. Above: 2 (1 - r)^3 with 2 u absolute in 1 - r <= 1/2: 6 u.
    Rectangle      exact.

Taps v = w h before scaling:  |dv| <= |w| |dh| + |h| |dw| + u |v|.
Gain. A plain sum adds (N - 1) u sum |v|. At frequency f the angle n f pi carries 3.4 u relative, sine
and cosine u, the product u, each part of the sum (N - 1) u, hypot 2 u:
        |dG| <= sum |dv| + sqrt 2 sum |v| (3.4 u n f pi + (N + 1) u) + 2 u |G|.
Result v / G:  |d| <= |dv| / |G| + |v| |dG| / G^2 + u |v / G|.   Terms of second order are below
|dG| / |G| of that; the tests demand that this is below 10^-3 and multiply the bound by 1.002.
"""
import mpmath
import numpy as np
import pytest
from scipy import signal

import trelvanix_library as trelvanix
from comparing import assert_within

U = 2.0**-53
DIGITS = 50

LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)
TYPE_NAMES = ("lowpass", "highpass", "bandpass", "bandstop")

COSINE_SUMS = {
    1: ("0.5", "0.5"),
    2: ("0.54", "0.46"),
    3: ("0.42", "0.5", "0.08"),
    4: ("0.215578995", "0.41663158", "0.277263158", "0.083578947", "0.006947368"),
    10: ("0.35875", "0.48829", "0.14128", "0.01168"),
    11: ("0.35875", "0.48829", "0.14128", "0.01168"),
    13: ("0.3635819", "0.4891775", "0.1365995", "0.0106411"),
    14: ("0.3635819", "0.4891775", "0.1365995", "0.0106411"),
}
PERIODIC = (11, 14)
SYMMETRIC_FOR_ALL_LENGTHS = (0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13)


# ---- The design at 50 digits -------------------------------------------------------------------


def exact_window(windowType, N):
    """From the definitions as literature has them, centred, not from the order of any evaluation."""
    half = mpmath.mpf(N - 1) / 2
    w = []
    for n in range(N):
        t = mpmath.mpf(n) - half
        if windowType == 0:
            value = mpmath.mpf(1)
        elif windowType in COSINE_SUMS:
            # cos(2 pi n k / (N - 1)), or over N where the window is one period.
            turn = mpmath.mpf(2 * n) / (N if windowType in PERIODIC else N - 1)
            value = mpmath.fsum(
                (-1) ** k * mpmath.mpf(a) * mpmath.cospi(k * turn)
                for k, a in enumerate(COSINE_SUMS[windowType])
            )
        elif windowType == 5:
            value = mpmath.besseli(0, 7 * mpmath.sqrt(1 - (t / half) ** 2)) / mpmath.besseli(0, 7)
        elif windowType == 6:
            value = mpmath.exp(-((mpmath.mpf("2.5") * t / half) ** 2) / 2)
        elif windowType == 7:
            # Zero one step beyond the ends for odd lengths, half a step for even ones.
            value = 1 - abs(t) / (mpmath.mpf(N + N % 2) / 2)
        elif windowType == 8:
            value = 1 - abs(t) / half
        elif windowType == 9:
            value = (
                mpmath.mpf("0.62")
                - mpmath.mpf("0.48") * abs(t / half) / 2
                + mpmath.mpf("0.38") * mpmath.cospi(t / half)
            )
        else:
            value = exact_parzen(n, N)
        w.append(value)
    return w


def exact_parzen(n, N):
    """Centred on slot (N - 1) / 2, rounded down; the last slot of an even length is zero."""
    h = (N - 1) // 2
    m = abs(n - h)
    if m > h:
        return mpmath.mpf(0)
    r = mpmath.mpf(2 * m) / N
    return 1 - 6 * r**2 + 6 * r**3 if m <= (N - 1) // 4 else 2 * (1 - r) ** 3


def sines(filterType, wc1, wc2):
    """The ideal response as a sum of signed sin(t w) / (t pi): pairs of sign and w / pi."""
    return {
        LOWPASS: [(1, wc1)],
        HIGHPASS: [(1, 1), (-1, wc1)],
        BANDPASS: [(1, wc2), (-1, wc1)],
        BANDSTOP: [(1, 1), (-1, wc2), (1, wc1)],
    }[filterType]


def exact_ideal(filterType, N, wc1, wc2):
    h = []
    for n in range(N):
        t = mpmath.mpf(2 * n - (N - 1)) / 2
        h.append(
            mpmath.fsum(
                sign * (w if t == 0 else mpmath.sinpi(t * w) / (t * mpmath.pi))
                for sign, w in sines(filterType, wc1, wc2)
            )
        )
    return h


def window_bound(windowType):
    if windowType in COSINE_SUMS:
        terms = [float(a) * (21.4 * k + 3.0) for k, a in enumerate(COSINE_SUMS[windowType])]
        return U * (sum(terms) + 4.0)
    return U * {0: 0.0, 5: 112.0, 6: 5.0, 7: 3.0, 8: 3.0, 9: 12.0, 12: 16.0}[windowType]


def exact_design(order, filterType, windowType, wc1, wc2):
    """Taps at 50 digits rounded to doubles, and the bound of the error of computed ones."""
    N = order + 1
    with mpmath.workdps(DIGITS):
        edges = mpmath.mpf(wc1), mpmath.mpf(wc2)
        h = exact_ideal(filterType, N, *edges)
        w = exact_window(windowType, N)
        v = [w[n] * h[n] for n in range(N)]
        if filterType in (LOWPASS, BANDSTOP):
            f = mpmath.mpf(0)
            G = mpmath.fsum(v)
        else:
            f = mpmath.mpf(1) if filterType == HIGHPASS else mpmath.fsum(edges) / 2
            G = abs(mpmath.fsum(v[n] * mpmath.expjpi(-n * f) for n in range(N)))
        taps = np.array([float(value / G) for value in v])
        h, w, v = (np.array([float(value) for value in values]) for values in (h, w, v))
        f, G = float(f), abs(float(G))

    t = np.abs(np.arange(N) - (N - 1) / 2.0)
    angles = [float(edge) for _, edge in sines(filterType, wc1, wc2)]
    s = len(angles)
    with np.errstate(divide="ignore", invalid="ignore"):
        dh = U * ((2.4 * t * np.pi * sum(angles) + s * s) / (t * np.pi) + 2.4 * np.abs(h))
    dh[t == 0.0] = 8.0 * U
    dv = np.abs(w) * dh + np.abs(h) * window_bound(windowType) + U * np.abs(v)
    weights = (N - 1) * U * np.ones(N)
    if f != 0.0:
        weights = np.sqrt(2.0) * U * (3.4 * np.arange(N) * f * np.pi + N + 1)
    dG = dv.sum() + (np.abs(v) * weights).sum() + 2.0 * U * G
    assert dG / G < 1e-3, f"the bound of first order does not hold: gain {G!r} is off by up to {dG!r}"
    # One more u: the exact taps are rounded to doubles.
    return taps, 1.002 * (dv / G + np.abs(v) * dG / G**2 + 2.0 * U * np.abs(taps))


def is_meaningful(order, filterType, windowType):
    """An odd-order highpass divides by rounding noise, and so does order 1 with a window that is zero at both
    ends: Hann, Blackman, Bartlett, Bartlett-Hann."""
    return not (filterType == HIGHPASS and order % 2) and not (order == 1 and windowType in (1, 3, 8, 9))


def cases(orders):
    return [
        (order, filterType, windowType)
        for order in orders
        for filterType in range(4)
        for windowType in range(15)
        if is_meaningful(order, filterType, windowType)
    ]


def edges_for(order, filterType, windowType):
    """Edges away from the ends and from each other, so that no gain is small."""
    rng = np.random.default_rng([order, filterType, windowType])
    return float(rng.uniform(0.15, 0.4)), float(rng.uniform(0.55, 0.85))


def named(order, filterType, windowType, wc1, wc2):
    return {
        "order": order,
        "type": TYPE_NAMES[filterType],
        "windowType": windowType,
        "wc1": wc1,
        "wc2": wc2,
    }


@pytest.mark.parametrize("windowType", range(15))
@pytest.mark.parametrize("order", [4, 5, 10, 16, 25, 40, 63])
def test_designs_agree_with_the_design_at_50_digits(order, windowType):
    for filterType in range(4):
        if not is_meaningful(order, filterType, windowType):
            continue
        wc1, wc2 = edges_for(order, filterType, windowType)
        expected, tolerance = exact_design(order, filterType, windowType, wc1, wc2)
        got = trelvanix.CreateFirByWindow(order, filterType, windowType, wc1, wc2)
        inputs = named(order, filterType, windowType, wc1, wc2)
        assert_within("CreateFirByWindow", inputs, expected, got, tolerance)


# ---- SciPy's windows and designs -----------------------------------------------------------------

# SciPy's flattop has 0.21557895 for our 0.215578995, so its general cosine sum stands in. The periodic
# windows (11, 14) are out of firwin's reach, it asks for symmetric ones only. SciPy's Parzen window of an
# even length is symmetric about the middle between two samples; ours ends in a zero: odd lengths only.
FIRWIN_WINDOWS = {
    0: lambda N: "boxcar",
    1: lambda N: "hann",
    2: lambda N: "hamming",
    3: lambda N: "blackman",
    4: lambda N: ("general_cosine", [float(a) for a in COSINE_SUMS[4]]),
    5: lambda N: ("kaiser", 7.0),
    6: lambda N: ("gaussian", (N - 1) / 5.0),
    7: lambda N: "triang",
    8: lambda N: "bartlett",
    9: lambda N: "barthann",
    10: lambda N: "blackmanharris",
    12: lambda N: "parzen",
    13: lambda N: "nuttall",
}


def comparable_with_firwin(order, filterType, windowType):
    if order % 2:
        # firwin refuses a passband at Nyquist with an even number of taps.
        return filterType in (LOWPASS, BANDPASS) and windowType != 12
    return True


@pytest.mark.parametrize("windowType", FIRWIN_WINDOWS)
@pytest.mark.parametrize("order", [2, 8, 9, 20, 33, 64, 101, 200])
def test_designs_agree_with_firwin(order, windowType):
    for filterType in range(4):
        if not comparable_with_firwin(order, filterType, windowType):
            continue
        wc1, wc2 = edges_for(order, filterType, windowType)
        N = order + 1
        cutoff = wc1 if filterType in (LOWPASS, HIGHPASS) else [wc1, wc2]
        expected = signal.firwin(
            N, cutoff, window=FIRWIN_WINDOWS[windowType](N), pass_zero=TYPE_NAMES[filterType], scale=True
        )
        # SciPy evaluates the same formulas: a sine per edge, a cosine per term, a product, a sum and a
        # quotient, with I0 from Cephes (6 u relative). So its error has the same bound.
        _, bound = exact_design(order, filterType, windowType, wc1, wc2)
        got = trelvanix.CreateFirByWindow(order, filterType, windowType, wc1, wc2)
        inputs = named(order, filterType, windowType, wc1, wc2)
        assert_within("CreateFirByWindow against firwin", inputs, expected, got, 2.0 * bound)


# ---- Properties ----------------------------------------------------------------------------------


def response(taps, f):
    """Frequency response at f times Nyquist, at 50 digits."""
    with mpmath.workdps(DIGITS):
        terms = (mpmath.mpf(float(tap)) * mpmath.expjpi(-n * mpmath.mpf(f)) for n, tap in enumerate(taps))
        return mpmath.fsum(terms)


def gain_bound(taps, f):
    """Of a gain that was made one: rounding of the sum, its angles, the hypotenuse and the quotients."""
    N = len(taps)
    n = np.arange(N)
    return 1.002 * np.sqrt(2.0) * U * float((np.abs(taps) * (3.4 * n * f * np.pi + N + 2)).sum()) + 2.0 * U


@pytest.mark.parametrize("windowType", range(15))
def test_gain_is_one_at_the_reference_frequency(windowType):
    for order, filterType, _ in (c for c in cases([1, 2, 3, 10, 27, 80]) if c[2] == windowType):
        wc1, wc2 = edges_for(order, filterType, windowType)
        taps = trelvanix.CreateFirByWindow(order, filterType, windowType, wc1, wc2)
        f = {LOWPASS: 0.0, BANDSTOP: 0.0, HIGHPASS: 1.0, BANDPASS: (wc1 + wc2) * 0.5}[filterType]
        value = response(taps, f)
        # The gain of lowpass and bandstop is signed, so that the response itself is one.
        got = float(value.real) if f == 0.0 else float(abs(value))
        inputs = {**named(order, filterType, windowType, wc1, wc2), "f": f}
        assert_within("gain", inputs, 1.0, got, gain_bound(taps, f))


@pytest.mark.parametrize("windowType", range(15))
def test_alternating_sum_of_a_highpass_has_modulus_one(windowType):
    for order in (2, 4, 14, 62):
        wc1, wc2 = edges_for(order, HIGHPASS, windowType)
        taps = trelvanix.CreateFirByWindow(order, HIGHPASS, windowType, wc1, wc2)
        with mpmath.workdps(DIGITS):
            alternating = mpmath.fsum((-1) ** n * mpmath.mpf(float(tap)) for n, tap in enumerate(taps))
            got = float(abs(alternating))
        inputs = named(order, HIGHPASS, windowType, wc1, wc2)
        assert_within("alternating sum", inputs, 1.0, got, gain_bound(taps, 1.0))


@pytest.mark.parametrize("windowType", SYMMETRIC_FOR_ALL_LENGTHS)
def test_taps_are_symmetric(windowType):
    for order, filterType, _ in (c for c in cases([2, 3, 12, 31, 50]) if c[2] == windowType):
        wc1, wc2 = edges_for(order, filterType, windowType)
        taps = trelvanix.CreateFirByWindow(order, filterType, windowType, wc1, wc2)
        # Both taps of a pair are within the bound of one exact value. With the rectangle they are the
        # same: the ideal response mirrors bit for bit.
        bound = exact_design(order, filterType, windowType, wc1, wc2)[1]
        tolerance = bound + bound[::-1] if windowType else 0.0
        inputs = named(order, filterType, windowType, wc1, wc2)
        assert_within("taps against taps reversed", inputs, taps[::-1], taps, tolerance)


def test_parzen_keeps_the_last_tap_zero_for_even_length():
    for order in (1, 3, 9, 41):
        for filterType in (LOWPASS, BANDPASS, BANDSTOP):
            taps = trelvanix.CreateFirByWindow(order, filterType, 12, 0.3, 0.6)
            assert taps[-1] == 0.0 and (taps[:-1] != 0.0).all(), f"order {order}: got {taps!r}"


def test_stop_band_of_a_blackman_harris_design_is_deep():
    """Harris 1978: side lobes below -92 dB; a lowpass built with the window stays below that, too."""
    taps = trelvanix.CreateFirByWindow(120, LOWPASS, 10, 0.4, 0.5)
    # The main lobe is 8 bins of 2 / 120 wide, half of it on either side of the edge.
    frequencies = np.linspace(0.4 + 8.0 / 120, 1.0, 400)
    gains = np.abs(signal.freqz(taps, worN=frequencies * np.pi)[1])
    limit = 10.0 ** (-92.0 / 20.0)
    assert_within("stop band", {"order": 120, "wc1": 0.4}, np.zeros(400), gains, limit)
