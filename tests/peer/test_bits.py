"""The built library against the algorithms written out step by step: the same bits.

The tolerance is none, everywhere. Inputs are random with fixed seeds.
"""
import os
import signal as signals
import subprocess
import sys

import numpy as np
import pytest

import literal
import trelvanix_library as trelvanix
from comparing import assert_same_bits

SPECIALS = np.array(
    [0.0, -0.0, 5e-324, -5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, np.inf, -np.inf, np.nan]
)


def normal(rng, count):
    return rng.standard_normal(count)


def wide(rng, count):
    """Every binary exponent alike, so that sums overflow and products underflow."""
    return np.ldexp(rng.uniform(1.0, 2.0, count), rng.integers(-1074, 1024, count)) * rng.choice(
        [-1.0, 1.0], count
    )


def moderate(rng, count):
    """Exponents far apart, but nothing overflows: every rounding is seen."""
    return np.ldexp(rng.uniform(-2.0, 2.0, count), rng.integers(-60, 61, count))


def zeros(rng, count):
    """Signed zeros with few ones among them: signs of zero sums and products."""
    return rng.choice([0.0, -0.0, 0.0, -0.0, 1.0, -1.0], count)


def denormal(rng, count):
    return rng.integers(-(1 << 20), 1 << 20, count) * 5e-324


def special(rng, count):
    values = rng.standard_normal(count)
    chosen = rng.random(count) < 0.08
    values[chosen] = rng.choice(SPECIALS, np.count_nonzero(chosen))
    return values


def any_bits(rng, count):
    return rng.integers(0, 1 << 64, count, dtype=np.uint64).view(np.float64)


KINDS = (normal, wide, moderate, zeros, denormal, special, any_bits)
FINITE = (normal, moderate, zeros, denormal)


def mixed(rng, count):
    return KINDS[rng.integers(len(KINDS))](rng, count)


# ---- Fourier transforms ------------------------------------------------------------------------


def interleaved(real, imag):
    values = np.empty(2 * len(real))
    values[0::2], values[1::2] = real, imag
    return values


def check_transforms(values, transform):
    real, imag = values[0::2].tolist(), values[1::2].tolist()
    inputs = {"n": len(real), "interleaved": values}
    forward = interleaved(*transform(real, imag))
    assert_same_bits("FFT", inputs, forward, trelvanix.FFT(values, ignored=len(real)))
    assert_same_bits("DFT", inputs, forward, trelvanix.DFT(values, ignored=-1))
    inverse = interleaved(*literal.ifft(real, imag, transform))
    assert_same_bits("IFFT", inputs, inverse, trelvanix.IFFT(values, ignored=7))


@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.__name__)
def test_transforms_have_the_bits_of_the_plain_loops(kind):
    rng = np.random.default_rng(101)
    for n in range(0, 131):
        # Signs of zeros outlive few stages: the short lengths are drawn many times.
        for _ in range(40 if n <= 8 else 1):
            check_transforms(kind(rng, 2 * n), literal.fft)


@pytest.mark.parametrize("n", [200, 255, 256, 257, 500, 511, 512, 513, 1000, 1023, 1024, 1025, 2048, 3000])
def test_transforms_of_medium_lengths_have_the_bits_of_the_plain_loops(n):
    rng = np.random.default_rng(n)
    for kind in (normal, wide, zeros, special):
        check_transforms(kind(rng, 2 * n), literal.fft_by_arrays)


@pytest.mark.parametrize(
    "n", [4096, 5000, 8192, 1 << 14, 20000, 1 << 15, 1 << 16, (1 << 16) + 3, 1 << 17, 1 << 18, 300000]
)
def test_long_transforms_have_the_bits_of_the_plain_loops(n):
    rng = np.random.default_rng(n)
    check_transforms(normal(rng, 2 * n), literal.fft_by_arrays)
    check_transforms(special(rng, 2 * n) if n < 10000 else moderate(rng, 2 * n), literal.fft_by_arrays)


