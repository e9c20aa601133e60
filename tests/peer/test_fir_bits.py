"""Frequency sampling and equiripple designs against the steps of literal_fir: the same bits.

The tolerance is none, everywhere. Inputs are random with fixed seeds. Requests that the library refuses
are left to the C++ tests: an exception would end this process.
"""
import math

import numpy as np
import pytest

import trelvanix_library as trelvanix
import literal_fir
from comparing import assert_same_bits

HOSTILE = (
    0.0, -0.0, 1e-300, 1e-17, 1e-9, 1e-3, 0.25, 0.4, math.nextafter(0.4, 1.0), 0.5, 1.0 - 1e-3,
    math.nextafter(1.0, 0.0), 1.0, math.nextafter(1.0, 2.0), 1.5, 2.0, 5.0, -1e-9, -0.3, -2.0,
    math.inf, -math.inf, math.nan,
)  # fmt: skip
TYPES = (0, 1, 2, 3, 7)


def check_remez(order, filterType, wc1, wc2):
    """False when the request is refused."""
    try:
        expected = literal_fir.create_fir_by_remez(order, filterType, wc1, wc2)
    except literal_fir.Refused:
        return False
    inputs = {"order": order, "filterType": filterType, "wc1": wc1, "wc2": wc2}
    got = trelvanix.CreateFirByRemez(order, filterType, wc1, wc2)
    assert_same_bits("CreateFirByRemez", inputs, expected, got)
    return True


def check_fs(order, filterType, windowType, wc1, wc2):
    try:
        expected = literal_fir.create_fir_by_fs(order, filterType, windowType, wc1, wc2)
    except literal_fir.Refused:
        return False
    inputs = {"order": order, "filterType": filterType, "windowType": windowType, "wc1": wc1, "wc2": wc2}
    got = trelvanix.CreateFirByFS(order, filterType, windowType, wc1, wc2)
    assert_same_bits("CreateFirByFS", inputs, expected, got)
    return True


# ---- Equiripple --------------------------------------------------------------------------------


@pytest.mark.parametrize("filterType", TYPES)
def test_equiripple_designs_of_every_order_have_the_bits_of_the_plain_steps(filterType):
    rng = np.random.default_rng(100 + filterType)
    for order in range(-1, 61):
        for _ in range(3):
            assert check_remez(order, filterType, *np.sort(rng.uniform(0.02, 0.98, 2)).tolist())


@pytest.mark.parametrize("filterType", (0, 1))
def test_equiripple_designs_with_touching_bands_have_the_bits_of_the_plain_steps(filterType):
    rng = np.random.default_rng(200 + filterType)
    for order in range(61):
        assert check_remez(order, filterType, 0.0, rng.uniform(0.0, 1.0))


@pytest.mark.parametrize("filterType", (0, 1, 2, 3))
def test_long_equiripple_designs_have_the_bits_of_the_plain_steps(filterType):
    rng = np.random.default_rng(300 + filterType)
    for order in (75, 98, 121, 180, 300):
        wc1 = rng.uniform(0.1, 0.5)
        # A ripple of about 60 dB for the types with a transition.
        assert check_remez(order, filterType, wc1, wc1 + (6.0 / order if filterType < 2 else 0.3))


@pytest.mark.parametrize("filterType", TYPES)
def test_equiripple_designs_with_hostile_edges_have_the_bits_of_the_plain_steps(filterType):
    designed = 0
    for i, wc1 in enumerate(HOSTILE):
        for k, wc2 in enumerate(HOSTILE):
            for order in ((i + k) % 5, 6 + (i * k) % 13):
                designed += check_remez(order, filterType, wc1, wc2)
    assert designed > len(HOSTILE) ** 2


def test_designs_where_larger_errors_appear_beyond_both_ends_have_the_bits_of_the_plain_steps():
    """Highpass edges in the wrong order lead there: one sweep finds an error beyond the lowest extremum
    and one beyond the highest, of which the high one is taken."""
    rng = np.random.default_rng(350)
    for order, wc1, wc2 in (
        (4, 0.7345152605393581, 0.02003204607907083),
        (5, 0.6043863474525488, 0.0965522865764672),
        (5, 0.6711050408999444, 0.1995026073878381),
        (5, 0.7069272363956643, 0.2185021466132251),
        (6, 0.5993370465203837, 0.23192805185258858),
        (7, 0.6645932936953498, 0.17357538208725753),
    ):
        assert check_remez(order, 1, wc1, wc2)
    for _ in range(200):
        wc2, wc1 = np.sort(rng.uniform(0.01, 0.99, 2)).tolist()
        assert check_remez(int(rng.integers(2, 25)), int(rng.integers(4)), wc1, wc2)


@pytest.mark.parametrize("order, wc1, wc2", ((60, 0.2, 0.8), (130, 0.3, 0.6), (131, 0.3, 0.6)))
def test_designs_that_never_converge_have_the_bits_of_the_plain_steps(order, wc1, wc2):
    """A ripple below what doubles hold: the extrema wander until the last of 250 sweeps."""
    for filterType in (0, 1):
        assert check_remez(order, filterType, wc1, wc2)


# ---- Order -------------------------------------------------------------------------------------


@pytest.mark.parametrize("filterType", (0, 1, 2, 3))
def test_designs_to_deviations_have_the_order_and_the_bits_of_the_plain_steps(filterType):
    rng = np.random.default_rng(400 + filterType)
    designed = 0
    while designed < 60:
        f = np.cumsum(rng.uniform(0.08, 0.24, 4)).tolist()
        dev = (10.0 ** rng.uniform(-3.0, -1.0, 2 if filterType < 2 else 3)).tolist()
        plainDev = list(dev)
        try:
            order, expected = literal_fir.create_fir_by_remezord(filterType, *f, plainDev)
        except literal_fir.Refused:
            continue
        gotOrder, got, gotDev = trelvanix.CreateFirByRemezord(filterType, *f, dev)
        inputs = {"filterType": filterType, "f": f, "dev": dev}
        assert gotOrder == order, f"order {gotOrder}, expected {order}: {inputs}"
        assert_same_bits("CreateFirByRemezord", inputs, expected, got)
        assert_same_bits("CreateFirByRemezord, dev", inputs, plainDev, gotDev)
        designed += 1


# ---- Frequency sampling ------------------------------------------------------------------------


@pytest.mark.parametrize("windowType", range(15))
def test_sampled_designs_have_the_bits_of_the_plain_steps(windowType):
    rng = np.random.default_rng(500 + windowType)
    for filterType in TYPES:
        for order in (1, 2, *rng.integers(3, 400, 8).tolist()):
            assert check_fs(order, filterType, windowType, *np.sort(rng.uniform(0.0, 1.0, 2)).tolist())
            check_fs(order, filterType, windowType, 0.0, rng.uniform(0.0, 1.0))


@pytest.mark.parametrize("order", (1022, 1023, 1024, 2047, 2048))
def test_sampled_designs_beside_powers_of_two_have_the_bits_of_the_plain_steps(order):
    for filterType in TYPES:
        assert check_fs(order, filterType, 2, 0.21, 0.47)


@pytest.mark.parametrize("filterType", TYPES)
def test_sampled_designs_with_hostile_edges_have_the_bits_of_the_plain_steps(filterType):
    designed = 0
    for i, wc1 in enumerate(HOSTILE):
        for k, wc2 in enumerate(HOSTILE):
            designed += check_fs(1 + (i + k) % 30, filterType, (i * k) % 15, wc1, wc2)
    assert designed > len(HOSTILE) ** 2 / 2
