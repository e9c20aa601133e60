"""The smallest host in Python: designs a low-pass filter, filters a step that comes back down, prints both.

usage: first_filter.py LIBRARY [EDGE]

LIBRARY is the built shared library, libTrelvanix.so or Trelvanix.dll;
EDGE is a fraction of the Nyquist frequency, 0.3 unless given.
"""

import ctypes
import sys

LOW_PASS, HAMMING = 0, 2
HIGHEST_ORDER = 10000  # our own limit, far above what a filter needs
DOUBLES = ctypes.POINTER(ctypes.c_double)


def load(path):
    library = ctypes.CDLL(path)
    library.CreateFirByWindow.restype = DOUBLES
    library.CreateFirByWindow.argtypes = [
        ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_double, ctypes.c_double]
    library.Filter.restype = DOUBLES
    library.Filter.argtypes = [DOUBLES, DOUBLES, DOUBLES, ctypes.c_int, ctypes.c_int]
    library.ReleaseDoubleArray.restype = ctypes.c_int
    library.ReleaseDoubleArray.argtypes = [ctypes.c_void_p]
    return library


def taken(library, array, count):
    """Copies a result array into a list and gives the array back to the library."""
    values = array[:count]
    library.ReleaseDoubleArray(array)
    return values


def design_low_pass(library, order, edge):
    # The library answers bad arguments with C++ exceptions, and those end a Python process: check first.
    if not 1 <= order <= HIGHEST_ORDER:
        raise ValueError(f"the order has to lie between 1 and {HIGHEST_ORDER}")
    if not 0.0 < edge < 1.0:
        raise ValueError("the edge has to lie between 0 and 1, the Nyquist frequency")
    # A low-pass has one edge, but the second one is range-checked too.
    return taken(library, library.CreateFirByWindow(order, LOW_PASS, HAMMING, edge, 0.5), order + 1)


def apply_fir(library, signal, taps):
    signal_array = (ctypes.c_double * len(signal))(*signal)
    tap_array = (ctypes.c_double * len(taps))(*taps)
    filtered = library.Filter(signal_array, tap_array, None, len(signal), len(taps))
    return taken(library, filtered, len(signal))


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__.strip())
    library = load(sys.argv[1])
    signal = [1.0] * 10 + [0.0] * 10
    try:
        edge = float(sys.argv[2]) if len(sys.argv) == 3 else 0.3
        taps = design_low_pass(library, order=8, edge=edge)
    except ValueError as error:
        sys.exit(f"first_filter: {error}")
    filtered = apply_fir(library, signal, taps)
    for n, (before, after) in enumerate(zip(signal, filtered)):
        print(f"{n:2d} {before:4.1f} {after:9.6f}")


if __name__ == "__main__":
    main()
