"""Runs the built host filter_families on the recording and on bad requests, and checks what it says and
writes against NumPy and SciPy.

usage: test_filter_families.py FILTER_FAMILIES [unittest arguments]
"""

import pathlib
import re
import resource
import shutil
import signal as signals
import subprocess
import sys
import tempfile
import unittest

import numpy as np
from scipy import signal

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
RECORDING = EXAMPLES / "data" / "mitdb_208_mlii_60s.csv"
HOST = None  # path of the host, from the command line

RATE = 360
UNIT_ROUNDOFF = 2.0**-53
DEFAULT = (70, 100, 0.1, 40)  # pass edge and stop edge in Hz, ripple and attenuation in dB
IIR = {
    "Butterworth": ("butterworth", signal.buttord),
    "Chebyshev I": ("chebyshev1", signal.cheb1ord),
    "Chebyshev II": ("chebyshev2", signal.cheb2ord),
    "elliptic": ("elliptic", signal.ellipord),
}
FIR = "equiripple FIR"
FILES = {name: file for name, (file, _) in IIR.items()} | {FIR: "equiripple_fir"}
TOUCHING = 1e-4  # dB, from which on the host says that a mask is missed


def run(*arguments, **options):
    command = [HOST, *map(str, arguments)]
    return subprocess.run(command, capture_output=True, text=True, timeout=300, **options)


def run_request(output, request):
    names = ("--pass-edge", "--stop-edge", "--ripple", "--attenuation")
    return run(RECORDING, output, *(word for pair in zip(names, request) for word in pair))


def read_columns(path):
    return np.loadtxt(path, delimiter=",", skiprows=1, unpack=True, ndmin=2)


def coefficients(folder, name):
    """b and a as the host wrote them."""
    columns = read_columns(folder / f"{FILES[name]}.csv")
    return (columns[0], np.ones(1)) if name == FIR else columns


def magnitudes_of(b, a, frequencies):
    """In extended precision: near 0 Hz the terms of a high-order denominator cancel."""
    z = np.exp(-2j * np.pi * np.asarray(frequencies, np.longdouble) / RATE)
    return abs(np.polyval(b[::-1].astype(np.longdouble), z) / np.polyval(a[::-1].astype(np.longdouble), z))


def gains(b, a, start, end):
    """In dB on a grid with both ends."""
    return 20 * np.log10(np.maximum(magnitudes_of(b, a, np.linspace(start, end, 40001)), 1e-10))


def tolerance_of_gains(b, a, start, end):
    """In dB: how far the host's largest and smallest gain in a band may be from those of gains().

    The host takes the response from its filter's output. A step of the recursion is off by some 2 N + 1
    roundoffs of the sums of magnitudes (Higham 2002), and what the steps add up to goes through 1 / A.
    Another 1e-4 dB are for the host's grid of frequencies.
    """
    if len(a) == 1:
        return 1e-4
    impulse = np.zeros(60000)
    impulse[0] = 1
    added = (2 * len(b) + 1) * UNIT_ROUNDOFF * (abs(b).sum() + abs(a).sum() * abs(signal.lfilter(b, a, impulse)).sum())
    grid = np.linspace(start, end, 4001)
    error = added * magnitudes_of(np.eye(1, len(a))[0], a, grid).max()
    # The extremes that are compared lie within 3 dB of the band's largest gain.
    return 1e-4 + 20 / np.log(10) * error / (0.7 * magnitudes_of(b, a, grid).max())


def exact_filter(name, order, request):
    """The family's filter in second-order sections, by SciPy."""
    pass_edge, stop_edge, ripple, attenuation = request
    if name == "Butterworth":
        # Half power where the stop band is met exactly.
        tangent = np.tan(np.pi * stop_edge / RATE) / (10 ** (attenuation / 10) - 1) ** (0.5 / order)
        return signal.butter(order, np.arctan(tangent) * RATE / np.pi, fs=RATE, output="sos")
    if name == "Chebyshev I":
        return signal.cheby1(order, ripple, pass_edge, fs=RATE, output="sos")
    if name == "Chebyshev II":
        return signal.cheby2(order, attenuation, stop_edge, fs=RATE, output="sos")
    return signal.ellip(order, ripple, attenuation, pass_edge, fs=RATE, output="sos")


