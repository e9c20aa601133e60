#!/usr/bin/env python3
"""Writes the constants of the trigonometric functions, src/math/*.inc, all from mpmath with 700 digits.

    sine_table.inc             sin(k pi / 128), k = 0 .. 255, as a sum of three doubles: the first of at most
                               27 bits, so that its product with 26 bits is exact, the others rounded to
                               nearest; and the nearest double
    arc_tangent_table.inc      atan(k / 64), k = 0 .. 64, as a sum of two doubles
    two_over_pi.inc            the first 64 limbs of 32 bits behind the point of 2 / pi
    quarter_pi.inc             the first 48 limbs of 32 bits behind the point of pi / 4
    trigonometric_constants.inc  pi and pi / 128 as sums of doubles, and the doubles nearest to some angles

Usage: generate_math_tables.py [--check] [FOLDER]     FOLDER is src/math of the tree by default
With --check nothing is written; the exit status is 1 where a file differs from what would be.
"""

import argparse
import pathlib
import sys

import mpmath

DIGITS = 700
STEPS = 256  # of the sine table, in a full turn
NODES = 64  # of the arc tangent table, in one
TWO_OVER_PI_LIMBS = 64
PI_LIMBS = 48


def nearest(value, bits):
    """The number of so many bits nearest to value."""
    if value == 0:
        return mpmath.mpf(0)
    exponent = mpmath.frexp(value)[1]
    return mpmath.ldexp(mpmath.nint(mpmath.ldexp(value, bits - exponent)), exponent - bits)


def parts(value, widths):
    """value as a sum of doubles, each of the given number of bits and nearest to what is left."""
    result = []
    for bits in widths:
        part = nearest(value, bits)
        result.append(float(part))
        value -= part
    return result


def row(numbers):
    return "{" + ", ".join(number.hex() for number in numbers) + "},"


def sine_table():
    for k in range(STEPS):
        # Multiples of a quarter turn are exact, and nothing is left of them.
        value = mpmath.mpf((0, 1, 0, -1)[k * 4 // STEPS]) if k * 4 % STEPS == 0 else mpmath.sinpi(
            mpmath.mpf(2 * k) / STEPS
        )
        yield row(parts(value, (27, 53, 53)) + parts(value, (53,)))


def arc_tangent_table():
    for k in range(NODES + 1):
        yield row(parts(mpmath.atan(mpmath.mpf(k) / NODES), (53, 53)))


def limbs(value, count):
    digits = int(mpmath.floor(mpmath.ldexp(value, 32 * count)))
    for i in range(count):
        yield f"{digits >> 32 * (count - 1 - i) & 0xFFFFFFFF:#010x},"


def constant(name, value):
    return f"inline constexpr double {name} = {value.hex()};"


def constants():
    pi = mpmath.pi
    yield "// pi / 128: two parts whose products with integers below 2^20 are exact, a third and a fourth."
    names = ("angleStepHigh", "angleStepMiddle", "angleStepLow", "angleStepTail")
    for name, part in zip(names, parts(pi / 128, (33, 33, 53, 53))):
        yield constant(name, part)
    yield constant("angleStepsPerRadian", float(nearest(128 / pi, 53)))
    for name, value in (("pi", pi), ("halfPi", pi / 2), ("angleStep", pi / 128)):
        high, low = parts(value, (53, 53))
        yield f"inline constexpr Pair {name}Pair = {{{high.hex()}, {low.hex()}}};"
    for name, value in (("nearestPi", pi), ("nearestHalfPi", pi / 2), ("nearestQuarterPi", pi / 4),
                        ("nearestThreeQuarterPi", 3 * pi / 4)):
        yield constant(name, float(nearest(value, 53)))


def files():
    return {
        "sine_table.inc": sine_table(),
        "arc_tangent_table.inc": arc_tangent_table(),
        "two_over_pi.inc": limbs(2 / mpmath.pi, TWO_OVER_PI_LIMBS),
        "quarter_pi.inc": limbs(mpmath.pi / 4, PI_LIMBS),
        "trigonometric_constants.inc": constants(),
    }


def main():
    parser = argparse.ArgumentParser(description="Constants of the trigonometric functions.")
    parser.add_argument("--check", action="store_true")
    default = pathlib.Path(__file__).resolve().parent.parent / "src" / "math"
    parser.add_argument("folder", nargs="?", type=pathlib.Path, default=default)
    arguments = parser.parse_args()
    mpmath.mp.dps = DIGITS
    differing = []
    for name, lines in files().items():
        text = "// Written by tools/generate_math_tables.py; not edited by hand.\n" + "\n".join(lines) + "\n"
        path = arguments.folder / name
        if not arguments.check:
            path.write_text(text)
        elif not path.exists() or path.read_text() != text:
            differing.append(name)
    for name in differing:
        print(f"{name} differs from what tools/generate_math_tables.py writes", file=sys.stderr)
    return 1 if differing else 0


if __name__ == "__main__":
    sys.exit(main())
