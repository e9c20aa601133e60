"""Runs the built host ecg_cleanup on the recording and on bad input, and checks what it says and writes
against NumPy and SciPy.

usage: test_ecg_cleanup.py ECG_CLEANUP [unittest arguments]
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
import warnings

import numpy as np
from scipy import signal

EXAMPLES = pathlib.Path(__file__).resolve().parent
RECORDING = EXAMPLES / "data" / "mitdb_208_mlii_60s.csv"
HOST = None  # path of the host, from the command line

RATE = 360
UNIT_ROUNDOFF = 2.0**-53
HIGH_PASS = signal.firwin(2376 + 1, 0.67, window="hamming", pass_zero=False, fs=RATE)
BAND_STOP = signal.firwin(476 + 1, [58, 62], window="hamming", pass_zero=True, fs=RATE)
MAINS_BAND = (59.5, 60.5)
BASELINE_BAND = (0, 0.5)


def run(*arguments, **options):
    command = [HOST, *map(str, arguments)]
    return subprocess.run(command, capture_output=True, text=True, timeout=300, **options)


def read_columns(path):
    return np.loadtxt(path, delimiter=",", skiprows=1, unpack=True)


def continued(samples, count):
    """The signal with its reflection in both end points."""
    start = 2 * samples[0] - samples[count:0:-1]
    end = 2 * samples[-1] - samples[-2 : -count - 2 : -1]
    return np.concatenate([start, samples, end])


def cleaned_by_scipy(samples):
    delay = (len(HIGH_PASS) + len(BAND_STOP) - 2) // 2
    filtered = signal.lfilter(BAND_STOP, 1, signal.lfilter(HIGH_PASS, 1, continued(samples, delay)))
    return filtered[2 * delay :]


def density(samples):
    """Welch's estimate as the host states it: Hann segments of 8192 samples, half overlapping."""
    return signal.welch(samples - samples.mean(), RATE, "hann", nperseg=8192, detrend=False)


def decibels(samples, band):
    frequencies, densities = density(samples)
    inside = (frequencies >= band[0]) & (frequencies <= band[1])
    return 10 * np.log10(densities[inside].sum() * frequencies[1])


def largest_power_gain(frequencies):
    """Of both filters, over each frequency and the two bins beside it that a Hann main lobe reaches."""
    margin = np.linspace(-2, 2, 41) * RATE / 8192
    surroundings = abs(frequencies[:, np.newaxis] + margin)
    gain = np.ones(surroundings.size)
    for taps in (HIGH_PASS, BAND_STOP):
        gain *= abs(signal.freqz(taps, worN=surroundings.ravel(), fs=RATE)[1]) ** 2
    return gain.reshape(surroundings.shape).max(axis=1)


def least_reduction(samples, band):
    """Decibels by which the filters bring down the power in a band, however it lies within the bins."""
    frequencies, densities = density(samples)
    inside = (frequencies >= band[0]) & (frequencies <= band[1])
    left = (densities[inside] * largest_power_gain(frequencies[inside])).sum()
    return 10 * np.log10(densities[inside].sum() / left)


