"""Frequency sampling against scipy.signal.firwin2.

The two agree once firwin2 is given the breakpoints where this library's grid puts them. Positions count
from 1 and stand for the frequencies (position - 1) / npt. A band up to edge F ends at position
floor((npt + 1) F). A transition runs from the position after one band's end to the other edge's position; a
jump is a ramp that starts npt // 25 / 2 positions before the next band and is npt // 25 long.

Tolerance, unit roundoff u = 2^-53: the phase of a bin is an angle of up to order pi / 2 with at most three
roundings on either side, so taps, means over bins of modulus up to 1, differ by at most 3 order pi u for it.
A transform of 2^m points adds at most a few u per stage to values of modulus 1, m up to 12 here: 8 m u for
both sides. Windows are at most 1 and differ by 100 u at the very most.
"""
import math

import numpy as np
import pytest
from scipy import signal

import trelvanix_library as trelvanix
from comparing import assert_within

U = 2.0**-53
LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)
RECTANGLE, HANN, HAMMING, BLACKMAN = range(4)
WINDOWS = {RECTANGLE: "boxcar", HANN: "hann", HAMMING: "hamming", BLACKMAN: "blackman"}


def grid_size(order):
    return 512 if order + 1 < 1024 else 1 << math.ceil(math.log2(order + 1))


def breakpoints(filterType, wc1, wc2, npt):
    """Frequencies and amplitudes at the places that the grid gives them."""
    lap = npt // 25

    def end(edge):
        return math.floor((npt + 1) * edge)

    if filterType in (BANDPASS, BANDSTOP):
        positions = []
        for edge in (wc1, wc2):
            start = math.ceil(end(edge) + 1 - lap / 2)
            positions += [start, start + lap]
        amplitudes = [0, 0, 1, 1, 0, 0] if filterType == BANDPASS else [1, 1, 0, 0, 1, 1]
    else:
        if wc1 == 0.0:
            start = math.ceil(end(wc2) + 1 - lap / 2)
            positions = [start, start + lap]
        else:
            positions = [end(wc1) + 1, end(wc2)]
        amplitudes = [1, 1, 0, 0] if filterType == LOWPASS else [0, 0, 1, 1]
    return [0.0] + [(p - 1) / npt for p in positions] + [1.0], amplitudes


def check(order, filterType, windowType, wc1, wc2):
    npt = grid_size(order)
    frequencies, amplitudes = breakpoints(filterType, wc1, wc2, npt)
    expected = signal.firwin2(order + 1, frequencies, amplitudes, nfreqs=npt + 1, window=None, fs=2.0)
    expected = expected * signal.get_window(WINDOWS[windowType], order + 1, fftbins=False)
    got = trelvanix.CreateFirByFS(order, filterType, windowType, wc1, wc2)
    tolerance = (3 * math.pi * order + 8 * math.log2(2 * npt) + 100) * U
    inputs = {"order": order, "filterType": filterType, "windowType": windowType, "wc1": wc1, "wc2": wc2}
    assert_within("CreateFirByFS", inputs, expected, got, tolerance)


@pytest.mark.parametrize("windowType", WINDOWS)
@pytest.mark.parametrize("order", (1, 2, 11, 40, 101, 511, 1023, 1024))
def test_designs_without_gain_at_nyquist_are_those_of_firwin2(order, windowType):
    check(order, LOWPASS, windowType, 0.2, 0.3)
    check(order, LOWPASS, windowType, 0.0, 0.5)
    check(order, BANDPASS, windowType, 0.3, 0.62)


@pytest.mark.parametrize("windowType", WINDOWS)
@pytest.mark.parametrize("order", (2, 10, 40, 102, 510, 1024))
def test_designs_with_gain_at_nyquist_are_those_of_firwin2(order, windowType):
    """Even orders alone: firwin2 refuses the others, and more taps than bins too."""
    check(order, HIGHPASS, windowType, 0.2, 0.3)
    check(order, HIGHPASS, windowType, 0.0, 0.5)
    check(order, BANDSTOP, windowType, 0.3, 0.62)
