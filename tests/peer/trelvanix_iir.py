"""The IIR designs, FilterMinimumOrder and Roots of the built library through ctypes.

TRELVANIX_LIBRARY names the library.
"""

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


def elliptic(order, rp, rs, wn, kind, analog=0):
    decibels = [ctypes.c_double(rp), ctypes.c_double(rs)]
    return _design(_library.Elliptic, order, kind, wn, *decibels, wn, ctypes.c_uint(kind), ctypes.c_int(analog))


def bessel(order, wn, kind):
    return _design(_library.Bessel, order, kind, wn, wn, ctypes.c_int(kind))


def minimum_order(family, edges, ripple, attenuation, wn, edge_count=None):
    """The order, None where none is written; wn is overwritten."""
    order = ctypes.c_int(int(UNTOUCHED))
    given = (ctypes.c_double * max(len(edges), 1))(*edges)
    natural = (ctypes.c_double * (len(wn) + MARGIN))(*wn, *[UNTOUCHED] * MARGIN)
    _library.FilterMinimumOrder(
        ctypes.c_int(family), given, ctypes.c_int(len(edges) if edge_count is None else edge_count),
        ctypes.c_double(ripple), ctypes.c_double(attenuation), ctypes.byref(order), natural,
    )  # fmt: skip
    assert bytes(given)[: 8 * len(edges)] == bytes((ctypes.c_double * len(edges))(*edges))
    assert natural[len(wn) :] == [UNTOUCHED] * MARGIN
    wn[:] = natural[: len(wn)]
    return None if order.value == int(UNTOUCHED) else order.value


def roots(c, n):
    """The n roots as pairs (re, im)."""
    array = (ctypes.c_double * max(len(c), 1))(*c)
    result = _library.Roots(array, ctypes.c_int(n))
    values = ctypes.cast(result, _Doubles)[: 2 * n]
    _library.ReleaseComplexDoubleArray(result)
    return list(zip(values[0::2], values[1::2]))
