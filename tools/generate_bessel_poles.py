#!/usr/bin/env python3
"""Writes src/iir/bessel_poles.inc: the poles of the analog Bessel lowpass of orders 1 to 25.

The poles of order n are the roots of the reverse Bessel polynomial of order n,

    sum over k of (2n - k)! / (2^(n - k) k! (n - k)!) s^k,

divided by the n-th root of its constant term (2n)! / (2^n n!), so that the product of their moduli is
one. They are computed with 80 digits and rounded once, to the nearest double. In a row the real pole
comes first, then the pairs by falling modulus of the real part, negative imaginary part first.

Usage: generate_bessel_poles.py > src/iir/bessel_poles.inc
"""

import mpmath

LARGEST_ORDER = 25
DIGITS = 80


def reverse_bessel(n):
    """Coefficients of the reverse Bessel polynomial, highest power first, as exact integers."""
    factorial = mpmath.factorial
    return [
        mpmath.mpf(factorial(2 * n - k) / (2 ** (n - k) * factorial(k) * factorial(n - k)))
        for k in range(n, -1, -1)
    ]


def poles(n):
    """The row of order n: pairs of doubles."""
    coefficients = reverse_bessel(n)
    scale = mpmath.root(coefficients[-1], n)
    roots = [
        root / scale for root in mpmath.polyroots(coefficients, maxsteps=500, extraprec=4 * DIGITS + 20 * n)
    ]
    real = [root for root in roots if abs(mpmath.im(root)) < mpmath.mpf(10) ** (-DIGITS // 2)]
    upper = sorted((root for root in roots if root not in real and mpmath.im(root) > 0), key=mpmath.re)
    assert len(real) == n % 2 and len(upper) == n // 2
    row = [(float(mpmath.re(root)), 0.0) for root in real]
    for root in upper:
        re, im = float(mpmath.re(root)), float(mpmath.im(root))
        row += [(re, -im), (re, im)]
    return row


def main():
    mpmath.mp.dps = DIGITS
    print("// Written by tools/generate_bessel_poles.py; not edited by hand.")
    for n in range(1, LARGEST_ORDER + 1):
        print(f"// order {n}")
        for re, im in poles(n):
            print(f"{{{re!r}, {im!r}}},")


if __name__ == "__main__":
    main()
