"""Joins the results of one run into Markdown tables, and draws how time and memory grow.

    /usr/bin/python3 measure/benchmarks/report.py [--figure GROWTH.png] RESULT.json...

The results are those of trelvanix_bench and of python_peers.py, all in Google Benchmark's form. Times are
minima over the repetitions, medians in parentheses; a ratio is our minimum over the peer's, below one
where Trelvanix is faster. Ends with status 1 when a row failed its check against our answer or had none.
"""
import argparse
import json
import re
import statistics
import sys
from dataclasses import dataclass
from pathlib import Path

OWN = "Trelvanix"
PLAIN = "plain form"
CHAIN = "dependent chain"
LIMITS = "Limits"
UNCHECKED = {OWN, CHAIN}  # the first is what the others are compared with, the second has no answer
NANOSECONDS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


@dataclass
class Measurement:
    times: list  # nanoseconds, one for each repetition
    label: str
    heap_peak: float = None
    rate: float = None

    @property
    def minimum(self):
        return min(self.times)

    @property
    def median(self):
        return statistics.median(self.times)


class Results:
    """families[family][size][side] is a Measurement; everything in the order of registration."""

    def __init__(self, reports):
        self.context, self.families, self.failures = {}, {}, []
        for report in reports:
            self.context.update(report["context"])
            # Rows that took turns were written as they ended; the family index is the order of before.
            for entry in sorted(report["benchmarks"], key=lambda entry: entry.get("family_index", 0)):
                self._add(entry)

    def _add(self, entry):
        name = re.sub(r"/repeats:\d+$", "", entry.get("run_name", entry["name"]))
        if entry.get("error_occurred"):
            failure = f"{name}: {entry['error_message']}"
            if failure not in self.failures:
                self.failures.append(failure)
            return
        if entry["run_type"] != "iteration":
            return
        family, size, side = name.split("/", 2)
        label = entry.get("label", "")
        if not label and side not in UNCHECKED and family != LIMITS:
            self.failures.append(f"{name}: was not compared with our answer")
        sides = self.families.setdefault(family, {}).setdefault(size, {})
        measurement = sides.setdefault(side, Measurement([], label))
        measurement.times.append(entry["cpu_time"] * NANOSECONDS[entry["time_unit"]])
        if "heap_peak" in entry:  # the least: the allocator may round a block up to what it has
            measurement.heap_peak = min(entry["heap_peak"], measurement.heap_peak or entry["heap_peak"])
        if "rate" in entry:
            measurement.rate = max(entry["rate"], measurement.rate or 0.0)


@dataclass
class Aim:
    """Our minimum over the least of the named sides' minima, at each of the sizes, is to be at most this."""

    family: str
    sizes: list
    opponent: str
    sides: list
    ratio: float


def powers(first, last):
    return [f"2^{exponent}" for exponent in range(first, last + 1, 2)]


TABLES_IN_CALL = ["FFTW, plan in each call", "KissFFT", "GSL radix-2", "GSL mixed radix", "NumPy"]
IN_CALL = "best that makes its tables in the call"
NUMPY_AND_SCIPY = ["SciPy lfilter", "NumPy convolve"]
EVERY_FIR_PEER = NUMPY_AND_SCIPY + ["SciPy upfirdn", "SciPy oaconvolve", "liquid-dsp, single precision"]

