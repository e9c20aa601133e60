"""Elementary functions for the literal versions: the exact value, rounded once to the nearest double.

Ties go to even, subnormal results are rounded once too; special values are those of Annex F of the C standard.
The values are MPFR's (Fousse, Hanrot, Lefevre, Pelissier & Zimmermann 2007), with the precision and the exponents
of a double. sqrt and fmod round once everywhere, so they are Python's, without its exceptions.
"""

import functools
import math

import gmpy2

NAN = float("nan")

_double = gmpy2.context(precision=53, emin=-1073, emax=1024, subnormalize=True)
# Designs ask for the same angles and powers again and again.
_REMEMBERED = 1 << 18


def _of_one(name):
    exact = getattr(_double, name)

    def rounded(x):
        return float(exact(x))

    remembered = functools.lru_cache(_REMEMBERED)(rounded)

    # The two zeros are equal, but their values need not be.
    return lambda x: remembered(x) if x else rounded(x)


def _of_two(name):
    exact = getattr(_double, name)

    def rounded(x, y):
        return float(exact(x, y))

    remembered = functools.lru_cache(_REMEMBERED)(rounded)
    return lambda x, y: remembered(x, y) if x and y else rounded(x, y)


sin, cos, tan, atan = map(_of_one, ("sin", "cos", "tan", "atan"))
exp, log, log10 = map(_of_one, ("exp", "log", "log10"))
sinh, cosh, asinh, acosh = map(_of_one, ("sinh", "cosh", "asinh", "acosh"))
atan2, hypot = map(_of_two, ("atan2", "hypot"))
_power = _of_two("pow")


def power(x, y):
    # The product rounds the square once.
    return x * x if y == 2.0 else _power(x, y)


def sqrt(x):
    return math.sqrt(x) if x >= 0.0 else NAN


def fmod(x, y):
    return math.fmod(x, y) if math.isfinite(x) and y != 0.0 else NAN
