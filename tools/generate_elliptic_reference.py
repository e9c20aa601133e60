#!/usr/bin/env python3
"""Writes tests/math/elliptic_reference.inc: elliptic integrals and functions to compare the library's with.

Every number is computed by mpmath with 50 digits (integrals by the arithmetic-geometric mean, functions by
theta series of the nome) from arguments that are doubles, and rounded once, to the nearest double. None of
it goes through a Landen transformation.

The moduli of the degree equation come from the nome: on paper the nome of k is the N-th root of the nome of
k1, and k = (theta2 / theta3)^2.

Usage: generate_elliptic_reference.py > tests/math/elliptic_reference.inc
"""

import mpmath

DIGITS = 50

# From 0 to one part in 10^15 below 1, both sides of 10^-6 and of its complement.
INTEGRAL_MODULI = [
    1e-12, 1e-9, 1e-7, 9.9e-7, 1.01e-6, 1e-5, 1e-4, 1e-3, 0.01, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6,
    0.7071067811865476, 0.8, 0.9, 0.99, 0.999, 0.9999, 1 - 1e-5, 1 - 1e-6, 1 - 1e-7, 1 - 1e-9, 1 - 1e-11,
    1 - 6e-13, 1 - 5.2e-13, 1 - 4.8e-13, 1 - 1e-13, 1 - 1e-14, 1 - 1e-15,
]  # fmt: skip
FUNCTION_MODULI = [
    0.0, 1e-9, 1e-6, 1e-3, 0.1, 0.3, 0.5, 0.7071067811865476, 0.9, 0.99, 0.9999, 1 - 1e-6, 1 - 1e-9,
    1 - 1e-12, 1 - 1e-15,
]  # fmt: skip

# The real part of u; the imaginary part as a fraction of the distance K'/K to the first pole of sn, or
# itself for k = 0, where there is none.
ARGUMENTS = [
    (0.0, 0.0), (0.1, 0.0), (0.25, 0.0), (0.5, 0.0), (0.75, 0.0), (0.96875, 0.0), (1.0, 0.0),
    (0.0, 0.3), (0.0, 0.8), (0.3, 0.5), (0.5, -0.25), (0.9, 0.75), (1.0, 0.4), (-0.7, 0.6),
]  # fmt: skip
DEGREES = [
    (N, k1) for N in (1, 2, 3, 4, 5, 6, 7, 8, 10, 12) for k1 in (1.5e-6, 1e-5, 1e-4, 1e-3, 0.01, 0.1, 0.5, 0.9)
]  # fmt: skip


def integral(k):
    """K of the modulus k and of its complement."""
    m = mpmath.mpf(k) ** 2
    return mpmath.ellipk(m), mpmath.ellipk(1 - m)


def function(kind, u, k):
    """cd or sn at u times K(k). Parts below 1e-40 are zeros and the rounding of the fifty digits."""
    m = mpmath.mpf(k) ** 2
    return mpmath.chop(mpmath.mpc(mpmath.ellipfun(kind, u * mpmath.ellipk(m), m=m)), 1e-40)


def degree(N, k1):
    """The modulus whose K'/K is that of k1 divided by N."""
    K, Kp = integral(k1)
    q = mpmath.exp(-mpmath.pi * Kp / K / N)
    return (mpmath.jtheta(2, 0, q) / mpmath.jtheta(3, 0, q)) ** 2


def row(*values):
    return "    {" + ", ".join(repr(float(value)) for value in values) + "},"


def main():
    mpmath.mp.dps = DIGITS
    print("// Written by tools/generate_elliptic_reference.py (mpmath, 50 digits); not edited by hand.")
    print()
    print("struct EllipticIntegralReference")
    print("{")
    print("    double k, K, Kprime;")
    print("};")
    print()
    print("constexpr EllipticIntegralReference ellipticIntegralReference[] = {")
    for k in INTEGRAL_MODULI:
        print(row(k, *integral(k)))
    print("};")
    print()
    print("// cd(u K(k), k) and sn(u K(k), k).")
    print("struct EllipticFunctionReference")
    print("{")
    print("    double k, uRe, uIm, cdRe, cdIm, snRe, snIm;")
    print("};")
    print()
    print("constexpr EllipticFunctionReference ellipticFunctionReference[] = {")
    for k in FUNCTION_MODULI:
        ratio = mpmath.mpf(1)
        if k:
            K, Kp = integral(k)
            ratio = Kp / K
        for x, fraction in ARGUMENTS:
            y = float(fraction * ratio)
            cd, sn = (function(kind, mpmath.mpc(x, y), k) for kind in ("cd", "sn"))
            print(row(k, x, y, cd.real, cd.imag, sn.real, sn.imag))
    print("};")
    print()
    print("// The modulus k of an order N and k1: K'(k) / K(k) = K'(k1) / K(k1) / N.")
    print("struct EllipticDegreeReference")
    print("{")
    print("    int N;")
    print("    double k1, k;")
    print("};")
    print()
    print("constexpr EllipticDegreeReference ellipticDegreeReference[] = {")
    for N, k1 in DEGREES:
        print(f"    {{{N}, {k1!r}, {float(degree(N, k1))!r}}},")
    print("};")


if __name__ == "__main__":
    main()
