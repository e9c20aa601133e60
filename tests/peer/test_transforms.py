"""Transforms against NumPy's pocketfft, a direct sum at 50 digits, Parseval and linearity.

Tolerance. With t = log2 n stages, weights wrong by at most mu, and unit roundoff u = 2^-53, the
computed transform y' of a radix-2 algorithm satisfies (Higham, Accuracy and Stability of Numerical
Algorithms, 2nd edition, theorem 24.2; Gentleman & Sande 1966 have the same growth)

    |y' - y| <= t eta / (1 - t eta) |y|,    eta = mu + gamma_4 (sqrt 2 + mu),    gamma_4 = 4u / (1 - 4u)

in the Euclidean norm. The weights here: theta = (-k - k) pi / n carries the error of pi (0.4 u), a
product and a quotient, 2.4 u relative, hence less than 2.4 pi u = 7.6 u absolute; sine and cosine
come within one unit in the last place, at most u each as long as they are below 1, and add
sqrt 2 u. Together mu < 9 u.

A difference of two computed transforms may be twice that: NumPy's transform takes at most as many
stages (radix 4 where it can) with weights that are as good. A single element may hold the error of
the whole, so the norm is what is bounded.
"""
import math

import mpmath
import numpy as np
import pytest

import trelvanix_library as trelvanix
from comparing import assert_within

U = 2.0**-53
MU = 9.0 * U
ETA = MU + 4.0 * U / (1.0 - 4.0 * U) * (math.sqrt(2.0) + MU)

POWERS = [1 << t for t in range(19)]


def norm_bound(n):
    """Bound of the relative error of one computed transform of n elements."""
    t = n.bit_length() - 1
    return t * ETA / (1.0 - t * ETA)


def random_complex(seed, n):
    rng = np.random.default_rng(seed)
    return rng.standard_normal(n) + 1j * rng.standard_normal(n)


def forward(x):
    return trelvanix.FFT(x.view(np.float64)).view(np.complex128)


def inverse(x):
    return trelvanix.IFFT(x.view(np.float64)).view(np.complex128)


def assert_norm_within(call, inputs, expected, got, relative):
    """Relative error in the Euclidean norm; the worst element is shown beside it."""
    worst = int(np.argmax(np.abs(got - expected)))
    inputs = {**inputs, f"expected[{worst}]": expected[worst], f"got[{worst}]": got[worst]}
    error = np.linalg.norm(got - expected) / np.linalg.norm(expected)
    assert_within(f"{call}, relative error of the whole", inputs, 0.0, error, relative)


@pytest.mark.parametrize("n", POWERS)
def test_fft_agrees_with_numpy(n):
    x = random_complex(n, n)
    assert_norm_within("FFT", {"n": n, "x": x}, np.fft.fft(x), forward(x), 2.0 * norm_bound(n))


@pytest.mark.parametrize("n", POWERS)
def test_ifft_is_the_conjugate_of_the_inverse(n):
    x = random_complex(n + 1, n)
    # Scaling by a power of two rounds nothing, so the bound stays.
    expected = np.conj(np.fft.ifft(x))
    assert_norm_within("IFFT", {"n": n, "x": x}, expected, inverse(x), 2.0 * norm_bound(n))


@pytest.mark.parametrize("n", POWERS)
def test_ifft_of_fft_is_the_conjugate_of_the_signal(n):
    x = random_complex(n + 2, n)
    # Each of the two transforms contributes its bound once.
    bound = norm_bound(n)
    assert_norm_within("IFFT(FFT)", {"n": n}, np.conj(x), inverse(forward(x)), 2.0 * bound + bound**2)


@pytest.mark.parametrize("n", [1 << t for t in range(15)])
def test_fftext_pads_and_cuts_as_numpy_does(n):
    rng = np.random.default_rng(n + 3)
    for xCount in sorted({1, (n + 1) // 2, n - 1 or 1, n, n + 1, 3 * n}):
        x = rng.standard_normal(xCount)
        outReal, outImag = trelvanix.FFText(x, xCount, n)
        assert_norm_within(
            "FFText",
            {"xCount": xCount, "n": n, "x": x},
            np.fft.fft(x, n),
            outReal + 1j * outImag,
            2.0 * norm_bound(n),
        )


@pytest.mark.parametrize("n", [2, 4, 8, 16, 32, 64])
def test_fft_agrees_with_the_direct_sum_at_50_digits(n):
    x = random_complex(n + 4, n)
    with mpmath.workdps(50):
        weights = [mpmath.expjpi(mpmath.mpf(-2 * k) / n) for k in range(n)]
        exact = [mpmath.fsum(mpmath.mpc(x[j]) * weights[j * k % n] for j in range(n)) for k in range(n)]
    # Rounding the sums to doubles is one more u.
    expected = np.array([complex(value) for value in exact])
    assert_norm_within("FFT", {"n": n, "x": x}, expected, forward(x), norm_bound(n) + U)


@pytest.mark.parametrize("n", POWERS)
def test_parseval(n):
    x = random_complex(n + 5, n)

    def energy(values):
        # fsum adds without rounding; the squares are rounded once each.
        return math.fsum((values.view(np.float64) ** 2).tolist())

    ratio = energy(forward(x)) / (n * energy(x))
    bound = norm_bound(n)
    # (1 + bound)^2, two rounded energies of 2 u each, a product and a quotient.
    assert_within("|FFT(x)|^2 / (n |x|^2)", {"n": n, "x": x}, 1.0, ratio, 2.0 * bound + bound**2 + 6.0 * U)


@pytest.mark.parametrize("n", [2, 8, 64, 1024, 16384])
def test_linearity(n):
    rng = np.random.default_rng(n + 6)
    x, y = random_complex(n + 7, n), random_complex(n + 8, n)
    alpha, beta = rng.standard_normal(2)
    X, Y = forward(x), forward(y)
    together = forward(alpha * x + beta * y)
    apart = alpha * X + beta * Y
    # Three transforms with their bounds; the two combinations round each product and the sum, which
    # is at most 2 u of the parts, sqrt(n) being the factor from signal to spectrum in this norm.
    parts = math.sqrt(n) * (np.linalg.norm(alpha * x) + np.linalg.norm(beta * y))
    tolerance = (2.0 * norm_bound(n) + 4.0 * U) * 1.001 * parts
    error = np.linalg.norm(together - apart)
    assert_within(
        "|FFT(alpha x + beta y) - alpha FFT(x) - beta FFT(y)|",
        {"n": n, "alpha": alpha, "beta": beta, "x": x, "y": y},
        0.0,
        error,
        tolerance,
    )


def test_the_inverse_of_a_worked_spectrum_keeps_the_conjugated_sign():
    """By hand: i at index 1 has the spectrum i, 1, -i, -1, whose conjugated inverse has -i there."""
    x = np.array([0, 1j, 0, 0])
    spectrum = forward(x)
    # Values of modulus at most 1 and two stages: an element is off by no more than the norm is.
    tolerance = norm_bound(4) * 2.0
    assert_within("FFT", {"x": x}, np.array([1j, 1, -1j, -1]), spectrum, tolerance)
    assert_within("IFFT", {"x": spectrum}, np.array([0, -1j, 0, 0]), inverse(spectrum), tolerance)