def test_the_array_form_of_the_plain_loops_has_their_bits():
    """Ground under the two tests above: fft_by_arrays is fft."""
    rng = np.random.default_rng(102)
    for n in [*range(1, 40), 64, 100, 127, 128, 129, 256, 300]:
        for kind in KINDS:
            values = kind(rng, 2 * n)
            real, imag = values[0::2].tolist(), values[1::2].tolist()
            assert_same_bits(
                "fft_by_arrays",
                {"n": n, "interleaved": values},
                interleaved(*literal.fft(real, imag)),
                interleaved(*literal.fft_by_arrays(real, imag)),
            )


@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.__name__)
def test_fftext_has_the_bits_of_the_plain_loops(kind):
    rng = np.random.default_rng(103)
    for n in range(0, 131):
        counts = {0, 1, n // 3, n - 1, n, n + 1, n + 50, -1, -(2**31)}
        for xCount in sorted(c for c in counts if n > 0 or c == 0):
            # A negative count reads n samples; nothing beyond min(xCount, n) is there to be read.
            x = kind(rng, n if xCount < 0 else min(xCount, n))
            real, imag = literal.fft_of_real(x.tolist(), xCount, n)
            outReal, outImag = trelvanix.FFText(x, xCount, n)
            inputs = {"xCount": xCount, "n": n, "x": x}
            assert_same_bits("FFText, real parts", inputs, real, outReal)
            assert_same_bits("FFText, imaginary parts", inputs, imag, outImag)


@pytest.mark.parametrize("n, xCount", [(1024, 1000), (4096, 5000), (3000, 2500), (1 << 16, 40000)])
def test_long_fftext_has_the_bits_of_the_plain_loops(n, xCount):
    x = normal(np.random.default_rng(n), xCount)
    padded = np.zeros(n)
    padded[: min(xCount, n)] = x[:n]
    real, imag = literal.fft_by_arrays(padded, np.zeros(n))
    outReal, outImag = trelvanix.FFText(x, xCount, n)
    inputs = {"xCount": xCount, "n": n, "x": x}
    assert_same_bits("FFText, real parts", inputs, real, outReal)
    assert_same_bits("FFText, imaginary parts", inputs, imag, outImag)


# ---- Filtering ---------------------------------------------------------------------------------


def check_fir(x, h):
    expected = literal.fir_filter(x.tolist(), h.tolist())
    inputs = {"signal": x, "h": h}
    assert_same_bits("FirFilterToSignal", inputs, expected, trelvanix.FirFilterToSignal(x, h))
    assert_same_bits("Filter without a", inputs, expected, trelvanix.Filter(x, h, None))


def check_iir(x, b, a):
    expected = literal.iir_filter(x.tolist(), b.tolist(), a.tolist())
    inputs = {"signal": x, "b": b, "a": a}
    assert_same_bits("IirFilterToSignal", inputs, expected, trelvanix.IirFilterToSignal(x, b, a))
    assert_same_bits("Filter with a", inputs, expected, trelvanix.Filter(x, b, a))


def feedback(rng, count):
    """A denominator whose recursion neither dies out nor overflows soon; a[0] is anything at all."""
    a = rng.uniform(-1.0, 1.0, count) * 1.2 / max(1, count - 1) ** 0.5
    a[:1] = rng.choice([np.nan, np.inf, 0.0, 1.0, -3.5e200])
    return a


@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.__name__)
def test_fir_filter_has_the_bits_of_the_circular_buffer(kind):
    rng = np.random.default_rng(104)
    for length in range(41):
        for taps in range(21):
            # The same kind in both, and each beside ordinary numbers.
            for x, h in ((kind, kind), (kind, normal), (normal, kind)):
                check_fir(x(rng, length), h(rng, taps))


def test_longer_fir_filters_have_the_bits_of_the_circular_buffer():
    rng = np.random.default_rng(105)
    for taps in [*range(21, 70, 3), 64, 65, 100, 127, 128, 129, 200, 255, 256, 257, 300]:
        for length in (taps - 1, taps, taps + 1, int(rng.integers(200, 700))):
            for x, h in ((normal, normal), (moderate, normal), (special, normal), (normal, mixed)):
                check_fir(x(rng, length), h(rng, taps))


