"""The report on results small enough to work out by hand. No test depends on a measured time."""
import json
import subprocess
import sys
from pathlib import Path

import pytest

REPORT = Path(__file__).with_name("report.py")


def entry(name, cpu_time, unit="ns", **more):
    return {"name": name, "run_name": name, "run_type": "iteration", "cpu_time": cpu_time, "time_unit": unit, **more}


def agreeing(name, cpu_time, **more):
    return entry(name, cpu_time, label="difference 2e-16, tolerance 1e-14", **more)


LIBRARY = [
    # Rows that took turns: the second size ended first.
    entry("FFT/2^8/Trelvanix", 3000.0, family_index=2),
    entry("FFT/2^4/Trelvanix", 150.0, family_index=0, heap_peak=512.0),
    entry("FFT/2^4/Trelvanix", 120.0, family_index=0, heap_peak=512.0),
    entry("FFT/2^4/Trelvanix", 180.0, family_index=0, heap_peak=512.0),
    agreeing("FFT/2^4/GSL radix-2", 100.0, family_index=1),
    agreeing("FFT/2^4/KissFFT", 0.4, unit="us", family_index=1),
    entry("FFT/2^8/plain form/repeats:3", 6000.0, family_index=3, label="same bits"),
    {"name": "FFT/2^8/plain form/repeats:3_mean", "run_type": "aggregate", "family_index": 3},
    entry("Limits/chain of dependent sums, sums/machine", 1.0, family_index=4, rate=1.25e9),
]
PYTHON = [agreeing("FFT/2^4/NumPy", 1200.0), agreeing("FFT/2^8/NumPy", 2500.0)]


def report(tmp_path, *runs):
    paths = [tmp_path / f"run{i}.json" for i in range(len(runs))]
    for path, entries in zip(paths, runs):
        path.write_text(json.dumps({"context": {"date": "today"}, "benchmarks": entries}))
    return subprocess.run([sys.executable, REPORT, *paths], capture_output=True, text=True, check=False)


def test_joins_both_runs(tmp_path):
    result = report(tmp_path, LIBRARY, PYTHON)
    assert result.returncode == 0, result.stderr
    lines = result.stdout.splitlines()
    # Minima and medians in microseconds, sizes in their order, ours and the plain form first.
    assert "| FFT | Trelvanix | plain form | GSL radix-2 | KissFFT | NumPy | heap, KiB |" in lines
    assert "| 2^4 | 0.12 (0.15) |  | 0.1 (0.1) | 0.4 (0.4) | 1.2 (1.2) | 0.5 |" in lines
    assert "| 2^8 | 3 (3) | 6 (6) |  |  | 2.5 (2.5) |  |" in lines
    assert "| 2^4 |  | 1.200 | 0.300 | 0.100 |" in lines
    assert "| 2^8 | 0.500 |  |  | 1.200 |" in lines
    assert "| chain of dependent sums | sums | 1.25 | 0.8 |" in lines


def test_compares_with_the_best_of_several(tmp_path):
    lines = report(tmp_path, LIBRARY, PYTHON).stdout.splitlines()
    assert "| FFT, 2^4 | best that makes its tables in the call: GSL radix-2 | 1.200 | 1.10 | not reached |" in lines
    assert "| FFT, 2^8 | best that makes its tables in the call: NumPy | 1.200 | 1.50 | reached |" in lines


@pytest.mark.parametrize(
    "wrong",
    [
        {"name": "FFT/2^8/KissFFT", "error_occurred": True, "error_message": "difference 1, tolerance 1e-14"},
        entry("FFT/2^8/KissFFT", 1.0),  # was never compared
    ],
)
def test_fails_without_agreement(tmp_path, wrong):
    result = report(tmp_path, LIBRARY, [*PYTHON, wrong])
    assert result.returncode == 1
    assert "FAILED FFT/2^8/KissFFT" in result.stderr
