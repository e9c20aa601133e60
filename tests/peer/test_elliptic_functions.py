"""The literal elliptic functions against mpmath with fifty digits, and their identities.

The library's functions are compared with the literal ones bit for bit through the designs. What is tested
here is that these are the functions meant, and how far rounding takes them from the exact ones.

Rounding does three things. In k' = sqrt(1 - k^2), and in the same root of every later modulus of the Landen
sequence, it does what a change of k by half an epsilon would do, and less in each root than in the one
before, so that one epsilon counts for all. It moves the argument of the circular function. And each of the
some thirty operations that follow rounds once. The tolerances are these changes, made to the exact function.
"""

import math
import random

import mpmath
import pytest

import literal_elliptic as literal

mpmath.mp.dps = 50
EPSILON = 2.0**-52
ROUNDINGS = 16 * EPSILON
ARGUMENTS = 40

MODULI = [
    1e-300, 1e-9, 1e-6, 1e-3, 0.1, 0.3, 0.5, 0.7071067811865476, 0.9, 0.99, 0.9999, 1 - 1e-6, 1 - 1e-9,
    1 - 1e-12, 1 - 1e-15,
]  # fmt: skip
INTEGRAL_MODULI = MODULI + [1e-12, 9.9e-7, 1.01e-6, 1e-5, 1e-4, 1 - 5.2e-13, 1 - 4.8e-13, 1 - 1e-13]


def parameter(k):
    return mpmath.mpf(k) ** 2


def moved_parameter(k):
    return parameter(k * (1 + mpmath.mpf(EPSILON)))


def moved_modulus(k):
    """What k becomes when its complement is rounded and the complement's complement taken."""
    return mpmath.sqrt(1 - (1 - parameter(k)) * (1 - mpmath.mpf(EPSILON)) ** 2)


def ratio_of_periods(k):
    m = parameter(k)
    return mpmath.ellipk(1 - m) / mpmath.ellipk(m)


def exact(kind, u, m):
    return mpmath.ellipfun(kind, u * mpmath.ellipk(m), m=m)


def tolerance(kind, u, k):
    value = exact(kind, u, parameter(k))
    other_k = abs(exact(kind, u, moved_parameter(k)) - value)
    other_u = abs(exact(kind, u + 4 * EPSILON * (1 + abs(u)), parameter(k)) - value)
    return other_k + other_u + ROUNDINGS * abs(value)


def arguments(k, inside=1.0):
    """Complex ones of the fundamental rectangle, up to nine tenths of the way to the pole."""
    rng = random.Random(900)
    height = 3.0 if k < 1e-100 else 0.9 * float(ratio_of_periods(k))
    return [complex(rng.uniform(-inside, inside), rng.uniform(-height, height)) for _ in range(ARGUMENTS)]


def pair(x):
    return (x.real, x.imag)


def assert_near(call, got, expected, bound):
    assert abs(got - expected) <= bound, f"{call} is {got}, exact {mpmath.nstr(expected, 20)}, bound {float(bound)}"


# ---- integrals -------------------------------------------------------------------------------------


@pytest.mark.parametrize("k", INTEGRAL_MODULI)
def test_complete_integrals(k):
    K, K_prime = literal.elliptic_k(k)
    wanted = mpmath.ellipk(parameter(k))
    bound = abs(mpmath.ellipk(moved_parameter(k)) - wanted) + ROUNDINGS * wanted
    assert_near(f"K({k})", K, wanted, bound)
    wanted = mpmath.ellipk(1 - parameter(k))
    bound = ROUNDINGS * wanted
    if k >= 1e-6:
        bound += abs(mpmath.ellipk(1 - parameter(moved_modulus(k))) - wanted)
    assert_near(f"K'({k})", K_prime, wanted, bound)


