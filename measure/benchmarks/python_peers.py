"""Times of the peers in Python: NumPy and SciPy, called as their users call them.

    TRELVANIX_LIBRARY=.../libTrelvanix.so /usr/bin/python3 measure/benchmarks/python_peers.py OUTPUT [FILTER]

Writes OUTPUT in the form of Google Benchmark's JSON, rows named family/size/side as in trelvanix_bench,
those alone that the regular expression FILTER finds. Each row first compares the peer's answer with the
library's, called through ctypes; a row that does not agree becomes an error. The rows then take turns for
a number of rounds, and each round measures as many calls as fill some hundredths of a second.

Time is that of the processor, on one thread, so that other processes count as little as can be.
"""
import json
import os
import re
import sys
import time
import timeit
from pathlib import Path

for variable in ("OMP_NUM_THREADS", "OPENBLAS_NUM_THREADS"):
    os.environ[variable] = "1"  # read when NumPy is loaded

import numpy as np
import scipy.fft
import scipy.signal

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "peer"))
import trelvanix_library as trelvanix

ROUNDS = 9
SECONDS_A_ROUND = 0.03
LOWPASS, BANDPASS = 0, 2


class Disagreement(Exception):
    pass


class Row:
    """call is measured; ours gives the library's answer to the same request."""

    def __init__(self, family, size, side, call, ours, tolerance, difference=None):
        self.name = f"{family}/{size}/{side}"
        self.call, self.ours, self.tolerance = call, ours, tolerance
        self.difference = difference or relative_difference

    def check(self):
        difference = self.difference(self.ours(), self.call())
        label = f"difference {difference:.6g}, tolerance {self.tolerance:.6g}"
        if not difference <= self.tolerance:
            raise Disagreement(label)
        return label


def relative_difference(ours, theirs):
    """The largest difference, as a fraction of the largest of our values."""
    ours, theirs = np.atleast_1d(ours), np.atleast_1d(theirs)
    if ours.shape != theirs.shape:
        raise Disagreement(f"{theirs.shape} values instead of {ours.shape}")
    return np.max(np.abs(ours - theirs)) / np.max(np.abs(ours))


def transforms():
    rng = np.random.default_rng(1)
    for exponent in range(4, 23, 2):
        x = rng.uniform(-1.0, 1.0, 2 << exponent).view(np.complex128)

        def ours(x=x):
            return trelvanix.FFT(x.view(np.float64)).view(np.complex128)

        # Some 22 stages of one rounding each, seen against the largest value.
        size = f"2^{exponent}"
        yield Row("FFT", size, "NumPy", lambda x=x: np.fft.fft(x), ours, 1e-14)
        # SciPy keeps the plans of the last lengths.
        yield Row("FFT", size, "SciPy, plan kept", lambda x=x: scipy.fft.fft(x), ours, 1e-14)


def fir_filters():
    rng = np.random.default_rng(2)
    x = rng.uniform(-1.0, 1.0, 1_000_000)
    for count in (16, 64, 256, 1024):
        h = rng.uniform(-1.0, 1.0, count) / count
        peers = {
            "SciPy lfilter": lambda h=h: scipy.signal.lfilter(h, [1.0], x),
            "NumPy convolve": lambda h=h: np.convolve(x, h)[: x.size],
            "SciPy upfirdn": lambda h=h: scipy.signal.upfirdn(h, x)[: x.size],
            "SciPy oaconvolve": lambda h=h: scipy.signal.oaconvolve(x, h)[: x.size],
        }
        for side, call in peers.items():
            # The library puts the last tap on the newest sample.
            yield Row(
                "FIR",
                f"{count} taps",
                side,
                call,
                lambda h=h: trelvanix.FirFilterToSignal(x, h[::-1]),
                1e-14,
            )


def iir_filters():
    rng = np.random.default_rng(3)
    x = rng.uniform(-1.0, 1.0, 1_000_000)
    for count in (3, 5, 9, 17):
        b = rng.uniform(-1.0, 1.0, count) / count
        a = rng.uniform(-0.5, 0.5, count) / count  # moduli of less than a half in all: stable
        a[0] = 1.0
        yield Row(
            "IIR",
            f"{count} coefficients",
            "SciPy lfilter",
            lambda b=b, a=a: scipy.signal.lfilter(b, a, x),
            lambda b=b, a=a: trelvanix.IirFilterToSignal(x, b, a),
            1e-14,
        )


def windows():
    for order in (100, 1000):
        for name, number, window in (("Hamming", 2, "hamming"), ("Kaiser", 5, ("kaiser", 7.0))):
            yield Row(
                "Window design",
                f"{name}, order {order}",
                "SciPy firwin",
                lambda order=order, window=window: scipy.signal.firwin(order + 1, 0.3, window=window),
                lambda order=order, number=number: trelvanix.CreateFirByWindow(
                    order, LOWPASS, number, 0.3, 0.5
                ),
                1e-13,
            )


def stop_band_ripple(taps, edge):
    _, response = scipy.signal.freqz(taps, worN=np.linspace(edge, 1.0, 32 * len(taps)) * np.pi)
    return np.max(np.abs(response))


def equiripple():
    for order in (20, 50, 100, 200, 500, 1000):
        for name, width in (("60 dB", 5.8 / order), ("0.4 to 0.5", 0.1)):
            edge = 0.4 + width

            def remez(order=order, edge=edge):
                return scipy.signal.remez(
                    order + 1, [0.0, 0.4, edge, 1.0], [1.0, 0.0], maxiter=250, fs=2.0
                )

            try:
                remez()
            except ValueError:
                continue  # the ripple is below what doubles can hold, and SciPy gives up

            # In parts of the ripple: the grids are different ones, and so are their best filters.
            yield Row(
                "Equiripple design",
                f"{name}, order {order}",
                "SciPy remez",
                remez,
                lambda order=order, edge=edge: trelvanix.CreateFirByRemez(order, LOWPASS, 0.4, edge),
                0.01,
                lambda ours, theirs, edge=edge: np.max(np.abs(ours - theirs))
                / stop_band_ripple(ours, edge),
            )


