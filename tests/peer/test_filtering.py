"""Filters against scipy.signal.lfilter and against sums at 50 digits.

Tolerances. Unit roundoff is u = 2^-53 and gamma_k = k u / (1 - k u).

FIR: a sum of N products, taken in any order, is off by at most gamma_N sum |h||x| (Higham, Accuracy and
Stability of Numerical Algorithms, section 3.1).

IIR: what is computed satisfies the recursion with a residual,
    y'[n] = sum b[k] x[n-k] - sum_{k>=1} a[k] y'[n-k] + d[n],
    |d[n]| <= gamma_2M (sum |b[k]||x[n-k]| + sum |a[k]||y'[n-k]|),
since each of the 2M - 1 products meets its own rounding and at most 2M - 1 roundings of additions; it
holds for the direct form and for SciPy's transposed form alike, where every product runs through
at most two additions per place. The error e = y' - y therefore satisfies the recursion of 1/a driven by d:
    e[n] = d[n] - sum a[k] e[n-k],   so   |e| <= |g| * |d|
with g the impulse response of 1/a (computed at 50 digits) and * the convolution. Two computed results
differ by no more than both bounds together. The bounds themselves are computed from positive terms, with
a relative error of some hundred u, which the factor 1.001 covers.
"""
import mpmath
import numpy as np
import pytest
from scipy import signal

import trelvanix_library as trelvanix
from comparing import assert_within

U = 2.0**-53
SLACK = 1.001


def gamma(k):
    return k * U / (1.0 - k * U)


def fir_bound(x, convolutionTaps):
    size = len(convolutionTaps)
    return gamma(size) * SLACK * np.convolve(np.abs(x), np.abs(convolutionTaps))[: len(x)]


@pytest.mark.parametrize("taps", [1, 2, 3, 5, 8, 16, 17, 31, 64, 101, 256])
@pytest.mark.parametrize("length", [1, 2, 7, 64, 1000])
def test_fir_is_lfilter_with_reversed_taps(length, taps):
    rng = np.random.default_rng(1000 * length + taps)
    x, h = rng.standard_normal(length), rng.standard_normal(taps)
    expected = signal.lfilter(h[::-1], [1.0], x)
    got = trelvanix.FirFilterToSignal(x, h)
    inputs = {"signal": x, "h": h}
    assert_within("FirFilterToSignal", inputs, expected, got, 2.0 * fir_bound(x, h[::-1]))


@pytest.mark.parametrize("taps", [1, 2, 5, 16, 33])
def test_fir_agrees_with_sums_at_50_digits(taps):
    rng = np.random.default_rng(taps)
    # Cancelling products of very different magnitudes.
    x = rng.standard_normal(60) * 10.0 ** rng.integers(-6, 7, 60)
    h = rng.standard_normal(taps) * 10.0 ** rng.integers(-6, 7, taps)
    with mpmath.workdps(50):
        sums = [
            mpmath.fsum(
                mpmath.mpf(h[k]) * mpmath.mpf(x[n - (taps - 1 - k)])
                for k in range(taps)
                if n - (taps - 1 - k) >= 0
            )
            for n in range(len(x))
        ]
        expected = np.array([float(s) for s in sums])
    got = trelvanix.FirFilterToSignal(x, h)
    tolerance = fir_bound(x, h[::-1]) + U * np.abs(expected)
    assert_within("FirFilterToSignal", {"signal": x, "h": h}, expected, got, tolerance)


# ---- IIR ---------------------------------------------------------------------------------------


def exact_recursion(b, a, x):
    """The recursion at 50 digits, the loss of which the filters here are far from using up."""
    with mpmath.workdps(50):
        b, a, x = ([mpmath.mpf(float(v)) for v in values] for values in (b, a, x))
        y = []
        for n in range(len(x)):
            forward = mpmath.fsum(b[k] * x[n - k] for k in range(len(b)) if n >= k)
            back = mpmath.fsum(a[k] * y[n - k] for k in range(1, len(a)) if n >= k)
            y.append(forward - back)
        return np.array([float(v) for v in y])


