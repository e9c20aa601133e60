"""The elliptic designs against SciPy's, and inside their masks.

Left out are the odd highpasses and bandpasses: their numerator is antisymmetric on paper, and the design
gives its last coefficient the sign of the first. measure/accuracy/elliptic_accuracy.py finds where else not to
trust a design.
"""

import random

import numpy as np
import pytest
import scipy.signal

import literal_elliptic
import literal_iir as literal
import trelvanix_library as trelvanix

EPSILON = 2.0**-52
TYPES = LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)
NAMES = ("lowpass", "highpass", "bandpass", "bandstop")
RP, RS = 0.5, 50.0
EDGES = ([0.3], [0.3], [0.2, 0.5], [0.2, 0.5])


def palindromic(order, kind):
    return order % 2 == 0 or kind in (LOWPASS, BANDSTOP)


def scipy_design(order, rp, rs, wn, kind):
    b, a = scipy.signal.ellip(order, rp, rs, wn if kind > 1 else wn[0], NAMES[kind])
    return a, b


def requests(kind, count, seed, orders=8, lowest=0.05, narrowest=0.1):
    rng = random.Random(seed)
    while count:
        order = rng.randrange(1, orders + 1)
        wn = sorted(rng.uniform(lowest, 0.9) for _ in range(2 if kind > 1 else 1))
        if palindromic(order, kind) and (kind < 2 or wn[1] - wn[0] >= narrowest):
            yield order, rng.uniform(0.1, 3.0), rng.uniform(30.0, 80.0), wn
            count -= 1


def moved_by(matrix, size, rng):
    """How far a change of this relative norm moves the coefficients of the characteristic polynomial."""
    matrix = np.array(matrix)

    def polynomial(m):
        return np.real(np.poly(np.linalg.eigvals(m)))

    largest = 0.0
    for _ in range(5):
        change = rng.standard_normal(matrix.shape)
        change *= size * np.linalg.norm(matrix) / np.linalg.norm(change)
        largest = max(largest, np.max(np.abs(polynomial(matrix + change) - polynomial(matrix))))
    return largest


def bounds(order, rp, rs, wn, kind):
    """How far a and b may be from the exact coefficients.

    The coefficients are read back from eigenvalues that split where an element below the diagonal is 1e-11
    (state matrices) or 1e-12 (the denominator's companion matrix) of its neighbours, as if the matrices had
    been changed by that; the change's effect is found by trying. The selectivity comes from the complement of
    k1, and the rounding of 1 - k1^2 acts like another attenuation.
    """
    rng = np.random.default_rng(order)
    Wo, Bw = literal.prepare_edges(list(wn), kind, False)
    m = literal.transformed(*literal_elliptic.elliptic_prototype(order, rp, rs), kind, Wo, Bw, True)
    a, b = scipy_design(order, rp, rs, wn, kind)
    of_a = moved_by(m.A, 1e-11, rng)
    of_b = moved_by(np.array(m.A) - np.outer(m.B, m.C), 1e-11, rng) + abs(m.D - 1.0) * of_a
    of_a += moved_by(literal.companion([-c for c in a[1:]]), 1e-12, rng)
    # 20 log10(1 + 2 epsilon / k1^2)
    attenuation = 8.7 * 2.0 * EPSILON * (10.0 ** (rs / 10.0) - 1.0) / (10.0 ** (rp / 10.0) - 1.0)
    moved_a, moved_b = scipy_design(order, rp, rs + attenuation, wn, kind)
    return 2.0 * (of_a + np.max(np.abs(moved_a - a))), 2.0 * (of_b + np.max(np.abs(moved_b - b)))


def assert_scipys(order, rp, rs, wn, kind):
    call = f"elliptic{(order, rp, rs, wn, kind)}"
    a, b = trelvanix.Elliptic(order, rp, rs, list(wn), kind)
    scipy_a, scipy_b = scipy_design(order, rp, rs, wn, kind)
    of_a, of_b = bounds(order, rp, rs, wn, kind)
    difference = np.max(np.abs(np.array(a) - scipy_a))
    assert difference <= of_a, f"{call}: a is {a}, SciPy's {scipy_a}, difference {difference}, bound {of_a}"
    difference = np.max(np.abs(np.array(b) - scipy_b))
    assert difference <= of_b, f"{call}: b is {b}, SciPy's {scipy_b}, difference {difference}, bound {of_b}"
    return a, b


@pytest.mark.parametrize("kind", TYPES)
def test_scipy_designs_the_same_filter_of_every_order(kind):
    for order in range(1, 9):
        if palindromic(order, kind):
            assert_scipys(order, RP, RS, EDGES[kind], kind)


@pytest.mark.parametrize("kind", TYPES)
def test_scipy_designs_the_same_filter_of_random_requests(kind):
    for request in requests(kind, 100, 2000 + kind):
        assert_scipys(*request, kind)


# ---- masks -----------------------------------------------------------------------------------------


def bands(wn, kind):
    """Passbands and the bands outside them, fractions of Nyquist."""
    outside = ([(0.0, wn[0])], [(wn[-1], 1.0)])
    return {
        LOWPASS: outside,
        HIGHPASS: outside[::-1],
        BANDPASS: ([tuple(wn)], outside[0] + outside[1]),
        BANDSTOP: (outside[0] + outside[1], [tuple(wn)]),
    }[kind]


