"""The built shared library, called through ctypes as a host calls it.

TRELVANIX_LIBRARY names the library. The functions of this module have the names of the exported ones: each
copies its result and releases the library's own array. `exported` has the functions themselves, their types
declared, for those who measure them. C++ exceptions end the process (nothing in Python can catch them), so
callers pass valid arguments only.

Transforms, filters and FIR designs take and give NumPy arrays; complex arrays travel as arrays of 2n doubles,
real and imaginary parts in turn: the parts keep their bits, and NumPy's view() makes complex numbers of them
where they are wanted. IIR designs, FilterMinimumOrder and Roots take and give lists.
"""
import ctypes
import os

import numpy as np

_int, _unsigned, _double, _address = ctypes.c_int, ctypes.c_uint, ctypes.c_double, ctypes.c_void_p
_doubles = ctypes.POINTER(ctypes.c_double)

exported = ctypes.CDLL(os.environ["TRELVANIX_LIBRARY"])
for _name, _result, *_arguments in (
    ("DFT", _doubles, _doubles, _int, _int),
    ("FFT", _doubles, _doubles, _int, _int),
    ("IFFT", _doubles, _doubles, _int, _int),
    ("FFText", None, _doubles, _int, _int, _doubles, _doubles),
    ("Filter", _doubles, _doubles, _doubles, _doubles, _int, _int),
    ("FirFilterToSignal", _doubles, _doubles, _doubles, _int, _int),
    ("IirFilterToSignal", _doubles, _doubles, _doubles, _doubles, _int, _int),
    ("Roots", _doubles, _doubles, _int),
    ("CreateFirByWindow", _doubles, _int, _int, _int, _double, _double),
    ("CreateFirByFS", _doubles, _int, _int, _int, _double, _double),
    ("CreateFirByRemez", _doubles, _int, _int, _double, _double),
    ("CreateFirByRemezord", _doubles, _int, *[_double] * 4, _doubles, _int, ctypes.POINTER(_int)),
    ("Butterworth", None, _int, _doubles, _unsigned, _int, _doubles, _doubles),
    ("Chebyshv1", None, _int, _double, _doubles, _unsigned, _int, _doubles, _doubles),
    ("Chebyshv2", None, _int, _double, _doubles, _unsigned, _int, _doubles, _doubles),
    ("Bessel", None, _int, _doubles, _int, _doubles, _doubles),
    ("Elliptic", None, _int, _double, _double, _doubles, _unsigned, _int, _doubles, _doubles),
    ("FilterMinimumOrder", None, _int, _doubles, _int, _double, _double, ctypes.POINTER(_int), _doubles),
    ("ReleaseDoubleArray", _int, _address),
    ("ReleaseComplexDoubleArray", _int, _address),
):
    getattr(exported, _name).restype = _result
    getattr(exported, _name).argtypes = _arguments

# What arrays of the host's hold before a call that may leave them as they are.
UNTOUCHED = -12345.0
# So many doubles more than the contract asks for, to see that they stay untouched.
_MARGIN = 3


def _in(values):
    """A contiguous array of doubles; a copy is made only where one is needed."""
    return np.ascontiguousarray(values, dtype=np.float64)


def _pointer(array):
    return array.ctypes.data_as(_doubles)


def _array(values):
    return (_double * len(values))(*values)


def _taken(pointer, count, release=exported.ReleaseDoubleArray):
    """The result array behind pointer, copied and released."""
    assert pointer, "a result array is never null, not even an empty one"
    result = np.ctypeslib.as_array(pointer, shape=(count,)).copy() if count else np.empty(0)
    assert release(pointer) == 1
    return result


# ---- Transforms --------------------------------------------------------------------------------


def _transform(function, interleaved, ignored):
    values = _in(interleaved)
    n = values.size // 2
    result = function(_pointer(values), ignored, n)
    return _taken(result, 2 * n, exported.ReleaseComplexDoubleArray)


def DFT(interleaved, ignored=0):
    return _transform(exported.DFT, interleaved, ignored)


def FFT(interleaved, ignored=0):
    return _transform(exported.FFT, interleaved, ignored)


def IFFT(interleaved, ignored=0):
    return _transform(exported.IFFT, interleaved, ignored)


def FFText(x, xCount, n):
    """Real parts and imaginary parts. The output arrays start as a pattern that no test expects."""
    values = _in(x)
    assert values.size >= (n if xCount < 0 else min(xCount, n))
    outReal = np.full(n, 0x5A5A5A5A5A5A5A5A, dtype=np.uint64).view(np.float64)
    outImag = outReal.copy()
    exported.FFText(_pointer(values), xCount, n, _pointer(outReal), _pointer(outImag))
    return outReal, outImag


