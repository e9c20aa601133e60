"""The exact functions of the literal versions against mpmath, and special values against Annex F of C."""

import math
import random
from fractions import Fraction

import mpmath
import pytest

import exact_functions as exact
from comparing import assert_same_bits

INF, NAN = math.inf, math.nan
PI = 3.141592653589793
LEAST = 5e-324


def nearest(value):
    """The double nearest to an mpmath number; a quotient of integers is rounded once, subnormal or not."""
    sign, mantissa, exponent, _ = value._mpf_
    try:
        size = float(Fraction(mantissa) * Fraction(2) ** exponent)
    except OverflowError:
        size = INF
    return -size if sign else size


def uniform(low, high):
    return lambda rng: rng.uniform(low, high)


def of_any_size(low=-1074, high=1023):
    """Both signs, every exponent alike."""
    return lambda rng: math.ldexp(rng.uniform(1.0, 2.0), rng.randint(low, high)) * rng.choice((-1.0, 1.0))


def positive(draw):
    return lambda rng: abs(draw(rng))


def least(rng):
    return rng.randint(1, 1 << 20) * LEAST


# Function, arguments it is drawn at. Exponents stop where mpmath would hold numbers of many megabytes.
RANGES = [
    *((name, [draw]) for name in ("sin", "cos", "tan") for draw in (uniform(-7.0, 7.0), of_any_size(), least)),
    *((name, [draw]) for name in ("atan", "asinh") for draw in (uniform(-3.0, 3.0), of_any_size(), least)),
    *((name, [draw]) for name in ("exp", "sinh", "cosh") for draw in (uniform(-746.0, 711.0), of_any_size(-1074, 9))),
    *((name, [positive(draw)]) for name in ("log", "log10") for draw in (uniform(0.0, 3.0), of_any_size(), least)),
    ("acosh", [uniform(1.0, 2.0)]),
    ("acosh", [positive(of_any_size(1, 1023))]),
    *((name, [draw, draw]) for name in ("atan2", "hypot") for draw in (uniform(-3.0, 3.0), of_any_size(), least)),
    ("power", [uniform(0.0, 3.0), uniform(-1000.0, 1000.0)]),
    ("power", [uniform(-3.0, 3.0), lambda rng: float(rng.randint(-1200, 1200))]),
    ("power", [uniform(-3.0, 3.0), lambda rng: float(rng.randint(2, 4))]),
    ("power", [positive(of_any_size()), uniform(-2.0, 2.0)]),
    ("power", [lambda rng: 10.0, uniform(-324.5, 309.0)]),
    ("power", [lambda rng: 2.0, uniform(-1076.0, -1021.0)]),
]
MPMATHS = {"power": mpmath.power}


@pytest.mark.parametrize("name, draws", RANGES)
def test_values_are_the_exact_ones_rounded_once(name, draws):
    rng = random.Random(900)
    exactly = MPMATHS.get(name) or getattr(mpmath, name)
    for _ in range(60):
        arguments = [draw(rng) for draw in draws]
        with mpmath.workprec(2400):
            expected = nearest(exactly(*map(mpmath.mpf, arguments)))
        got = getattr(exact, name)(*arguments)
        assert_same_bits(name, {"arguments": arguments}, [expected], [got])
        assert got == getattr(exact, name)(*arguments)


def test_halves_go_to_even():
    # Odd numbers of 54 bits lie midway between two doubles; int becomes float by the same rule.
    for x in (208065, 208067):
        assert 1 << 53 < x**3 < 1 << 54
        assert exact.power(float(x), 3.0) == float(x**3)
    for m, n in ((90100000, 30000001), (90100000, 30000003)):
        assert 1 << 53 < m * m + n * n < 1 << 54
        assert exact.hypot(float(m * m - n * n), float(2 * m * n)) == float(m * m + n * n)
    # 0.5, 121.5 and 1562.5 times the least subnormal.
    assert exact.power(2.0, -1075.0) == 0.0
    assert exact.power(math.ldexp(3.0, -215), 5.0) == 122.0 * LEAST
    assert exact.power(math.ldexp(5.0, -215), 5.0) == 1562.0 * LEAST


def test_subnormal_values_are_rounded_once():
    # sqrt(k^2 + k) lies so closely below k + 1/2 that rounding it to 53 bits first gives k + 1/2, then k + 1.
    m = float(2**14 + 1)
    assert exact.hypot(m * m * LEAST, m * LEAST) == m * m * LEAST


