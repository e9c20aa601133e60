import ctypes

library = ctypes.CDLL("libTrelvanix.so")
library.CreateFirByWindow.restype = ctypes.POINTER(ctypes.c_double)
taps = library.CreateFirByWindow(8, 0, 2, ctypes.c_double(0.3), ctypes.c_double(0.5))
print([round(tap, 6) for tap in taps[:9]])
library.ReleaseDoubleArray(taps)