def test_complete_integrals_by_the_mean():
    # Parameters are taken as they are, so that only the last roundings count.
    rng = random.Random(901)
    parameters = [10.0 ** rng.uniform(-20.0, 0.0) for _ in range(200)]
    parameters += [1.0 - 10.0 ** rng.uniform(-15.9, 0.0) for _ in range(200)]
    parameters += [-(10.0 ** rng.uniform(-10.0, 12.0)) for _ in range(100)]
    for m in parameters:
        wanted = mpmath.ellipk(m)
        assert_near(f"K of m = {m}", literal.elliptic_k_by_agm(m), wanted, ROUNDINGS * wanted)


def test_keeps_the_values_at_the_ends():
    assert literal.elliptic_k(0.0) == (math.inf, math.inf)
    assert literal.elliptic_k_by_agm(0.0) == 0.0
    assert literal.elliptic_k_by_agm(1.0) == math.inf
    assert math.isnan(literal.elliptic_k_by_agm(math.nan)) and math.isnan(literal.elliptic_k_by_agm(1.5))
    assert literal.landen_moduli(0.0) == literal.landen_moduli(2.2204e-16) == []
    assert literal.landen_moduli(1.0) == [1.0]


def test_symmetric_remainders():
    for x, y, wanted in ((3.0, 4.0, -1.0), (-3.0, 4.0, 1.0), (2.0, 4.0, 2.0), (-2.0, 4.0, -2.0), (9.0, 4.0, 1.0)):
        assert literal.symmetric_remainder(x, y) == wanted


# ---- functions -------------------------------------------------------------------------------------


@pytest.mark.parametrize("k", MODULI)
def test_functions_of_real_arguments(k):
    rng = random.Random(902)
    for u in [0.0, 1.0] + [rng.random() for _ in range(ARGUMENTS)]:
        for kind, function in (("sn", literal.sn), ("cd", literal.cd)):
            assert_near(f"{kind}({u}, {k})", function(u, k), exact(kind, u, parameter(k)), tolerance(kind, u, k))


@pytest.mark.parametrize("k", MODULI)
def test_functions_of_complex_arguments(k):
    for u in arguments(k):
        for kind, function in (("sn", literal.sn_complex), ("cd", literal.cd_complex)):
            got = mpmath.mpc(*function(pair(u), k))
            assert_near(f"{kind}({u}, {k})", got, exact(kind, u, parameter(k)), tolerance(kind, u, k))


@pytest.mark.parametrize("k", [0.0] + MODULI)
def test_functions_of_real_arguments_are_the_complex_ones(k):
    for u in (0.0, 0.125, 0.3, 0.5, 0.75, 1.0):
        assert abs(literal.sn_complex((u, 0.0), k)[0] - literal.sn(u, k)) <= ROUNDINGS
        assert abs(literal.cd_complex((u, 0.0), k)[0] - literal.cd(u, k)) <= ROUNDINGS
        assert literal.sn_complex((u, 0.0), k)[1] == 0.0 == literal.cd_complex((u, 0.0), k)[1]


def test_circular_functions_for_the_modulus_zero():
    for u in (0.0, 0.1, 0.5, 1.0, 1.7, -0.4):
        assert literal.sn(u, 0.0) == math.sin(u * math.pi * 0.5)
        assert literal.cd(u, 0.0) == math.cos(u * math.pi * 0.5)


@pytest.mark.parametrize("k", MODULI)
def test_cd_is_sn_of_the_rest_of_the_quarter_period(k):
    for step in range(33):
        u = step / 32.0  # 1 - u is exact
        # One rounding of the circular functions' arguments each; the moduli are the same, errors included.
        error = abs(literal.cd(u, k) - literal.sn(1.0 - u, k))
        assert error <= float(2 * tolerance("cd", u, k)), f"u = {u}, k = {k}: {error}"


@pytest.mark.parametrize("k", MODULI)
def test_the_squares_of_sn_and_cd(k):
    # cn^2 = 1 - sn^2 and dn^2 = 1 - k^2 sn^2 in cd = cn / dn, multiplied out.
    for u in arguments(k):
        s, c = (mpmath.mpc(*f(pair(u), k)) for f in (literal.sn_complex, literal.cd_complex))
        m = parameter(k)
        residual = abs(c * c * (1 - m * s * s) - (1 - s * s))
        moved_s, moved_c = tolerance("sn", u, k), tolerance("cd", u, k)
        bound = 2 * abs(c) * abs(1 - m * s * s) * moved_c + 2 * abs(s) * abs(1 - m * c * c) * moved_s
        assert residual <= 1.01 * bound, f"u = {u}, k = {k}: {residual}, {bound}"