# Function, arguments, value: a not-a-number stands for any.
SPECIAL_VALUES = [
    *((name, (x,), x) for name in ("sin", "tan", "atan", "sinh", "asinh") for x in (0.0, -0.0, LEAST, -LEAST)),
    *((name, (x,), NAN) for name in ("sin", "cos", "tan") for x in (INF, -INF)),
    *((name, (NAN,), NAN) for name in ("sin", "cos", "tan", "atan", "exp", "log", "log10", "sinh", "asinh", "acosh")),
    *((name, (x,), 1.0) for name in ("cos", "exp", "cosh") for x in (0.0, -0.0)),
    *((name, (x,), x) for name in ("sinh", "asinh") for x in (INF, -INF)),
    ("atan", (INF,), PI / 2), ("atan", (-INF,), -PI / 2),
    ("exp", (INF,), INF), ("exp", (-INF,), 0.0), ("exp", (710.0,), INF), ("exp", (-746.0,), 0.0),
    ("cosh", (INF,), INF), ("cosh", (-INF,), INF), ("sinh", (-711.0,), -INF),
    *((name, (x,), -INF) for name in ("log", "log10") for x in (0.0, -0.0)),
    *((name, (x,), NAN) for name in ("log", "log10") for x in (-1.0, -INF)),
    *((name, (x,), y) for name in ("log", "log10") for x, y in ((1.0, 0.0), (INF, INF))),
    ("log10", (1e22,), 22.0),
    ("acosh", (1.0,), 0.0), ("acosh", (INF,), INF), ("acosh", (0.9,), NAN), ("acosh", (-INF,), NAN),
    ("atan2", (0.0, 0.0), 0.0), ("atan2", (-0.0, 0.0), -0.0), ("atan2", (0.0, -0.0), PI), ("atan2", (-0.0, -0.0), -PI),
    ("atan2", (0.0, -3.0), PI), ("atan2", (-0.0, -3.0), -PI), ("atan2", (-0.0, 3.0), -0.0),
    ("atan2", (2.0, -0.0), PI / 2), ("atan2", (-2.0, 0.0), -PI / 2),
    ("atan2", (1.0, INF), 0.0), ("atan2", (-1.0, INF), -0.0), ("atan2", (-1.0, -INF), -PI),
    ("atan2", (INF, 1.0), PI / 2), ("atan2", (INF, INF), PI / 4), ("atan2", (-INF, -INF), -2.356194490192345),
    ("atan2", (NAN, 1.0), NAN), ("atan2", (0.0, NAN), NAN),
    ("hypot", (INF, NAN), INF), ("hypot", (NAN, -INF), INF), ("hypot", (NAN, 0.0), NAN), ("hypot", (-0.0, -0.0), 0.0),
    ("hypot", (-3.0, 0.0), 3.0), ("hypot", (1.7976931348623157e308, 1.7976931348623157e308), INF),
    ("power", (1.0, NAN), 1.0), ("power", (NAN, 0.0), 1.0), ("power", (NAN, -0.0), 1.0), ("power", (-1.0, INF), 1.0),
    ("power", (0.0, -1.0), INF), ("power", (-0.0, -1.0), -INF), ("power", (-0.0, -2.0), INF), ("power", (-0.0, -INF), INF),
    ("power", (-0.0, 3.0), -0.0), ("power", (-0.0, 2.0), 0.0), ("power", (-0.0, 0.5), 0.0), ("power", (-8.0, 1.5), NAN),
    ("power", (0.5, INF), 0.0), ("power", (0.5, -INF), INF), ("power", (-2.0, INF), INF), ("power", (2.0, -INF), 0.0),
    ("power", (-INF, 3.0), -INF), ("power", (-INF, 2.0), INF), ("power", (-INF, -3.0), -0.0), ("power", (INF, -1.0), 0.0),
    ("power", (NAN, 2.0), NAN), ("power", (NAN, 1.0), NAN), ("power", (-2.0, 1025.0), -INF), ("power", (1e-200, 2.0), 0.0),
    ("sqrt", (-0.0,), -0.0), ("sqrt", (-1.0,), NAN), ("sqrt", (INF,), INF), ("sqrt", (NAN,), NAN),
    ("fmod", (INF, 1.0), NAN), ("fmod", (1.0, 0.0), NAN), ("fmod", (-3.0, INF), -3.0), ("fmod", (-4.0, 2.0), -0.0),
    ("fmod", (NAN, 2.0), NAN), ("fmod", (1.0, NAN), NAN),
]  # fmt: skip


def test_special_values_are_those_of_annex_f():
    for name, arguments, expected in SPECIAL_VALUES:
        # The second call would show a value remembered for an equal argument, as zero and minus zero are.
        for _ in range(2):
            got = getattr(exact, name)(*arguments)
            assert_same_bits(name, {"arguments": arguments}, [expected], [got])


@pytest.mark.parametrize("name", ("sin", "tan", "atan", "sinh", "asinh"))
def test_zeros_keep_their_signs_one_after_the_other(name):
    function = getattr(exact, name)
    assert [math.copysign(1.0, function(x)) for x in (0.0, -0.0, 0.0, -0.0)] == [1.0, -1.0, 1.0, -1.0]