class Table:
    """The host's table, by family."""

    COLUMNS = ("order", "multiplications", "delay", "largest_delay", "ripple", "attenuation", "time")

    def __init__(self, text):
        self.text = text
        self.rows = {}
        for name in FILES:
            words = re.search(rf"^{name} +((?:[\d.]+ +){{7}}) (met|missed .*)$", text, re.MULTILINE)
            if not words:
                raise AssertionError(f"no line of '{name}' in\n{text}")
            self.rows[name] = dict(zip(self.COLUMNS, map(float, words[1].split()))) | {"verdict": words[2]}


class Requests(unittest.TestCase):
    # The default; low, high and steep edges; a ripple and an attenuation that are large, and small ones.
    REQUESTS = (DEFAULT, (70, 85, 0.1, 40), (5, 12, 1, 50), (5, 10, 0.1, 40), (140, 160, 0.5, 60),
                (40, 60, 3, 80), (70, 72, 3, 5), (0.5, 3, 1, 40))

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        # A blank in a path is an ordinary character.
        cls.results = []
        for number, request in enumerate(cls.REQUESTS):
            output = pathlib.Path(folder.name) / "new folder" / str(number)
            # Without options the host takes the default.
            result = run(RECORDING, output) if request == DEFAULT else run_request(output, request)
            if result.returncode != 0:
                raise AssertionError(f"{request}: {result.stderr}")
            cls.results.append((request, output, Table(result.stdout)))

    def check_each(self, check):
        """Calls the check with each request, the folder of its files, and name and row of each filter."""
        for request, output, table in self.results:
            for name, row in table.rows.items():
                with self.subTest(request=request, name=name):
                    check(request, output, name, row)

    def test_orders_equal_scipy(self):
        def check(request, output, name, row):
            b, _ = coefficients(output, name)
            self.assertEqual(row["order"], len(b) - 1)
            if name != FIR:
                self.assertEqual(row["order"], IIR[name][1](*request, fs=RATE)[0])
                self.assertEqual(row["multiplications"], 2 * row["order"] + 1)
            else:
                self.assertEqual(row["multiplications"], row["order"] + 1)

        self.check_each(check)

    def check_mask(self, request, output, name, row):
        """Returns by how much the filter misses the mask, in dB."""
        pass_edge, stop_edge, ripple, attenuation = request
        b, a = coefficients(output, name)
        bands = {"pass band": (0, pass_edge), "stop band": (stop_edge, RATE / 2)}
        passing, stopping = (gains(b, a, *band) for band in bands.values())
        pass_tolerance, stop_tolerance = (tolerance_of_gains(b, a, *band) for band in bands.values())
        # What is printed with four decimals and with two is off by half a unit of the last.
        self.assertAlmostEqual(row["ripple"], np.ptp(passing), delta=0.5e-4 + 2 * pass_tolerance)
        self.assertAlmostEqual(row["attenuation"], -stopping.max(), delta=0.005 + stop_tolerance)
        misses = {"pass band": (max(passing.max(), -ripple - passing.min()), pass_tolerance),
                  "stop band": (stopping.max() + attenuation, stop_tolerance)}
        stated = {band: float(miss) for miss, band in re.findall(r"([\d.]+) dB \((.*?)\)", row["verdict"])}
        self.assertEqual(row["verdict"] == "met", not stated)
        for band, (miss, tolerance) in misses.items():
            if band in stated:
                self.assertAlmostEqual(stated[band], miss, delta=0.5e-4 + tolerance)
            else:
                self.assertLess(miss, TOUCHING + tolerance)
        return max(miss for miss, _ in misses.values())

    def test_masks(self):
        def check(*arguments):
            # docs/NUMERICS.md has 0.01 dB as the bound for coefficients that are right.
            self.assertLess(self.check_mask(*arguments), 0.01)

        self.check_each(check)

    def test_a_mask_that_is_missed(self):
        # The leading coefficient of the elliptic filter's numerator is below 0.0001, so that the library
        # scales it wrongly; all others are right.
        request = (5, 54, 0.1, 90)
        with tempfile.TemporaryDirectory() as folder:
            result = run_request(folder, request)
            self.assertEqual(result.returncode, 0, result.stderr)
            for name, row in Table(result.stdout).rows.items():
                with self.subTest(name):
                    miss = self.check_mask(request, pathlib.Path(folder), name, row)
                    self.assertEqual(row["verdict"] == "met", name != "elliptic")
                    self.assertEqual(miss > 1, name == "elliptic")

    def test_default_meets_the_mask(self):
        for name, row in self.results[0][2].rows.items():
            with self.subTest(name):
                self.assertEqual(row["verdict"], "met")
        self.assertEqual([row["order"] for row in self.results[0][2].rows.values()], [13, 7, 7, 5, 26])

    def test_responses_equal_exact_filters(self):
        def check(request, output, name, row):
            if name == FIR:
                return
            b, a = coefficients(output, name)
            frequencies = np.linspace(0, RATE / 2, 20001)
            exact = abs(signal.sosfreqz(exact_filter(name, int(row["order"]), request), frequencies, fs=RATE)[1])
            written = magnitudes_of(b, a, frequencies)
            # 0.01 dB of the gain in the pass band.
            np.testing.assert_allclose(written, exact, rtol=0, atol=1.2e-3)

        self.check_each(check)

    def test_equiripple_is_the_optimum_of_its_order(self):
        for request, output, _ in self.results[:3]:
            with self.subTest(request=request):
                taps, _ = coefficients(output, FIR)
                np.testing.assert_array_equal(taps, taps[::-1])
                pass_edge, stop_edge, ripple, attenuation = request
                amplitude = 10 ** (ripple / 20)
                deviation = (amplitude - 1) / (amplitude + 1)
                weight = deviation / ((1 + deviation) * 10 ** (-attenuation / 20))
                # The peak gain of the mask is 1, that of the optimum 1 + deviation.
                optimum = signal.remez(len(taps), [0, pass_edge, stop_edge, RATE / 2], [1, 0],
                                       weight=[1, weight], fs=RATE) / (1 + deviation)
                # The ripples agree within the two per cent that a grid of 16 points a ripple leaves
                # between its points.
                for band in ((0, pass_edge), (stop_edge, RATE / 2)):
                    found, best = (10 ** (gains(each, np.ones(1), *band) / 20) for each in (taps, optimum))
                    self.assertAlmostEqual(np.ptp(found) / np.ptp(best), 1, delta=0.02)

    def test_delays(self):
        def check(request, output, name, row):
            pass_edge = request[0]
            if name == FIR:
                at, largest = [row["order"] / 2 / RATE] * 2
            else:
                # Of sections, each of which has a delay of its own: a polynomial of a high order with an
                # edge at 5 Hz is ill-conditioned around 0 Hz.
                frequencies = np.append(np.linspace(0, pass_edge, 4001), min(10, pass_edge / 2))
                sections = exact_filter(name, int(row["order"]), request)
                total = sum(signal.group_delay((each[:3], each[3:]), frequencies, fs=RATE)[1]
                            for each in sections) / RATE
                at, largest = total[-1], total[:-1].max()
            # Two decimals, and a thousandth for coefficients that are 0.01 dB off.
            self.assertAlmostEqual(row["delay"], 1e3 * at, delta=0.0051 + 1e-3 * 1e3 * at)
            self.assertAlmostEqual(row["largest_delay"], 1e3 * largest, delta=0.0051 + 1e-3 * 1e3 * largest)
            self.assertTrue(0 < row["time"] < 60_000)

        self.check_each(check)

    def test_estimated_order_of_the_equiripple_filter(self):
        for request, output, table in self.results:
            with self.subTest(request=request):
                estimate, verdict = re.search(r"equiripple FIR: order (\d+) as estimated, mask (.*)$", table.text,
                                              re.MULTILINE).groups()
                in_use = re.search(r"order (\d+) in use, asked for (\d+) % of", table.text)
                order = table.rows[FIR]["order"]
                self.assertEqual(verdict == "met", in_use is None)
                if in_use is None:
                    self.assertEqual(int(estimate), order)
                else:
                    self.assertEqual(int(in_use[1]), order)
                    self.assertGreaterEqual(order, int(estimate))
                    self.assertTrue(10 <= int(in_use[2]) < 100)
                self.assertRegex(table.text, "Bessel: +left out; the order estimated is 1 ")

    def test_files(self):
        request, output, table = self.results[0]
        self.assertEqual(sorted(path.name for path in output.iterdir()),
                         sorted([f"{file}.csv" for file in FILES.values()]
                                + ["delays.csv", "filtered.csv", "magnitudes.csv", "requirements.csv"]))
        written = read_columns(output / "requirements.csv").ravel()
        np.testing.assert_array_equal(written, [RATE, *request, *(row["order"] for row in table.rows.values())])

        times, before, *filtered = read_columns(output / "filtered.csv")
        np.testing.assert_array_equal([times, before], read_columns(RECORDING))
        frequencies, *magnitudes = read_columns(output / "magnitudes.csv")
        self.assertEqual((frequencies[0], frequencies[-1]), (0, RATE / 2))
        delay_frequencies, *delays = read_columns(output / "delays.csv")
        self.assertTrue(request[1] - 0.1 < delay_frequencies[-1] <= request[1])
        for name, decibels, delay, samples in zip(FILES, magnitudes, delays, filtered, strict=True):
            with self.subTest(name):
                b, a = coefficients(output, name)
                expected = abs(signal.freqz(b, a, worN=frequencies, fs=RATE)[1])
                np.testing.assert_allclose(10 ** (decibels / 20), expected, rtol=0, atol=1e-9)
                if name != FIR:
                    expected = signal.group_delay((b, a), delay_frequencies, fs=RATE)[1] / RATE
                    np.testing.assert_allclose(delay, 1e3 * expected, rtol=1e-6)
                # Rounding is some 2 N + 1 roundoffs of the sums of magnitudes in a step of the recursion
                # (Higham 2002), in either program, and goes through 1 / A.
                expected = signal.lfilter(b, a, before)
                impulse = np.zeros(30000)
                impulse[0] = 1
                ringing = abs(signal.lfilter([1], a, impulse)).sum()
                magnitude = abs(b).sum() * abs(before).max() + abs(a).sum() * abs(expected).max()
                tolerance = 2 * (2 * len(b) + 1) * UNIT_ROUNDOFF * magnitude * ringing
                self.assertLess(tolerance, 1e-6)
                np.testing.assert_allclose(samples, expected, rtol=0, atol=tolerance)

    @unittest.skipUnless(shutil.which("gnuplot"), "gnuplot is not installed")
    def test_picture_is_drawn_without_a_word(self):
        for request, output, _ in self.results[:3]:
            with self.subTest(request=request), tempfile.TemporaryDirectory() as folder:
                picture = pathlib.Path(folder) / "picture.png"
                script = EXAMPLES / "filter_families" / "plot_families.gp"
                drawn = subprocess.run(["gnuplot", "-c", script, output, picture], capture_output=True,
                                       text=True, timeout=300)
                self.assertEqual((drawn.returncode, drawn.stdout + drawn.stderr), (0, ""))
                self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")


