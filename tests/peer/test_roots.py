"""Roots against roots with fifty digits, compared as sets.

Roots(c, n) stands for c[0] z^n + c[1] z^(n-1) + ... + c[n-1] z + c[0].

The tolerances are those of the eigenvalue problem behind it. The companion matrix C of the monic
polynomial has at a root z the right eigenvector x = (z^(n-1), ..., z, 1) and as left eigenvector y the
quotients of Horner's rule, y x = p'(z). The QR iteration gives the eigenvalues of some C + E with |E| a
small multiple of n epsilon |C| (Golub & Van Loan), the multiple being the few sweeps that each eigenvalue
takes; a simple root then moves by no more than |E| |x| |y| / |p'(z)|, and one of multiplicity m by the
m-th root of m! |E| |x| |y| / |the m-th derivative of p| (Wilkinson 1965).
"""

import mpmath
import numpy as np
import pytest
from scipy.optimize import linear_sum_assignment

import trelvanix_library as trelvanix

mpmath.mp.dps = 80  # the last thirty are for the cancellation near clustered roots
EPSILON = np.finfo(float).eps
SWEEPS = 4


def library_roots(c):
    values = trelvanix.Roots(list(c), len(c))
    assert len(values) == len(c)
    return np.array([complex(re, im) for re, im in values])


def polished_roots(c):
    """All roots with fifty digits: NumPy's, refined by Newton's iteration until nothing moves. That they
    are n different ones makes them complete."""
    coefficients = [mpmath.mpf(x) for x in c] + [mpmath.mpf(c[0])]
    derivative = [k * x for k, x in zip(range(len(c), 0, -1), coefficients)]
    roots = []
    for start in np.roots(list(c) + [c[0]]):
        z = mpmath.mpc(start)
        for _ in range(60):
            step = mpmath.polyval(coefficients, z) / mpmath.polyval(derivative, z)
            z -= step
            if abs(step) < mpmath.mpf(10) ** -50 * abs(z):
                break
        else:
            raise AssertionError(f"no convergence from {start}")
        roots.append(z)
    for i, z in enumerate(roots):
        assert all(abs(z - other) > mpmath.mpf(10) ** -20 for other in roots[:i])
    return np.array([complex(z) for z in roots])


def movement(c, z):
    """|E| |x| |y| at z, with |C| of the companion matrix."""
    n = len(c)
    monic = np.concatenate([c, [c[0]]]) / c[0]
    x = z ** np.arange(n)
    y = [1.0]
    for coefficient in monic[1:n]:
        y.append(y[-1] * z + coefficient)
    size = np.sqrt(np.sum(np.abs(monic[1:]) ** 2) + n - 1)
    return SWEEPS * n * EPSILON * size * np.linalg.norm(x) * np.linalg.norm(y)


def assert_same_sets(c, expected, tolerance):
    got = library_roots(c)
    assert np.all(np.isfinite(got)), f"Roots({list(c)}) gives {got}"
    distance = np.abs(got[:, None] - expected[None, :])
    ours, theirs = linear_sum_assignment(distance / tolerance[None, :])
    for i, k in zip(ours, theirs):
        assert distance[i, k] <= tolerance[k], (
            f"Roots({list(c)}): expected {expected[k]}, got {got[i]}, "
            f"difference {distance[i, k]:.3e}, tolerance {tolerance[k]:.3e}"
        )


def assert_simple_roots(c, expected=None):
    c = np.asarray(c, dtype=float)
    if expected is None:
        expected = polished_roots(c)
    derivative = np.arange(len(c), 0, -1) * c / c[0]
    tolerance = [movement(c, z) / abs(np.polyval(derivative, z)) for z in expected]
    # The expected root itself is rounded to doubles.
    assert_same_sets(c, expected, np.array(tolerance) + EPSILON * np.abs(expected))


@pytest.mark.parametrize("n", list(range(1, 33)) + [50, 64, 99, 100])
def test_roots_of_minus_one(n):
    expected = np.exp(1j * np.pi * (2 * np.arange(n) + 1) / n)
    assert_simple_roots([1.0] + [0.0] * (n - 1), expected)


@pytest.mark.parametrize("n", list(range(2, 41, 2)) + [60, 80, 100])
def test_even_polynomials(n):
    rng = np.random.default_rng(331 + n)
    c = rng.standard_normal(n)
    c[1::2] = 0.0
    assert_simple_roots(c)


@pytest.mark.parametrize("n", list(range(1, 41)) + [55, 70, 85, 100])
def test_random_polynomials(n):
    rng = np.random.default_rng(332 + n)
    for _ in range(3 if n < 20 else 1):
        assert_simple_roots(rng.standard_normal(n))


@pytest.mark.parametrize("n", [3, 8, 15, 30, 60])
def test_badly_scaled_polynomials(n):
    rng = np.random.default_rng(333 + n)
    assert_simple_roots(rng.standard_normal(n) * 10.0 ** rng.uniform(-6.0, 6.0, n))


@pytest.mark.parametrize("n", [2, 4, 7, 12, 24])
def test_palindromic_polynomials_with_zeros_on_the_unit_circle(n):
    # What designs with zeros on the unit circle ask for: z^2 - 2 cos(t) z + 1 multiplied up.
    c = np.array([1.0])
    for t in np.linspace(0.8, 2.9, n):
        c = np.convolve(c, [1.0, -2.0 * np.cos(t), 1.0])
    assert_simple_roots(c[:-1])


@pytest.mark.parametrize("gap", [1e-3, 1e-5, 1e-7])
def test_clustered_roots(gap):
    # Two pairs of reciprocal roots close together; their condition grows as they meet.
    c = np.convolve([1.0, -2.5, 1.0], [1.0, -(2.0 + gap + 1.0 / (2.0 + gap)), 1.0])
    assert_simple_roots(c[:-1])


@pytest.mark.parametrize("m", [2, 3, 4, 6, 8, 10])
def test_multiple_roots(m):
    # (z + 1)^m and (z^2 + z + 1)^m have exact coefficients; the m-th derivative at an m-fold root is
    # m! times the product of the distances to the other roots.
    c = np.array([1.0])
    for _ in range(m):
        c = np.convolve(c, [1.0, 1.0])
    expected = np.full(m, -1.0 + 0j)
    assert_same_sets(c[:-1], expected, np.full(m, movement(c[:-1], -1.0) ** (1.0 / m)))

    c = np.array([1.0])
    for _ in range(m):
        c = np.convolve(c, [1.0, 1.0, 1.0])
    root = complex(-0.5, np.sqrt(0.75))
    expected = np.array([root] * m + [root.conjugate()] * m)
    bound = (movement(c[:-1], root) / np.sqrt(3.0) ** m) ** (1.0 / m)
    assert_same_sets(c[:-1], expected, np.full(2 * m, bound))


def test_conjugate_pairs_are_neighbours_with_the_negative_part_first():
    rng = np.random.default_rng(334)
    for n in (2, 5, 10, 21):
        values = library_roots(rng.standard_normal(n))
        i = 0
        while i < n:
            if values[i].imag != 0.0:
                assert values[i].imag < 0.0 and values[i + 1] == values[i].conjugate()
                i += 1
            i += 1