@pytest.mark.parametrize("kind", KINDS, ids=lambda kind: kind.__name__)
def test_iir_filter_has_the_bits_of_the_shifted_histories(kind):
    rng = np.random.default_rng(106)
    for length in range(41):
        for count in range(21):
            for x, b, a in ((kind, normal, feedback), (normal, kind, feedback), (normal, normal, kind)):
                check_iir(x(rng, length), b(rng, count), a(rng, count))


def test_longer_iir_filters_have_the_bits_of_the_shifted_histories():
    rng = np.random.default_rng(107)
    for count in [1, 2, 3, 4, 5, 7, 9, 12, 16, 17, 18, 19, 24, 33, 64, 65]:
        for length in (count, count + 1, 255, 256, 257, 700):
            for x in (normal, moderate, special):
                check_iir(x(rng, length), normal(rng, count), feedback(rng, count))


# ---- Windowed design ---------------------------------------------------------------------------

JUST_BELOW_ONE = np.nextafter(1.0, 0.0)


def check_design(order, filterType, windowType, wc1, wc2):
    inputs = {"order": order, "filterType": filterType, "windowType": windowType, "wc1": wc1, "wc2": wc2}
    assert_same_bits(
        "CreateFirByWindow",
        inputs,
        literal.create_fir_by_window(order, filterType, windowType, wc1, wc2),
        trelvanix.CreateFirByWindow(order, filterType, windowType, wc1, wc2),
    )


@pytest.mark.parametrize("windowType", range(15))
def test_designs_have_the_bits_of_the_plain_steps(windowType):
    """Orders 1 .. 60, all filter types, edges in both orders."""
    rng = np.random.default_rng(108 + windowType)
    for order in range(1, 61):
        for filterType in range(4):
            lower, upper = sorted(rng.uniform(0.001, 0.999, 2).tolist())
            check_design(order, filterType, windowType, lower, upper)
            check_design(order, filterType, windowType, upper, lower)


@pytest.mark.parametrize("windowType", range(15))
def test_longer_designs_have_the_bits_of_the_plain_steps(windowType):
    rng = np.random.default_rng(130 + windowType)
    for order in rng.choice(np.arange(61, 301), 16, replace=False).tolist():
        for filterType in range(4):
            check_design(order, filterType, windowType, *rng.uniform(0.001, 0.999, 2).tolist())


@pytest.mark.parametrize("windowType", range(15))
def test_designs_with_extreme_edges_have_the_bits_of_the_plain_steps(windowType):
    edges = (5e-324, 1e-300, 2.2250738585072014e-308, 1e-17, 0.3, 0.5, JUST_BELOW_ONE, np.nan)
    for order in (1, 2, 3, 4, 7, 16, 31):
        for filterType in range(4):
            for wc1 in edges:
                for wc2 in edges:
                    check_design(order, filterType, windowType, wc1, wc2)


def test_highpass_takes_any_second_edge():
    for wc2 in (-1.0, 0.0, 1.0, 5.0, np.inf, -np.inf, np.nan, 1.7976931348623157e308):
        for order in (1, 8, 9):
            check_design(order, 1, 2, 0.25, wc2)


# ---- The boundary itself -----------------------------------------------------------------------


def test_null_is_released_with_answer_zero():
    assert trelvanix.ReleaseNull() == (0, 0)


def test_an_exception_ends_a_host_that_cannot_catch_it():
    """What hosts without C++ exceptions have to expect, and why this module makes valid calls only."""
    call = "import trelvanix_library as t; t.CreateFirByWindow(0, 0, 0, 0.5, 0.5); print('returned')"
    host = subprocess.run(
        [sys.executable, "-c", call],
        cwd=os.path.dirname(os.path.abspath(__file__)),
        capture_output=True,
        text=True,
        check=False,
    )
    assert host.returncode == -signals.SIGABRT, f"expected SIGABRT, got {host.returncode}: {host.stderr}"
    assert "Order should be '>=1'" in host.stderr, f"got {host.stderr!r}"
    assert "returned" not in host.stdout
