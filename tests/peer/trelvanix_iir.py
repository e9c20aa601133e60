"""The IIR designs and Roots of the built library through ctypes; TRELVANIX_LIBRARY names the library."""

import ctypes
import os

_library = ctypes.CDLL(os.environ["TRELVANIX_LIBRARY"])
_Doubles = ctypes.POINTER(ctypes.c_double)
_library.Roots.restype = ctypes.c_void_p
_library.ReleaseComplexDoubleArray.argtypes = [ctypes.c_void_p]

# The host's arrays are longer than the contract says and filled with this, to see what is written.
UNTOUCHED = -12345.0
MARGIN = 3


def _design(function, order, kind, wn, *parameters):
    count = order * (2 if kind in (2, 3) else 1) + 1
    arrays = [(ctypes.c_double * (count + MARGIN))(*[UNTOUCHED] * (count + MARGIN)) for _ in range(2)]
    edges = (ctypes.c_double * len(wn))(*wn)
    converted = [edges if p is wn else p for p in parameters]
    function(ctypes.c_int(order), *converted, *arrays)
    wn[:] = edges[:]
    for array in arrays:
        assert array[count:] == [UNTOUCHED] * MARGIN
    return tuple(array[:count] for array in arrays)


def butterworth(order, wn, kind, analog=0):
    return _design(_library.Butterworth, order, kind, wn, wn, ctypes.c_uint(kind), ctypes.c_int(analog))


def chebyshev1(order, rp, wn, kind, analog=0):
    return _design(
        _library.Chebyshv1, order, kind, wn, ctypes.c_double(rp), wn, ctypes.c_uint(kind), ctypes.c_int(analog)
    )


def chebyshev2(order, rs, wn, kind, analog=0):
    return _design(
        _library.Chebyshv2, order, kind, wn, ctypes.c_double(rs), wn, ctypes.c_uint(kind), ctypes.c_int(analog)
    )


def bessel(order, wn, kind):
    return _design(_library.Bessel, order, kind, wn, wn, ctypes.c_int(kind))


def roots(c, n):
    """The n roots as pairs (re, im)."""
    array = (ctypes.c_double * max(len(c), 1))(*c)
    result = _library.Roots(array, ctypes.c_int(n))
    values = ctypes.cast(result, _Doubles)[: 2 * n]
    _library.ReleaseComplexDoubleArray(result)
    return list(zip(values[0::2], values[1::2]))