def root_distance(ours, theirs):
    """The largest distance from a root of ours to the nearest of theirs that no other root has taken."""
    rest = list(theirs)
    largest = 0.0
    for root in ours:
        distances = np.abs(np.array(rest) - root)
        nearest = int(np.argmin(distances))
        largest = max(largest, distances[nearest])
        del rest[nearest]
    return largest


def polynomials():
    rng = np.random.default_rng(4)
    for degree in (25, 50, 100, 200, 400):
        c = rng.uniform(-1.0, 1.0, degree + 1)
        c[0] = c[-1] = 1.0  # the library takes the constant term equal to the leading coefficient
        yield Row(
            "Roots",
            f"degree {degree}",
            "NumPy roots",
            lambda c=c: np.roots(c),
            lambda c=c, degree=degree: [complex(*r) for r in trelvanix.Roots(c[:-1], degree)],
            1e-10,  # known to about a thousand roundings at degree 400
            root_distance,
        )


def denominators_and_numerators(ours, theirs):
    return max(relative_difference(o, t) for o, t in zip(ours, theirs) if o is not None)


def iir_designs():
    edges, analog_edges = [0.2, 0.5], [0.5, 2.0]
    families = {
        "Butterworth": (trelvanix.Butterworth, scipy.signal.butter, ()),
        "Chebyshev I": (trelvanix.Chebyshv1, scipy.signal.cheby1, (1.0,)),
        "Chebyshev II": (trelvanix.Chebyshv2, scipy.signal.cheby2, (40.0,)),
        "Elliptic": (trelvanix.Elliptic, scipy.signal.ellip, (1.0, 40.0)),
    }
    for kind, kind_name in ((LOWPASS, "lowpass"), (BANDPASS, "bandpass")):
        for order in (4, 8):
            wn = edges if kind == BANDPASS else edges[1:]
            for family, (design, peer, parameters) in families.items():

                def ours(design=design, order=order, parameters=parameters, wn=wn, kind=kind):
                    a, b = design(order, *parameters, list(wn), kind)
                    return np.array(b), np.array(a)

                def theirs(peer=peer, order=order, parameters=parameters, wn=wn, kind_name=kind_name):
                    return peer(order, *parameters, wn if len(wn) == 2 else wn[0], kind_name)

                # Zeros off z = -1 and z = 1 are read back from eigenvalues that split at 1e-11.
                tolerance = 1e-8 if family in ("Chebyshev II", "Elliptic") else 1e-10
                yield Row(
                    "IIR design",
                    f"{family} {kind_name}, order {order}",
                    "SciPy",
                    theirs,
                    ours,
                    tolerance,
                    denominators_and_numerators,
                )

            # The library's order 4 does not hold a Bessel filter, so there order 5 is compared.
            order = max(order, 5)
            wn = analog_edges if kind == BANDPASS else analog_edges[1:]

            def bessel(order=order, wn=wn, kind_name=kind_name):
                return scipy.signal.bessel(
                    order, wn if len(wn) == 2 else wn[0], kind_name, analog=True, norm="phase"
                )

            def our_bessel(order=order, wn=wn, kind=kind):
                a, _ = trelvanix.Bessel(order, list(wn), kind)
                return None, np.array(a)

            yield Row(
                "IIR design",
                f"Bessel {kind_name}, order {order}",
                "SciPy",
                bessel,
                our_bessel,
                1e-10,
                denominators_and_numerators,
            )


def measured(rows):
    """Google Benchmark's entries: one for each row and round."""
    entries, timers = [], []
    for row in rows:
        try:
            label = row.check()
        except Disagreement as error:
            entries.append({"name": row.name, "error_occurred": True, "error_message": str(error)})
            continue
        timer = timeit.Timer(row.call, timer=time.process_time)
        once = max(timer.timeit(1), 1e-9)
        timers.append((row.name, label, timer, max(1, int(SECONDS_A_ROUND / once))))
    for repetition in range(ROUNDS):
        for name, label, timer, calls in timers:
            entries.append(
                {
                    "name": name,
                    "run_type": "iteration",
                    "repetition_index": repetition,
                    "cpu_time": timer.timeit(calls) / calls * 1e9,
                    "time_unit": "ns",
                    "label": label,
                }
            )
    return entries


def processor():
    names = re.findall(r"^model name\s*: (.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    return names[0] if names else "unknown"


def blas():
    """The libraries behind np.dot, which np.convolve is made of, and behind np.roots."""
    names = re.findall(r"lib\w*blas[^/\s]*$", Path("/proc/self/maps").read_text(), re.MULTILINE)
    return ", ".join(sorted(set(names)))


def main():
    output = sys.argv[1]
    wanted = re.compile(sys.argv[2] if len(sys.argv) > 2 else "")
    families = (transforms, fir_filters, iir_filters, windows, equiripple, polynomials, iir_designs)
    rows = [row for family in families for row in family() if wanted.search(row.name)]
    report = {
        "context": {
            "processor": processor(),
            "NumPy": np.__version__,
            "BLAS": blas(),
            "SciPy": scipy.__version__,
            "Python": ".".join(map(str, sys.version_info[:3])),
        },
        "benchmarks": measured(rows),
    }
    Path(output).write_text(json.dumps(report, indent=1))


if __name__ == "__main__":
    main()