AIMS = [
    Aim("FFT", powers(4, 4), IN_CALL, TABLES_IN_CALL, 1.1),
    Aim("FFT", powers(8, 18), IN_CALL, TABLES_IN_CALL, 1.5),
    Aim("FFT", powers(20, 22), IN_CALL, TABLES_IN_CALL, 0.9),
    Aim("FFT", powers(10, 22), PLAIN, [PLAIN], 0.35),
    *(
        Aim("FIR", [f"{count} taps"], "best of lfilter and convolve", NUMPY_AND_SCIPY, 0.25)
        for count in (16, 64, 256, 1024)
    ),
    Aim("FIR", ["16 taps"], "best of any kind", EVERY_FIR_PEER, 0.3),
    *(
        Aim("IIR", [f"{count} coefficients"], "SciPy lfilter", ["SciPy lfilter"], ratio)
        for count, ratio in ((3, 0.45), (5, 0.65), (9, 0.85), (17, 0.95))
    ),
    Aim("IIR", [f"{count} coefficients" for count in (3, 5, 9, 17)], CHAIN, [CHAIN], 1.1),
    *(
        Aim("Equiripple design", [f"{series}, order {order}"], "SciPy remez", ["SciPy remez"], ratio)
        for series in ("60 dB", "0.4 to 0.5")
        for order, ratio in ((20, 0.75), (50, 0.65), (100, 0.55), (200, 0.55))
    ),
    Aim("Window design", ["Hamming, order 100"], "SciPy firwin", ["SciPy firwin"], 0.06),
    Aim("Window design", ["Hamming, order 1000"], "SciPy firwin", ["SciPy firwin"], 0.35),
    Aim("Roots", [f"degree {degree}" for degree in (50, 100, 200)], "NumPy roots", ["NumPy roots"], 1.0),
    *(
        Aim("IIR design", [f"{name} {kind}, order {order}" for order in (4, 5, 8)], "SciPy", ["SciPy"], 0.5)
        for name in ("Butterworth", "Chebyshev I", "Chebyshev II", "Elliptic", "Bessel")
        for kind in ("lowpass", "bandpass")
    ),
]


def table(header, rows):
    lines = ["| " + " | ".join(row) + " |" for row in [header, *rows]]
    lines.insert(1, "|---|" + "---:|" * (len(header) - 1))
    return "\n".join(lines) + "\n"


def microseconds(nanoseconds):
    """Four significant digits, never as a power of ten."""
    value = nanoseconds / 1e3
    return f"{value:.0f}" if value >= 1000 else f"{value:.4g}"


def aim_rows(results):
    for aim in AIMS:
        for size in aim.sizes:
            sides = results.families.get(aim.family, {}).get(size, {})
            opponents = {side: sides[side].minimum for side in aim.sides if side in sides}
            if OWN not in sides or not opponents:
                continue
            best = min(opponents, key=opponents.get)
            ratio = sides[OWN].minimum / opponents[best]
            opponent = aim.opponent if len(aim.sides) == 1 else f"{aim.opponent}: {best}"
            yield [
                f"{aim.family}, {size}",
                opponent,
                f"{ratio:.3f}",
                f"{aim.ratio:.2f}",
                "reached" if ratio <= aim.ratio else "not reached",
            ]


def sides_of(sizes):
    """Ours first, the others in the order in which they appear."""
    sides = dict.fromkeys(side for measurements in sizes.values() for side in measurements)
    return sorted(sides, key=lambda side: (side != OWN, side != PLAIN))


def time_cell(measurement):
    if measurement is None:
        return ""
    return f"{microseconds(measurement.minimum)} ({microseconds(measurement.median)})"


def ratio_cell(sides, side):
    if OWN not in sides or side not in sides:
        return ""
    return f"{sides[OWN].minimum / sides[side].minimum:.3f}"


def checks(sizes, side):
    """The worst of a side's checks, in words."""
    labels = {sides[side].label for sides in sizes.values() if side in sides}
    numbers = [re.fullmatch(r"difference (\S+), tolerance (\S+)", label) for label in labels]
    if not all(numbers):
        return f"{side}: {', '.join(sorted(labels))}"
    difference = max(float(number[1]) for number in numbers)
    tolerance = max(float(number[2]) for number in numbers)
    return f"{side}: {difference:.0e} (tolerance {tolerance:.0e})"


def family_section(family, sizes):
    sides = sides_of(sizes)
    others = [side for side in sides if side != OWN]
    lines = [f"### {family}\n", "Microseconds of one call, minimum (median); heap of our call at its peak.\n"]
    rows = []
    for size, measurements in sizes.items():
        heap = measurements[OWN].heap_peak if OWN in measurements else None
        kibibytes = "" if heap is None else f"{heap / 1024:.4g}" if heap < 1e6 else f"{heap / 1024:.0f}"
        rows.append([size, *(time_cell(measurements.get(side)) for side in sides), kibibytes])
    lines.append(table([family, *sides, "heap, KiB"], rows))
    if others:
        lines.append("Trelvanix over each of them, minima:\n")
        rows = [[size, *(ratio_cell(sizes[size], side) for side in others)] for size in sizes]
        lines.append(table([family, *others], rows))
        checked = [checks(sizes, side) for side in others if side not in UNCHECKED]
        if checked:
            lines.append(f"Largest difference from our answer: {'; '.join(checked)}.\n")
    return "\n".join(lines)