class RealRecording(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        # A blank in a path is an ordinary character.
        cls.output = pathlib.Path(cls.folder.name) / "new folder" / "results"
        cls.result = run(RECORDING, cls.output)
        if cls.result.returncode != 0:
            raise AssertionError(cls.result.stderr)
        cls.times, cls.before, cls.after = read_columns(cls.output / "cleaned.csv")
        cls.reference = cleaned_by_scipy(cls.before)

    def printed(self, line, count):
        """The numbers that the host printed after the given words."""
        match = re.search(rf"^{re.escape(line)} (.*)$", self.result.stdout, re.MULTILINE)
        self.assertIsNotNone(match, f"'{line}' not in\n{self.result.stdout}")
        numbers = [float(number) for number in re.findall(r"-?\d+(?:\.\d+)?", match.group(1))]
        self.assertEqual(len(numbers), count, match.group(0))
        return numbers

    def test_the_shipped_file_is_the_published_recording(self):
        try:
            from scipy.misc import electrocardiogram
        except ImportError:
            self.skipTest("this SciPy does not carry the recording")
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", DeprecationWarning)
            published = electrocardiogram()
        np.testing.assert_array_equal(read_columns(RECORDING)[1], published[: 60 * RATE])

    def test_nothing_is_lost(self):
        times, voltages = read_columns(RECORDING)
        np.testing.assert_array_equal(self.times, times)
        np.testing.assert_array_equal(self.before, voltages)
        self.assertEqual(self.after.shape, voltages.shape)
        self.assertEqual(self.printed("recording", 3), [21600, 60, 360])
        written = sorted(path.name for path in self.output.iterdir())
        self.assertEqual(written, ["beats.csv", "cleaned.csv", "responses.csv", "spectrum.csv"])

    def test_output_equals_scipy(self):
        # A sum of N products is off by at most N u times the sum of their magnitudes (Higham 2002), in
        # either program. The two designs round differently too: the argument of a sine, up to pi N / 2, by
        # u times itself, which the division by pi t turns into some u, and likewise the window; 8 u a tap
        # covers these, each tap being at most 1. So each filter adds N (2 |h|_1 + 8) u times the
        # largest sample, and the band-stop passes on what the high-pass adds.
        largest = 3 * abs(self.before).max()  # of the signal with its reflections
        gains = [abs(taps).sum() for taps in (HIGH_PASS, BAND_STOP)]
        errors = [
            len(taps) * (2 * gain + 8) * UNIT_ROUNDOFF for taps, gain in zip((HIGH_PASS, BAND_STOP), gains)
        ]
        tolerance = largest * (errors[0] * gains[1] + errors[1] * gains[0])
        self.assertLess(tolerance, 1e-9)
        np.testing.assert_allclose(self.after, self.reference, rtol=0, atol=tolerance)

    def test_mains_and_baseline_are_gone(self):
        for words, band in (
            ("mains, 59.5 to 60.5 Hz", MAINS_BAND),
            ("baseline, below 0.5 Hz", BASELINE_BAND),
        ):
            with self.subTest(band=band):
                before, after = decibels(self.before, band), decibels(self.reference, band)
                printed = self.printed(words, 3)
                # Printed with one decimal.
                np.testing.assert_allclose(printed, [before, after, after - before], rtol=0, atol=0.051)
                least = least_reduction(self.before, band)
                self.assertGreater(least, 30)
                self.assertLessEqual(printed[2], -least + 0.051)

    def test_everything_else_stays(self):
        # The ripple of a Hamming design, 0.0022 of the amplitude, is 0.02 dB, and there are two filters.
        for band in ((1, 57), (63, 180)):
            with self.subTest(band=band):
                change = decibels(self.after, band) - decibels(self.before, band)
                self.assertLess(abs(change), 0.04)

    def test_spectrum_equals_scipy(self):
        frequencies, *written = read_columns(self.output / "spectrum.csv")
        for densities, samples in zip(written, (self.before, self.after)):
            expected_frequencies, expected = density(samples)
            np.testing.assert_allclose(frequencies, expected_frequencies, rtol=1e-15)
            # A transform of n points is off by some log2 n roundoffs of the norm of the spectrum (Higham
            # 2002); 10 of them for each stage leave room for window, mean and both programs.
            tolerance = 10 * np.log2(8192) * UNIT_ROUNDOFF * np.sqrt(expected.sum())
            np.testing.assert_allclose(np.sqrt(densities), np.sqrt(expected), rtol=0, atol=tolerance)

    def test_responses_equal_scipy(self):
        frequencies, *written = read_columns(self.output / "responses.csv")
        for decibels_written, taps in zip(written, (HIGH_PASS, BAND_STOP)):
            expected = abs(signal.freqz(taps, worN=frequencies, fs=RATE)[1])
            # Of the taps 8 u each as above, of a sum in SciPy N u |h|_1.
            tolerance = len(taps) * (8 + 2 * abs(taps).sum()) * UNIT_ROUNDOFF
            np.testing.assert_allclose(10 ** (decibels_written / 20), expected, rtol=0, atol=tolerance)

    def test_heart_rate_is_plausible_and_equals_another_count(self):
        # Half of an ordinary beat's height, and no two beats within a quarter of a second: another
        # principle than the host's, which looks at slopes.
        ordinary = np.median([part.max() for part in np.split(self.reference, 30)])
        peaks, _ = signal.find_peaks(self.reference, height=0.5 * ordinary, distance=RATE // 4)
        rate = 60 * RATE / np.median(np.diff(peaks))

        self.assertEqual(self.printed("beats found", 2), [len(peaks), len(peaks)])
        printed = self.printed("beats a minute, median", 2)
        # One sample's difference in the median interval is half a beat a minute.
        np.testing.assert_allclose(printed, [rate, rate], rtol=0, atol=0.7)
        self.assertTrue(90 < printed[0] < 130)

        times, voltages = read_columns(self.output / "beats.csv")
        self.assertEqual(len(times), len(peaks))
        places = np.rint(times * RATE).astype(int)
        np.testing.assert_array_equal(voltages, self.after[places])
        # The same beats: a QRS complex is 0.1 s long.
        self.assertLess(abs(places - peaks).max(), 0.1 * RATE)

    def test_windows_line_ends_and_a_missing_last_one_change_nothing(self):
        text = RECORDING.read_bytes()
        for name, changed in (("crlf", text.replace(b"\n", b"\r\n")), ("no end", text.rstrip(b"\n"))):
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                path = pathlib.Path(folder) / "changed.csv"
                path.write_bytes(changed)
                self.assertEqual(run(path, folder).returncode, 0)
                self.assertEqual((pathlib.Path(folder) / "cleaned.csv").read_bytes(),
                                 (self.output / "cleaned.csv").read_bytes())

    @unittest.skipUnless(shutil.which("gnuplot"), "gnuplot is not installed")
    def test_picture_is_drawn_without_a_word(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = pathlib.Path(folder) / "picture.png"
            script = EXAMPLES / "ecg_cleanup" / "plot.gp"
            drawn = subprocess.run(["gnuplot", "-c", script, self.output, picture], capture_output=True,
                                   text=True, timeout=300)
            self.assertEqual((drawn.returncode, drawn.stdout + drawn.stderr), (0, ""))
            self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")


class BadInput(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.input = self.folder / "input.csv"
        self.output = self.folder / "output"

    def assert_refused(self, result, *words):
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertEqual(result.stdout, "")
        for word in words:
            self.assertIn(str(word), result.stderr)
        written = list(self.output.rglob("*")) if self.output.is_dir() else []
        self.assertEqual([path for path in written if path.is_file()], [])

    def refuse(self, content, *words):
        self.input.write_bytes(content)
        self.assert_refused(run(self.input, self.output), self.input, *words)

    def test_missing_file(self):
        self.assert_refused(run(self.input, self.output), self.input, "No such file")

    def test_folder_instead_of_file(self):
        self.assert_refused(run(self.folder, self.output), self.folder, "directory")

    def test_empty_file(self):
        self.refuse(b"", "empty")

    def test_header_only(self):
        self.refuse(b"time_s,ecg_mV\n", "line 1", "no samples")

    def test_one_column_header(self):
        self.refuse(b"ecg_mV\n0.5\n", "line 1", "header")

    def test_no_header(self):
        self.refuse(RECORDING.read_bytes().split(b"\n", 1)[1], "line 1", "header")

    def test_wrong_lines(self):
        lines = RECORDING.read_bytes().splitlines(keepends=True)
        self.assertEqual(lines[99], b"0.27222,-0.115\n")
        for wrong, words in (
            (b"0.27222\n", "two columns"),
            (b"\n", "two columns"),
            (b"0.27222,\n", "''"),
            (b"0.27222,high\n", "'high'"),
            (b"now,-0.115\n", "'now'"),
            (b"0.27222,-0.115mV\n", "'-0.115mV'"),
            (b"0.27222,-0.115\0\n", "'-0.115?' is not a number"),
            (b"0.27222,0x10\n", "'0x10'"),
            (b"0.27222,nan\n", "'nan'"),
            (b"0.27222,inf\n", "'inf'"),
            (b"-inf,-0.115\n", "'-inf'"),
            (b"0.27222,1e999\n", "'1e999'"),
            (b"0.27222,-1.1e9\n", "'-1.1e9'"),
            (b"0.28222,-0.115\n", "0.282220 s where 0.272222 s is due"),
        ):
            with self.subTest(wrong=wrong):
                self.refuse(b"".join(lines[:99] + [wrong] + lines[100:]), "line 100", words)

    def test_wrong_rate(self):
        self.assert_refused(run(RECORDING, self.output, "--rate", "250"), RECORDING, "line 4", "rate")

    def test_missing_samples(self):
        lines = RECORDING.read_bytes().splitlines(keepends=True)
        self.refuse(b"".join(lines[:5000] + lines[5010:]), "line 5001", "samples are missing")

    def test_too_short_by_one_sample(self):
        lines = RECORDING.read_bytes().splitlines(keepends=True)
        self.refuse(b"".join(lines[: 1 + 2376]), "too short", "2376", "2377")
        self.input.write_bytes(b"".join(lines[: 1 + 2377]))
        self.assertEqual(run(self.input, self.output).returncode, 0)
        self.assertEqual(read_columns(self.output / "cleaned.csv").shape, (3, 2377))

    def test_settings_out_of_range(self):
        for option, value in (
            ("--mains", "1"), ("--mains", "179"), ("--mains", "nan"), ("--mains", "sixty"),
            ("--rate", "0"), ("--rate", "-360"), ("--rate", "inf"), ("--rate", "nan"), ("--rate", "10001"), ("--mians", "60"),
        ):
            with self.subTest(option=option, value=value):
                self.assert_refused(run(RECORDING, self.output, option, value), option.strip("-"))

    def test_older_results_survive_bad_input(self):
        self.output.mkdir()
        older = self.output / "cleaned.csv"
        older.write_text("older\n")
        self.assertEqual(run(self.input, self.output).returncode, 1)
        self.assertEqual(older.read_text(), "older\n")

    def test_output_folder_is_a_file(self):
        self.output.write_text("a file\n")
        self.assert_refused(run(RECORDING, self.output), self.output)
        self.assertEqual(self.output.read_text(), "a file\n")

    def test_output_file_is_a_folder(self):
        (self.output / "spectrum.csv").mkdir(parents=True)
        self.assert_refused(run(RECORDING, self.output), self.output / "spectrum.csv", "is a folder")

    def test_full_disk(self):
        def allow_small_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))
            signals.signal(signals.SIGXFSZ, signals.SIG_IGN)

        result = run(RECORDING, self.output, preexec_fn=allow_small_files)
        self.assert_refused(result, self.output / "cleaned.csv", "File too large")

    def test_death_while_writing_leaves_no_result(self):
        def die_when_files_grow():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))

        result = run(RECORDING, self.output, preexec_fn=die_when_files_grow)
        self.assertEqual(result.returncode, -signals.SIGXFSZ)
        self.assertEqual(list(self.output.glob("*.csv")), [])


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__.strip())
    HOST = sys.argv.pop(1)
    unittest.main()