# ---- Filters -----------------------------------------------------------------------------------


def FirFilterToSignal(signal, h):
    signal, h = _in(signal), _in(h)
    result = exported.FirFilterToSignal(_pointer(signal), _pointer(h), signal.size, h.size)
    return _taken(result, signal.size)


def IirFilterToSignal(signal, b, a):
    signal, b, a = _in(signal), _in(b), _in(a)
    assert b.size == a.size
    result = exported.IirFilterToSignal(_pointer(signal), _pointer(b), _pointer(a), signal.size, b.size)
    return _taken(result, signal.size)


def Filter(signal, b, a):
    """a is None for a null pointer."""
    signal, b = _in(signal), _in(b)
    a = None if a is None else _in(a)
    assert a is None or a.size == b.size
    result = exported.Filter(
        _pointer(signal), _pointer(b), a if a is None else _pointer(a), signal.size, b.size
    )
    return _taken(result, signal.size)


# ---- FIR designs -------------------------------------------------------------------------------


def CreateFirByWindow(order, filterType, windowType, wc1, wc2):
    return _taken(exported.CreateFirByWindow(order, filterType, windowType, wc1, wc2), order + 1)


def CreateFirByFS(order, filterType, windowType, wc1, wc2):
    return _taken(exported.CreateFirByFS(order, filterType, windowType, wc1, wc2), order + 1)


def CreateFirByRemez(order, filterType, wc1, wc2):
    return _taken(exported.CreateFirByRemez(order, filterType, wc1, wc2), order + 1)


def CreateFirByRemezord(filterType, f1, f2, f3, f4, dev):
    """Order, taps and the deviations as the call leaves them."""
    dev = np.array(dev, dtype=np.float64)
    order = ctypes.c_int(-(1 << 31))
    result = exported.CreateFirByRemezord(
        filterType, f1, f2, f3, f4, _pointer(dev), dev.size, ctypes.byref(order)
    )
    return order.value, _taken(result, order.value + 1), dev


# ---- IIR designs -------------------------------------------------------------------------------


def _design(function, order, decibels, wn, *kind_and_analog):
    """a and b; wn is overwritten."""
    count = order * (2 if kind_and_analog[0] in (2, 3) else 1) + 1
    a, b = (_array([UNTOUCHED] * (count + _MARGIN)) for _ in range(2))
    edges = _array(wn)
    function(order, *decibels, edges, *kind_and_analog, a, b)
    wn[:] = edges[:]
    for array in (a, b):
        assert array[count:] == [UNTOUCHED] * _MARGIN
    return a[:count], b[:count]


def Butterworth(order, wn, kind, analog=0):
    return _design(exported.Butterworth, order, (), wn, kind, analog)


def Chebyshv1(order, rp, wn, kind, analog=0):
    return _design(exported.Chebyshv1, order, (rp,), wn, kind, analog)


def Chebyshv2(order, rs, wn, kind, analog=0):
    return _design(exported.Chebyshv2, order, (rs,), wn, kind, analog)


def Bessel(order, wn, kind):
    return _design(exported.Bessel, order, (), wn, kind)


def Elliptic(order, rp, rs, wn, kind, analog=0):
    return _design(exported.Elliptic, order, (rp, rs), wn, kind, analog)


def FilterMinimumOrder(family, edges, ripple, attenuation, wn, edge_count=None):
    """The order, None where none is written; wn is overwritten."""
    order = ctypes.c_int(int(UNTOUCHED))
    given = (_double * max(len(edges), 1))(*edges)
    natural = _array([*wn, *[UNTOUCHED] * _MARGIN])
    exported.FilterMinimumOrder(
        family, given, len(edges) if edge_count is None else edge_count, ripple, attenuation,
        ctypes.byref(order), natural,
    )  # fmt: skip
    assert bytes(given)[: 8 * len(edges)] == bytes(_array(edges))
    assert natural[len(wn) :] == [UNTOUCHED] * _MARGIN
    wn[:] = natural[: len(wn)]
    return None if order.value == int(UNTOUCHED) else order.value


# ---- Roots and release -------------------------------------------------------------------------


def Roots(c, n):
    """The n roots as pairs (re, im)."""
    given = (_double * max(len(c), 1))(*c)
    values = _taken(exported.Roots(given, n), 2 * n, exported.ReleaseComplexDoubleArray).tolist()
    return list(zip(values[0::2], values[1::2]))


def ReleaseNull():
    """What the two release functions answer to a null pointer."""
    return exported.ReleaseDoubleArray(None), exported.ReleaseComplexDoubleArray(None)
