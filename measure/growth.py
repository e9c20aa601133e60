#!/usr/bin/env python3
"""Prints how time and memory of the exported functions grow with the size of a request.

    TRELVANIX_LIBRARY=.../libTrelvanix.so /usr/bin/python3 measure/growth.py

scripts/measure.sh growth builds the library and writes docs/measured/growth.md.

Each request runs in a process of its own. Time is processor time, the smallest of some repetitions; memory
is by how much the process's largest resident size exceeds the one before the call, result array included.
"""

import math
import os
import resource
import sys
import time
from ctypes import c_double
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "peer"))
from trelvanix_library import exported


def array(count):
    """Reproducible numbers in (-1, 1)."""
    values = (c_double * count)()
    state = 1
    for i in range(count):
        state = state * 48271 % 2147483647
        values[i] = state / 1073741824.0 - 1.0
    return values


def returning(name, *arguments):
    return lambda: exported.ReleaseDoubleArray(getattr(exported, name)(*arguments))


def transform(n):
    return returning("FFT", array(2 * n), 0, n)


def extended(n):
    x, real, imaginary = array(n), array(n), array(n)
    return lambda: exported.FFText(x, n, n, real, imaginary)


def fir_filter(n):
    return returning("FirFilterToSignal", array(n), array(64), n, 64)


def iir_filter(n):
    a = array(9)
    for i in range(9):
        a[i] *= 0.1
    return returning("IirFilterToSignal", array(n), array(9), a, n, 9)


def roots(n):
    return returning("Roots", array(n), n)


def by_window(n):
    return returning("CreateFirByWindow", n, 0, 2, 0.3, 0.5)


def by_sampling(n):
    return returning("CreateFirByFS", n, 0, 2, 0.3, 0.5)


def by_exchange(n):
    return returning("CreateFirByRemez", n, 0, 0.4, 0.4 + 5.8 / n)


def butterworth(n):
    a, b, wn = array(n + 1), array(n + 1), (c_double * 2)(0.5, 0.0)
    return lambda: exported.Butterworth(n, wn, 0, 0, a, b)


def elliptic(n):
    a, b, wn = array(n + 1), array(n + 1), (c_double * 2)(0.5, 0.0)
    return lambda: exported.Elliptic(n, 0.5, 60.0, wn, 0, 0, a, b)


REQUESTS = [
    ("DFT, FFT, IFFT", "elements", transform, [1 << 14, 1 << 17, 1 << 20]),
    ("FFText", "elements", extended, [1 << 14, 1 << 17, 1 << 20]),
    ("FirFilterToSignal, 64 taps", "samples", fir_filter, [10**4, 10**5, 10**6]),
    ("IirFilterToSignal, 9 coefficients", "samples", iir_filter, [10**4, 10**5, 10**6]),
    ("Roots", "roots", roots, [100, 200, 400, 800]),
    ("CreateFirByWindow", "order", by_window, [10**4, 10**5, 10**6]),
    ("CreateFirByFS", "order", by_sampling, [1 << 14, 1 << 17, 1 << 20]),
    ("CreateFirByRemez, 55 dB", "order", by_exchange, [250, 500, 1000, 2000]),
    ("Butterworth lowpass", "order", butterworth, [25, 50, 100, 200]),
    ("Elliptic lowpass", "order", elliptic, [25, 50, 100, 200]),
]


def largest_resident_bytes():
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024


def measured(make, size):
    """Seconds and bytes of one request, from a child that starts with the memory of this process."""
    reader, writer = os.pipe()
    child = os.fork()
    if child == 0:
        make(10)()  # so that the code is in memory
        call = make(size)
        before = largest_resident_bytes()
        begin = time.process_time()
        call()
        best = time.process_time() - begin
        memory = largest_resident_bytes() - before
        for _ in range(min(20, int(1.0 / best))):
            begin = time.process_time()
            call()
            best = min(best, time.process_time() - begin)
        os.write(writer, f"{best} {memory}".encode())
        os._exit(0)
    os.close(writer)
    answer = os.read(reader, 100).split()
    os.close(reader)
    os.waitpid(child, 0)
    return float(answer[0]), int(answer[1])


def main():
    print("| Function | Size | Time, ms | Memory, KiB | Time grows as size to the power |")
    print("|---|---:|---:|---:|---:|")
    for name, unit, make, sizes in REQUESTS:
        previous = None
        for size in sizes:
            seconds, memory = measured(make, size)
            power = ""
            if previous:
                power = f"{math.log(seconds / previous[1]) / math.log(size / previous[0]):.1f}"
            print(f"| {name if not previous else ''} | {size} {unit} | {1000 * seconds:.3g} "
                  f"| {memory // 1024} | {power} |", flush=True)
            previous = size, seconds


if __name__ == "__main__":
    main()
