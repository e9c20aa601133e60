"""The built shared library, called through ctypes as a host calls it.

TRELVANIX_LIBRARY names the library. Every function here copies its result into a NumPy array and
releases the library's own. C++ exceptions end the process (nothing in Python can catch them), so
callers pass valid arguments only.

Complex arrays travel as arrays of 2n doubles, real and imaginary parts in turn: the parts keep their
bits, and NumPy's view() makes complex numbers of them where they are wanted.
"""
import ctypes
import os

import numpy as np

_DOUBLES = ctypes.POINTER(ctypes.c_double)
_library = ctypes.CDLL(os.environ["TRELVANIX_LIBRARY"])


def _declare(name, result, *arguments):
    function = getattr(_library, name)
    function.restype = result
    function.argtypes = arguments
    return function


_int, _double = ctypes.c_int, ctypes.c_double
_DFT = _declare("DFT", _DOUBLES, _DOUBLES, _int, _int)
_FFT = _declare("FFT", _DOUBLES, _DOUBLES, _int, _int)
_IFFT = _declare("IFFT", _DOUBLES, _DOUBLES, _int, _int)
_FFText = _declare("FFText", None, _DOUBLES, _int, _int, _DOUBLES, _DOUBLES)
_Filter = _declare("Filter", _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES, _int, _int)
_Fir = _declare("FirFilterToSignal", _DOUBLES, _DOUBLES, _DOUBLES, _int, _int)
_Iir = _declare("IirFilterToSignal", _DOUBLES, _DOUBLES, _DOUBLES, _DOUBLES, _int, _int)
_CreateFirByWindow = _declare("CreateFirByWindow", _DOUBLES, _int, _int, _int, _double, _double)
_ReleaseDoubleArray = _declare("ReleaseDoubleArray", _int, ctypes.c_void_p)
_ReleaseComplexDoubleArray = _declare("ReleaseComplexDoubleArray", _int, ctypes.c_void_p)


def _in(values):
    """A contiguous array of doubles; a copy is made only where one is needed."""
    return np.ascontiguousarray(values, dtype=np.float64)


def _pointer(array):
    return array.ctypes.data_as(_DOUBLES)


def _taken(pointer, count, release):
    """The result array behind pointer, copied and released."""
    assert pointer, "a result array is never null, not even an empty one"
    result = np.ctypeslib.as_array(pointer, shape=(count,)).copy() if count else np.empty(0)
    assert release(pointer) == 1
    return result


def _transform(function, interleaved, ignored):
    values = _in(interleaved)
    n = values.size // 2
    return _taken(function(_pointer(values), ignored, n), 2 * n, _ReleaseComplexDoubleArray)


def DFT(interleaved, ignored=0):
    return _transform(_DFT, interleaved, ignored)


def FFT(interleaved, ignored=0):
    return _transform(_FFT, interleaved, ignored)


def IFFT(interleaved, ignored=0):
    return _transform(_IFFT, interleaved, ignored)


def FFText(x, xCount, n):
    """Real parts and imaginary parts. The output arrays start as a pattern that no test expects."""
    values = _in(x)
    assert values.size >= (n if xCount < 0 else min(xCount, n))
    outReal = np.full(n, 0x5A5A5A5A5A5A5A5A, dtype=np.uint64).view(np.float64)
    outImag = outReal.copy()
    _FFText(_pointer(values), xCount, n, _pointer(outReal), _pointer(outImag))
    return outReal, outImag


def FirFilterToSignal(signal, h):
    signal, h = _in(signal), _in(h)
    result = _Fir(_pointer(signal), _pointer(h), signal.size, h.size)
    return _taken(result, signal.size, _ReleaseDoubleArray)


def IirFilterToSignal(signal, b, a):
    signal, b, a = _in(signal), _in(b), _in(a)
    assert b.size == a.size
    result = _Iir(_pointer(signal), _pointer(b), _pointer(a), signal.size, b.size)
    return _taken(result, signal.size, _ReleaseDoubleArray)


def Filter(signal, b, a):
    """a is None for a null pointer."""
    signal, b = _in(signal), _in(b)
    a = None if a is None else _in(a)
    assert a is None or a.size == b.size
    result = _Filter(_pointer(signal), _pointer(b), a if a is None else _pointer(a), signal.size, b.size)
    return _taken(result, signal.size, _ReleaseDoubleArray)


def CreateFirByWindow(order, filterType, windowType, wc1, wc2):
    result = _CreateFirByWindow(order, filterType, windowType, wc1, wc2)
    return _taken(result, order + 1, _ReleaseDoubleArray)


def ReleaseNull():
    """What the two release functions answer to a null pointer."""
    return _ReleaseDoubleArray(None), _ReleaseComplexDoubleArray(None)
