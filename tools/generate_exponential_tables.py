#!/usr/bin/env python3
"""Writes the tables and constants of the exponential and the logarithm.

    src/math/exponential_table.inc      2^(j / 128) in three doubles, j = 0 .. 127
    src/math/logarithm_table.inc        reciprocals of few bits, and their logarithms in three doubles
    src/math/exponential_constants.inc  named constants, those of more than 53 bits as pairs

Everything is computed with 60 digits and rounded once; a sum of several doubles takes them one after the
other, each nearest to what the ones before have left. Tables are hexadecimal, so that no compiler rounds.

Usage: generate_exponential_tables.py [--check]
    --check   writes nothing; exit status 1 if a file differs from what would be written
"""

import pathlib
import sys

import mpmath

DIGITS = 60
INTERVALS = 128  # of [1, 2), in both tables
FOLDER = pathlib.Path(__file__).resolve().parent.parent / "src" / "math"
HEAD = "// Written by tools/generate_exponential_tables.py; not edited by hand.\n"


def to_multiple(value, exponent):
    """The multiple of 2^exponent nearest to the value."""
    return mpmath.ldexp(mpmath.nint(mpmath.ldexp(value, -exponent)), exponent)


def expansion(value, count):
    """Doubles whose sum is the value but for the rounding of the last."""
    parts = []
    for _ in range(count):
        parts.append(float(value))
        value -= mpmath.mpf(parts[-1])
    return parts


def split(value, exponent, count):
    """A multiple of 2^exponent, then an expansion of what is left."""
    high = to_multiple(value, exponent)
    assert mpmath.mpf(float(high)) == high
    return [float(high)] + expansion(value - high, count)


def row(numbers):
    return "{" + ", ".join(number.hex() for number in numbers) + "},\n"


def exponential_table():
    """2^(j / 128) = high + middle + low, high of 26 bits."""
    text = HEAD
    for j in range(INTERVALS):
        text += row(split(mpmath.power(2, mpmath.mpf(j) / INTERVALS), -25, 2))
    return text


def logarithm_table():
    """Row i belongs to m in [1 + i / 128, 1 + (i + 1) / 128), to m / 2 from 1.4140625 upwards.

    reciprocal: a multiple of 2^-9, near 1 / m, exactly 1 in the first and in the last row, so that
    r = m * reciprocal - 1 stays within 2^-7. Then -log(reciprocal) = high + middle + low, high a multiple
    of 2^-42 and either zero or larger than |r|.
    """
    text = HEAD
    for i in range(INTERVALS):
        scale = 1 if 1 + mpmath.mpf(i) / INTERVALS < 1.41 else mpmath.mpf(1) / 2
        lower = scale * (1 + mpmath.mpf(i) / INTERVALS)
        upper = scale * (1 + mpmath.mpf(i + 1) / INTERVALS)
        reciprocal = to_multiple(2 / (lower + upper), -9)
        if i in (0, INTERVALS - 1):
            reciprocal = mpmath.mpf(1)
        largest = max(abs(lower * reciprocal - 1), abs(upper * reciprocal - 1))
        assert largest <= mpmath.ldexp(1, -7)
        logarithm = -mpmath.log(reciprocal)
        assert reciprocal == 1 or abs(logarithm) > largest
        text += row([float(reciprocal)] + split(logarithm, -42, 2))
    return text


def constant(name, value):
    return f"inline constexpr double {name} = {value.hex()};\n"


def pair(name, value):
    high, low = expansion(value, 2)
    return f"inline constexpr Pair {name} = {{{high.hex()}, {low.hex()}}};\n"


def constants():
    ln2 = mpmath.log(2)
    text = HEAD
    text += "// log(2) / 128 in steps of 35 bits, so that products with a whole number below 2^18 are exact.\n"
    step = ln2 / INTERVALS
    first = to_multiple(step, -43)
    second = to_multiple(step - first, -78)
    text += constant("stepHigh", float(first)) + constant("stepMiddle", float(second))
    text += constant("stepLow", float(step - first - second))
    text += constant("stepsPerUnit", float(1 / step))
    text += "// log(2) for the logarithm: a multiple of 2^-42, then a pair.\n"
    high, middle, low = split(ln2, -42, 2)
    text += constant("ln2High", high)
    text += f"inline constexpr Pair ln2Low = {{{middle.hex()}, {low.hex()}}};\n"
    text += pair("ln2Pair", ln2)
    text += pair("reciprocalOfLn2", 1 / ln2)
    text += pair("reciprocalOfLn10", 1 / mpmath.log(10))
    for divisor in (6, 24, 120):
        text += pair(f"oneOver{divisor}", mpmath.mpf(1) / divisor)
    for divisor in (3, 5, 7):
        text += pair(f"twoOver{divisor}", mpmath.mpf(2) / divisor)
    return text


def main():
    mpmath.mp.dps = DIGITS
    files = {
        "exponential_table.inc": exponential_table(),
        "logarithm_table.inc": logarithm_table(),
        "exponential_constants.inc": constants(),
    }
    status = 0
    for name, text in files.items():
        path = FOLDER / name
        if "--check" in sys.argv[1:]:
            if not path.exists() or path.read_text(encoding="ascii") != text:
                print(f"{name} differs from what the generator writes", file=sys.stderr)
                status = 1
        else:
            path.write_text(text, encoding="ascii")
    return status


if __name__ == "__main__":
    sys.exit(main())
