"""Equiripple designs against scipy.signal.remez, and the order estimate against its formula in mpmath.

Both programs choose the best filter on a grid of 16 points (SciPy here: 64) per cosine function. Let E be
the smallest possible error on the whole bands. A grid's best has an error of at most E on the grid, and
between its points more: where a ripple spans k steps of the grid, its peak is at most half a step away from
a point, which sees cos(pi / (2 k)) of it. In the middle of a band k is 16 or more, in the narrow ripple
beside an edge 6 or more: at most 1 / cos(pi / 12) = 1.036 times E. With 64 points it is 1.0022. So
        E <= error of this library <= 1.036 E          E <= error of SciPy <= 1.0022 E
and the quotient of the two lies between 1 / 1.0022 and 1.036. Rounding is left out: it is far below one
percent of the ripples here, which are no smaller than 1e-5.
"""
import mpmath
import numpy as np
import pytest
from scipy import signal

import trelvanix_library as trelvanix

LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)


def weighted_error(taps, bands, amplitudes, weights):
    """The largest one on 300 points per tap."""
    n = np.arange(len(taps)) - (len(taps) - 1) / 2.0
    largest = 0.0
    for (lower, upper), amplitude, weight in zip(bands, amplitudes, weights):
        f = np.linspace(lower, upper, 2 + int(300 * len(taps) * (upper - lower)))
        response = np.cos(np.pi * np.outer(f, n)) @ taps
        largest = max(largest, weight * np.max(np.abs(response - amplitude)))
    return largest


def peer(order, bands, amplitudes, weights):
    edges = [edge for band in bands for edge in band]
    return signal.remez(
        order + 1, edges, amplitudes, weight=weights, fs=2.0, maxiter=250, grid_density=64
    )


def assert_as_good(taps, bands, amplitudes, weights, about):
    own = weighted_error(taps, bands, amplitudes, weights)
    other = weighted_error(peer(len(taps) - 1, bands, amplitudes, weights), bands, amplitudes, weights)
    assert other > 1e-5, f"{about}: a ripple of {other} is too small to compare"
    assert 1 / 1.0022 <= own / other <= 1.036, f"{about}: error {own}, SciPy {other}: {own / other}"


@pytest.mark.parametrize("order", (6, 9, 14, 20, 21, 33, 50, 64, 77, 100))
def test_lowpass_ripple_is_that_of_scipy(order):
    taps = trelvanix.CreateFirByRemez(order, LOWPASS, 0.4, 0.5)
    assert_as_good(taps, [(0, 0.4), (0.5, 1)], [1, 0], [1, 1], f"lowpass of order {order}")


@pytest.mark.parametrize("order", (6, 14, 20, 34, 50, 64, 100))
def test_highpass_ripple_is_that_of_scipy(order):
    taps = trelvanix.CreateFirByRemez(order, HIGHPASS, 0.55, 0.65)
    assert_as_good(taps, [(0, 0.55), (0.65, 1)], [0, 1], [1, 1], f"highpass of order {order}")


@pytest.mark.parametrize("edges", ((0.1, 0.2), (0.25, 0.32), (0.7, 0.78)))
def test_lowpass_ripple_is_that_of_scipy_for_other_edges(edges):
    taps = trelvanix.CreateFirByRemez(40, LOWPASS, *edges)
    assert_as_good(taps, [(0, edges[0]), (edges[1], 1)], [1, 0], [1, 1], f"lowpass at {edges}")


@pytest.mark.parametrize("filterType", (LOWPASS, HIGHPASS))
@pytest.mark.parametrize("dev", ((0.01, 0.001), (0.05, 0.002), (0.003, 0.02)))
def test_ripple_of_a_design_to_deviations_is_that_of_scipy(filterType, dev):
    f1, f2 = 0.3, 0.42
    order, taps, _ = trelvanix.CreateFirByRemezord(filterType, f1, f2, 0.0, 0.0, dev)
    amplitudes = [1, 0] if filterType == LOWPASS else [0, 1]
    weights = [max(dev) / d for d in dev]
    assert_as_good(taps, [(0, f1), (f2, 1)], amplitudes, weights, f"order {order} to {dev}")


def test_ripple_of_a_bandpass_to_deviations_is_that_of_scipy():
    dev = (0.01, 0.02, 0.005)
    order, taps, _ = trelvanix.CreateFirByRemezord(BANDPASS, 0.2, 0.3, 0.6, 0.72, dev)
    bands = [(0, 0.2), (0.3, 0.6), (0.72, 1)]
    assert_as_good(taps, bands, [0, 1, 0], [0.02 / d for d in dev], f"bandpass of order {order}")


# ---- Order -------------------------------------------------------------------------------------


def estimate(f1, f2, delta1, delta2):
    """Taps by the formula of Herrmann, Rabiner & Chan 1973, at 40 digits, from decimal edges."""
    with mpmath.workdps(40):
        L1, L2 = mpmath.log10(mpmath.mpf(delta1)), mpmath.log10(mpmath.mpf(delta2))
        a1, a2, a3 = mpmath.mpf("0.005309"), mpmath.mpf("0.07114"), mpmath.mpf("-0.4761")
        a4, a5, a6 = mpmath.mpf("-0.00266"), mpmath.mpf("-0.5941"), mpmath.mpf("-0.4278")
        D = (a1 * L1**2 + a2 * L1 + a3) * L2 + (a4 * L1**2 + a5 * L1 + a6)
        f = mpmath.mpf("11.01217") + mpmath.mpf("0.51244") * (L1 - L2)
        df = (mpmath.mpf(f2) - mpmath.mpf(f1)) / 2
        return D / df - f * df + 1


def test_the_worked_estimate():
    assert abs(estimate("0.4", "0.5", "0.01", "0.001") - mpmath.mpf("51.2476095")) < 1e-6
    order, taps, dev = trelvanix.CreateFirByRemezord(LOWPASS, 0.4, 0.5, 0.0, 0.0, (0.01, 0.001))
    assert order == 51
    assert len(taps) == 52
    assert dev.tolist() == [0.01, 0.001]


@pytest.mark.parametrize("filterType", (LOWPASS, HIGHPASS))
def test_order_is_the_estimate_rounded_up_less_one(filterType):
    rng = np.random.default_rng(7)
    for _ in range(100):
        f1, width = rng.uniform(0.1, 0.5), rng.uniform(0.05, 0.4)
        f2 = f1 + width
        dev = 10.0 ** rng.uniform(-3, -1, 2)
        taps = estimate(f1, f2, *dev)
        # Nowhere near an integer that rounding could move it across.
        assert abs(taps - mpmath.nint(taps)) > 1e-9
        expected = int(mpmath.ceil(taps)) - 1
        if filterType == HIGHPASS:
            expected += expected % 2
        order, _, _ = trelvanix.CreateFirByRemezord(filterType, f1, f2, 0.0, 0.0, dev)
        assert order == expected, f"edges {f1}, {f2}, deviations {dev}: estimate {taps}"