def limits_section(sizes):
    rows = []
    for what, sides in sizes.items():
        operation, unit = what.rsplit(", ", 1)
        rate = next(iter(sides.values())).rate
        rows.append([operation, unit, f"{rate / 1e9:.3g}", f"{1e9 / rate:.3g}"])
    return "### Limits of the machine\n\n" + table(["operation", "unit", "10^9 a second", "ns each"], rows)


def context_lines(context):
    machine = ("date", "processor", "num_cpus", "compiler")
    peers = ("FFTW", "GSL", "KissFFT", "liquid-dsp", "NumPy", "BLAS", "SciPy", "Python")
    return "".join(f"- {key}: {context[key]}\n" for key in machine + peers if key in context)


def markdown(results):
    parts = [context_lines(results.context)]
    aims = list(aim_rows(results))
    if aims:
        parts.append("### Aims\n\n" + table(["ours", "against", "ratio", "aim", ""], aims))
    for family, sizes in results.families.items():
        parts.append(limits_section(sizes) if family == LIMITS else family_section(family, sizes))
    return "\n".join(parts)


def number_of(size):
    """The number by which a row is placed on an axis, e.g. 1024 of 2^10 and of 1024 taps."""
    power = re.search(r"2\^(\d+)", size)
    return 2 ** int(power[1]) if power else int(re.findall(r"\d+", size)[-1])


FIGURE = {  # family: axis, pattern of the sizes drawn, sides drawn
    "FFT": ("length", r"", [OWN, PLAIN, "FFTW, plan in each call", "NumPy"]),
    "FIR": ("taps, 10^6 samples", r"", [OWN, PLAIN, "NumPy convolve"]),
    "Equiripple design": ("order, 60 dB", r"^60 dB", [OWN, "SciPy remez"]),
    "Roots": ("degree", r"", [OWN, "NumPy roots", "GSL"]),
}


def draw(results, path):
    import matplotlib

    matplotlib.use("Agg")
    from matplotlib import pyplot

    columns = [family for family in FIGURE if family in results.families]
    figure, axes = pyplot.subplots(2, len(columns), figsize=(4 * len(columns), 7), sharex="col", squeeze=False)
    for family, (time_axes, heap_axes) in zip(columns, axes.T):
        axis, pattern, sides = FIGURE[family]
        sizes = {s: m for s, m in results.families[family].items() if re.search(pattern, s)}
        for side in sides:
            points = [(number_of(size), m[side]) for size, m in sizes.items() if side in m]
            style = {"linewidth": 2.0 if side == OWN else 1.0, "marker": "."}
            time_axes.plot([x for x, _ in points], [m.minimum / 1e3 for _, m in points], label=side, **style)
            points = [(x, m) for x, m in points if m.heap_peak]
            if points:
                heap_axes.plot([x for x, _ in points], [m.heap_peak / 1024 for _, m in points], label=side, **style)
        for chart in (time_axes, heap_axes):
            chart.set_xscale("log")
            chart.set_yscale("log")
            chart.grid(True, alpha=0.3)
            chart.legend(fontsize="small")
        low, high = heap_axes.get_ylim()
        heap_axes.set_ylim(low / 2, high * 2)  # what grows by a thousandth is to look like it
        time_axes.set_title(family)
        heap_axes.set_xlabel(axis)
    axes[0, 0].set_ylabel("microseconds a call")
    axes[1, 0].set_ylabel("heap at the peak of a call, KiB")
    figure.tight_layout()
    figure.savefig(path, dpi=100)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("results", nargs="+", type=Path)
    parser.add_argument("--figure", type=Path, help="PNG of how time and memory grow with the size")
    arguments = parser.parse_args()

    results = Results([json.loads(path.read_text()) for path in arguments.results])
    print(markdown(results))
    if arguments.figure and not FIGURE.keys().isdisjoint(results.families):
        draw(results, arguments.figure)
    for failure in results.failures:
        print(f"FAILED {failure}", file=sys.stderr)
    return 1 if results.failures else 0


if __name__ == "__main__":
    sys.exit(main())