class BadRequests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.output = self.folder / "output"

    def assert_refused(self, result, *words):
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertEqual(result.stdout, "")
        for word in words:
            self.assertIn(str(word), result.stderr)
        written = list(self.output.rglob("*")) if self.output.is_dir() else []
        self.assertEqual([path for path in written if path.is_file()], [])

    def test_impossible_requests(self):
        for request, words in (
            ((0, 100, 0.1, 40), "the pass edge has to lie between 0 Hz and half"),
            ((-1, 100, 0.1, 40), "the pass edge has to lie between 0 Hz and half"),
            ((180, 190, 0.1, 40), "the pass edge has to lie between 0 Hz and half"),
            (("nan", 100, 0.1, 40), "the pass edge has to lie between 0 Hz and half"),
            ((70, 0, 0.1, 40), "the stop edge has to lie between 0 Hz and half"),
            ((70, 180, 0.1, 40), "the stop edge has to lie between 0 Hz and half"),
            ((70, "inf", 0.1, 40), "the stop edge has to lie between 0 Hz and half"),
            ((70, "nan", 0.1, 40), "the stop edge has to lie between 0 Hz and half"),
            ((100, 70, 0.1, 40), "above its pass edge"),
            ((70, 70, 0.1, 40), "above its pass edge"),
            ((70, 100, 0, 40), "the ripple has to be above 0 dB"),
            ((70, 100, -0.1, 40), "the ripple has to be above 0 dB"),
            ((70, 100, "nan", 40), "the ripple has to be above 0 dB"),
            ((70, 100, 40, 40), "the attenuation has to be above the ripple"),
            ((70, 100, 3, 1), "the attenuation has to be above the ripple"),
            ((70, 100, 0.1, -40), "the attenuation has to be above the ripple"),
            ((70, 100, 0.1, "inf"), "the attenuation has to be above the ripple"),
            ((70, 100, 0.1, "nan"), "the attenuation has to be above the ripple"),
            ((0.3, 1, 0.1, 40), "the pass edge has to be at least a thousandth"),
            ((70, 70.3, 0.1, 40), "at least a thousandth of the sampling rate apart"),
            ((70, "high", 0.1, 40), "--stop-edge"),
        ):
            with self.subTest(request=request):
                self.assert_refused(run_request(self.output, request), words)

    def test_orders_beyond_what_coefficients_hold(self):
        # One order above the limit, and one far above.
        for request in ((70, 84.4, 0.1, 40), (70, 71, 0.1, 80)):
            order = signal.buttord(*request, fs=RATE)[0]
            with self.subTest(request=request, order=order):
                self.assertGreater(order, 25)
                self.assert_refused(run_request(self.output, request),
                                    f"the Butterworth filter would need order {order}", "none above 25")

    def test_a_design_that_is_of_no_use(self):
        # Order 10 at a 360th of the Nyquist frequency.
        self.assert_refused(run_request(self.output, (0.5, 1, 0.1, 40)), "the Butterworth design of order 10",
                            "is of no use")

    def test_other_rates(self):
        for rate in ("0", "-360", "nan", "inf"):
            with self.subTest(rate=rate):
                self.assert_refused(run(RECORDING, self.output, "--rate", rate), "rate")
        self.assert_refused(run(RECORDING, self.output, "--rate", "250"), RECORDING, "line 4", "rate")

    def test_missing_recording(self):
        missing = self.folder / "missing.csv"
        self.assert_refused(run(missing, self.output), missing, "No such file")

    def test_help(self):
        result = run("--help")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for word in ("INPUT.csv", "OUTPUT_DIR", "--rate", "--pass-edge", "--stop-edge", "--ripple", "--attenuation"):
            self.assertIn(word, result.stdout)

    def test_unknown_option_and_missing_arguments(self):
        self.assert_refused(run(RECORDING, self.output, "--riple", "1"), "--riple")
        self.assert_refused(run(), "INPUT.csv")
        self.assert_refused(run(RECORDING), "OUTPUT_DIR")

    def test_full_disk(self):
        def allow_small_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))
            signals.signal(signals.SIGXFSZ, signals.SIG_IGN)

        result = run(RECORDING, self.output, preexec_fn=allow_small_files)
        self.assert_refused(result, self.output / "magnitudes.csv", "File too large")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__.strip())
    HOST = sys.argv.pop(1)
    unittest.main()