# ---- inverse functions -----------------------------------------------------------------------------


@pytest.mark.parametrize("k", MODULI)
@pytest.mark.parametrize("kind", ["sn", "cd"])
def test_inverse_functions_lead_back(kind, k):
    function = {"sn": literal.sn_complex, "cd": literal.cd_complex}[kind]
    inverse = {"sn": literal.inverse_sn_complex, "cd": literal.inverse_cd_complex}[kind]
    for u in arguments(k, inside=0.9):
        # The fundamental rectangles of sn and cd lie one quarter period apart.
        u = u if kind == "sn" else u + 1.0
        w = function(pair(u), k)
        back = inverse(w, k)
        got = exact(kind, mpmath.mpc(*back), parameter(k))
        bound = 2 * tolerance(kind, u, k)
        assert_near(f"{kind} of inverse {kind}({w}, {k})", got, mpmath.mpc(*w), bound)
        # The rectangle, and a rounding of the quarter periods' quotient.
        low, high = (-1.0, 1.0) if kind == "sn" else (0.0, 2.0)
        assert low - ROUNDINGS <= back[0] <= high + ROUNDINGS
        if 1e-100 < k < 0.999:
            assert abs(complex(*back) - u) <= 1e-12


def test_keeps_no_inverse_for_the_modulus_zero():
    # Both quarter periods count as infinite there.
    assert math.isnan(literal.inverse_cd_complex((0.5, 0.5), 0.0)[1])


# ---- degree equation -------------------------------------------------------------------------------


def exact_degree(N, k1):
    q = mpmath.exp(-mpmath.pi * ratio_of_periods(k1) / N)
    return (mpmath.jtheta(2, 0, q) / mpmath.jtheta(3, 0, q)) ** 2


@pytest.mark.parametrize("N", range(1, 13))
def test_degree_equation(N):
    for k1 in (1e-6, 1.5e-6, 1e-5, 1e-4, 1e-3, 0.01, 0.1, 0.5, 0.9):
        k = literal.elliptic_degree(N, k1)
        wanted = exact_degree(N, k1)
        # sn is taken of the modulus k1' whose complement is k1 and a rounding; k' has N + 4 of its own,
        # and they weigh 1 / k^2 as much in k = sqrt(1 - k'^2).
        bound = abs(exact_degree(N, moved_modulus(k1)) - wanted) + 2 * (N + 8) * EPSILON / k
        assert_near(f"degree({N}, {k1})", k, wanted, bound)
        if k < 0.999:
            # And inserted: N K'(k) / K(k) = K'(k1) / K(k1).
            given = ratio_of_periods(k1)
            moved = abs(ratio_of_periods(moved_modulus(k1)) - given)
            own = N * abs(ratio_of_periods(k + 2 * (N + 8) * EPSILON / k) - ratio_of_periods(k))
            assert_near(f"degree({N}, {k1}) inserted", N * ratio_of_periods(k), given, moved + own)


def test_keeps_the_power_of_the_nome_for_tiny_moduli():
    # The degree equation would have the N-th root of the nome.
    for N in range(1, 9):
        for k1 in (9.9e-7, 1e-7, 1e-9):
            q = mpmath.exp(-mpmath.pi * ratio_of_periods(k1) * N)
            wanted = (mpmath.jtheta(2, 0, q) / mpmath.jtheta(3, 0, q)) ** 2
            # The exponent pi K' / K, up to 70, carries a few roundings of its size, N times.
            assert_near(f"degree({N}, {k1})", literal.elliptic_degree(N, k1), wanted, 300 * N * EPSILON * wanted)
            assert N == 1 or literal.elliptic_degree(N, k1) < 1e-4 * exact_degree(N, k1)