def iir_bound(b, a, x, y, decay):
    """Bound of the error of the computed y; decay is the impulse response of 1/a."""
    length, a = len(x), np.abs(a)
    a[0] = 0.0
    terms = np.convolve(np.abs(b), np.abs(x))[:length] + np.convolve(a, np.abs(y))[:length]
    return np.convolve(np.abs(decay), gamma(2 * len(b)) * SLACK * terms)[:length]


DESIGNS = {
    "one pole": ([0.1, 0.0], [1.0, -0.9]),
    "moving average": ([0.5, 0.5], [1.0, 0.0]),
    "resonator": ([1.0, 0.0, -1.0], [1.0, -1.8, 0.98]),
    "oscillating growth": ([1.0, 0.5], [1.0, 1.01]),
    "butter 2": signal.butter(2, 0.2),
    "butter 4": signal.butter(4, 0.1),
    "butter 8": signal.butter(8, 0.4),
    "butter 12": signal.butter(12, 0.5),
    "butter highpass 5": signal.butter(5, 0.3, "highpass"),
    "butter bandpass 3": signal.butter(3, [0.2, 0.45], "bandpass"),
    "butter bandstop 4": signal.butter(4, [0.3, 0.6], "bandstop"),
    "cheby1 6": signal.cheby1(6, 1.0, 0.3),
    "cheby2 5": signal.cheby2(5, 40.0, 0.4),
    "ellip 4": signal.ellip(4, 0.5, 50.0, 0.25),
}


@pytest.mark.parametrize("name", DESIGNS)
def test_iir_agrees_with_lfilter_and_with_the_recursion_at_50_digits(name):
    b, a = (np.array(values) for values in DESIGNS[name])
    assert a[0] == 1.0 and len(a) == len(b)
    rng = np.random.default_rng(len(name))
    impulse = np.zeros(300)
    impulse[0] = 1.0
    decay = exact_recursion([1.0], a, impulse)
    for x in (impulse, np.ones(300), rng.standard_normal(300)):
        exact = exact_recursion(b, a, x)
        got = trelvanix.IirFilterToSignal(x, b, a)
        peer = signal.lfilter(b, a, x)
        inputs = {"design": name, "signal": x, "b": b, "a": a}
        own = iir_bound(b, a, x, got, decay)
        tolerance = own + U * np.abs(exact)
        assert_within("IirFilterToSignal against 50 digits", inputs, exact, got, tolerance)
        tolerance = own + iir_bound(b, a, x, peer, decay)
        assert_within("IirFilterToSignal against lfilter", inputs, peer, got, tolerance)


def test_the_leading_denominator_coefficient_is_ignored():
    b, a = signal.butter(3, 0.3)
    x = np.random.default_rng(9).standard_normal(50)
    expected = trelvanix.IirFilterToSignal(x, b, a)
    for ignored in (0.0, 7.0, -np.inf, np.nan):
        got = trelvanix.IirFilterToSignal(x, b, [ignored, *a[1:]])
        assert_within("IirFilterToSignal", {"a[0]": ignored}, expected, got, 0.0)


def test_the_bounds_are_tight_enough_to_notice_a_perturbed_coefficient():
    """Ground under the tolerances: a coefficient off by 10^-12 lies outside them."""
    b, a = signal.butter(4, 0.1)
    impulse = np.zeros(300)
    impulse[0] = 1.0
    decay = exact_recursion([1.0], a, impulse)
    x = np.random.default_rng(10).standard_normal(300)
    perturbed = a.copy()
    perturbed[1] *= 1.0 + 1e-12
    got = trelvanix.IirFilterToSignal(x, b, perturbed)
    error = np.abs(got - exact_recursion(b, a, x))
    assert (error > iir_bound(b, a, x, got, decay)).any(), f"largest error {error.max()!r}"