def losses(filter_, bands_):
    a, b = filter_
    f = np.concatenate([np.linspace(low, high, 500) for low, high in bands_])
    return -20.0 * np.log10(np.maximum(np.abs(scipy.signal.freqz(b, a, np.pi * f)[1]), 1e-15))


def stopbands(order, rp, rs, wn, kind):
    """Where the attenuation is rs: beyond the passband edge over k, in the warped scale of the lowpass."""
    k1 = np.sqrt((10.0 ** (rp / 10.0) - 1.0) / (10.0 ** (rs / 10.0) - 1.0))
    factor = 1.0 / literal_elliptic.elliptic_degree(order, k1)
    w = [np.tan(np.pi * edge / 2.0) for edge in wn]

    def unwarped(x):
        return 2.0 / np.pi * np.arctan(x)

    if kind == LOWPASS:
        return [(unwarped(w[0] * factor), 1.0)]
    if kind == HIGHPASS:
        return [(0.0, unwarped(w[0] / factor))]
    half = (w[1] - w[0]) / 2.0 * (factor if kind == BANDPASS else 1.0 / factor)
    root = np.sqrt(half * half + w[0] * w[1])
    low, high = unwarped(root - half), unwarped(root + half)
    return [(0.0, low), (high, 1.0)] if kind == BANDPASS else [(low, high)]


def slack(filter_, order, rp, rs, wn, kind, bands_, asked):
    """Decibels by which the errors of the coefficients may move the response where it has the loss asked.

    An error of a weighs as much as the denominator is small, one of b as much as the numerator is small.
    """
    of_a, of_b = bounds(order, rp, rs, wn, kind)
    points = np.exp(1j * np.pi * np.concatenate([np.linspace(*band, 500) for band in bands_]))
    denominator = np.abs(np.polyval(filter_[0], points))
    relative = len(filter_[0]) * (of_a + of_b * 10.0 ** (asked / 20.0)) / np.min(denominator)
    return 8.7 * relative + 1e-9


@pytest.mark.parametrize("kind", TYPES)
def test_responses_stay_inside_the_mask_and_touch_it(kind):
    close = 0
    for order, rp, rs, wn in requests(kind, 100, 2100 + kind, 6, 0.15, 0.2):
        call = f"elliptic{(order, rp, rs, wn, kind)}"
        filter_ = trelvanix.Elliptic(order, rp, rs, list(wn), kind)
        passband, stopband = bands(wn, kind)[0], stopbands(order, rp, rs, wn, kind)
        for name, asked, bands_, least in (("pass", rp, passband, 0.0), ("stop", rs, stopband, rs)):
            loss = losses(filter_, bands_)
            error = slack(filter_, order, rp, rs, wn, kind, bands_, asked)
            assert loss.min() >= least - error, f"{call}: {loss.min()} dB in the {name}band, error {error}"
            # The edges are among the points: there the ripple and the attenuation are those asked.
            at_the_edge = loss.max() if name == "pass" else loss.min()
            assert abs(at_the_edge - asked) <= error, f"{call}: {at_the_edge} dB at the {name}band edge, error {error}"
            close += error < 0.01
    assert close > 100, "most errors are small"


# ---- what hosts rely on or have to know ------------------------------------------------------------


@pytest.mark.parametrize("kind", (HIGHPASS, BANDPASS))
def test_keeps_palindromic_numerators_for_odd_orders(kind):
    # The true numerator is antisymmetric: b[0] = -b[N].
    for order in (1, 3, 5):
        a, b = trelvanix.Elliptic(order, RP, RS, list(EDGES[kind]), kind)
        scipy_a, scipy_b = scipy_design(order, RP, RS, EDGES[kind], kind)
        assert scipy_b[0] == pytest.approx(-scipy_b[-1])
        assert b[0] * b[-1] > 0.0
        assert np.max(np.abs(np.array(b) - scipy_b)) > 1e-2
        assert np.max(np.abs(np.array(a) - scipy_a)) <= bounds(order, RP, RS, EDGES[kind], kind)[0]


def test_keeps_a_wrong_gain_for_numerators_below_the_threshold():
    # The first coefficient above 0.0001 counts as the leading one. At 90 dB the true one is below.
    a, b = trelvanix.Elliptic(4, RP, 90.0, [0.05], LOWPASS)
    _, scipy_b = scipy_design(4, RP, 90.0, [0.05], LOWPASS)
    assert 0.0 < scipy_b[0] < 1e-4
    taken = next((c for c in scipy_b if abs(c) > 1e-4), scipy_b[-1])
    assert b[0] == pytest.approx(taken, rel=1e-3)


def test_keeps_the_power_of_the_nome_beyond_the_smallest_selectivity():
    # For k1 below 1e-6 the modulus is the one of the nome's N-th power: tiny. The zeros go far out and the
    # attenuation beyond the edge is next to none.
    a, b = trelvanix.Elliptic(4, 0.1, 103.0, [0.3], LOWPASS)
    assert np.max(np.abs(np.array(a) - scipy_design(4, 0.1, 103.0, [0.3], LOWPASS)[0])) < 1e-4
    a, b = trelvanix.Elliptic(4, 0.1, 104.0, [0.3], LOWPASS)
    difference = np.max(np.abs(np.array(a) - scipy_design(4, 0.1, 104.0, [0.3], LOWPASS)[0]))
    assert not difference <= 1e-2
