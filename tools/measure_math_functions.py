"""How a C library's mathematics functions round: reads what tools/math_functions.cpp printed.

usage: measure_math_functions.py check VALUES          fails when a function is off by more than its bound
       measure_math_functions.py compare VALUES OTHER  prints where two C libraries differ, as a table

Both measure against 60-digit arithmetic.
"""

import collections
import math
import struct
import sys

import mpmath

mpmath.mp.dps = 60

EXACT = {
    "sin": mpmath.sin, "cos": mpmath.cos, "tan": mpmath.tan, "acos": mpmath.acos, "sinh": mpmath.sinh,
    "cosh": mpmath.cosh, "exp": mpmath.exp, "asinh": mpmath.asinh, "acosh": mpmath.acosh,
    "log": mpmath.log, "log10": mpmath.log10, "hypot": mpmath.hypot, "atan2": mpmath.atan2,
    "pow": mpmath.power,
}
# Units in the last place. C libraries that take care stay within one for most functions and within two for
# those that they build from others.
BOUND = 2.0


def read(path):
    values = {}
    with open(path) as lines:
        for line in lines:
            name, *bits = line.split()
            *arguments, result = (struct.unpack(">d", bytes.fromhex(word))[0] for word in bits)
            values[name, tuple(arguments)] = result
    if not values:
        sys.exit("no values")
    return values


def off_by(name, arguments, result):
    """The error of a result in units in the last place of the exact value."""
    exact = EXACT[name.split("(")[0]](*map(mpmath.mpf, arguments))
    return float(abs(mpmath.mpf(result) - exact) / math.ulp(float(exact)))


def bound(name, arguments):
    """In units in the last place. The sine and cosine instructions of the x87 unit reduce their argument with
    a pi of 66 bits, which is off by less than 2^-65: for an argument x that moves the angle by |x| 2^-66."""
    if name.startswith(("sin", "cos")) and not name.endswith("h"):
        exact = float(EXACT[name[:3]](*map(mpmath.mpf, arguments)))
        return BOUND + abs(arguments[0]) * 2.0**-65 / math.ulp(exact)
    return BOUND


def check(path):
    failures = 0
    for (name, arguments), result in read(path).items():
        error = off_by(name, arguments, result)
        if not error <= bound(name, arguments):
            failures += 1
            print(f"{name}: {arguments} gives {result!r}, off by {error:.2f} units in the last place")
    sys.exit(failures > 0)


def compare(path, other_path):
    values, others = read(path), read(other_path)
    if values.keys() != others.keys():
        sys.exit("the two answer different questions")
    rows = collections.defaultdict(list)
    for (name, arguments), result in values.items():
        other = others[name, arguments]
        rows[name].append((result != other, abs(result - other) / math.ulp(result),
                           off_by(name, arguments, result), off_by(name, arguments, other)))
    print("| function | differ | by at most, ulp | first off by, ulp | second off by, ulp |\n|---|---:|---:|---:|---:|")
    for name, row in rows.items():
        differ, *largest = zip(*row)
        print(f"| `{name}` | {100 * sum(differ) / len(differ):.2g} % | "
              + " | ".join(f"{max(column):.3g}" for column in largest) + " |")


if __name__ == "__main__":
    if len(sys.argv) == 3 and sys.argv[1] == "check":
        check(sys.argv[2])
    elif len(sys.argv) == 4 and sys.argv[1] == "compare":
        compare(*sys.argv[2:])
    else:
        sys.exit(__doc__.strip())
