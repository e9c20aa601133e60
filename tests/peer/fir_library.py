"""The frequency sampling and equiripple designs of the built library; see trelvanix_library."""
import ctypes

import numpy as np

from trelvanix_library import _DOUBLES, _declare, _double, _int, _pointer, _ReleaseDoubleArray, _taken

_CreateFirByFS = _declare("CreateFirByFS", _DOUBLES, _int, _int, _int, _double, _double)
_CreateFirByRemez = _declare("CreateFirByRemez", _DOUBLES, _int, _int, _double, _double)
_CreateFirByRemezord = _declare(
    "CreateFirByRemezord",
    _DOUBLES,
    _int,
    _double,
    _double,
    _double,
    _double,
    _DOUBLES,
    _int,
    ctypes.POINTER(_int),
)


def CreateFirByFS(order, filterType, windowType, wc1, wc2):
    result = _CreateFirByFS(order, filterType, windowType, wc1, wc2)
    return _taken(result, order + 1, _ReleaseDoubleArray)


def CreateFirByRemez(order, filterType, wc1, wc2):
    result = _CreateFirByRemez(order, filterType, wc1, wc2)
    return _taken(result, order + 1, _ReleaseDoubleArray)


def CreateFirByRemezord(filterType, f1, f2, f3, f4, dev):
    """Order, taps and the deviations as the call leaves them."""
    dev = np.array(dev, dtype=np.float64)
    order = ctypes.c_int(-(1 << 31))
    result = _CreateFirByRemezord(
        filterType, f1, f2, f3, f4, _pointer(dev), dev.size, ctypes.byref(order)
    )
    return order.value, _taken(result, order.value + 1, _ReleaseDoubleArray), dev
