"""Exact IIR designs: zeros, poles and gain with fifty digits (mpmath), by the closed formulas of the
prototypes and the substitutions of the variable, with no matrix and no eigenvalue between.

Source: Parks & Burrus, Digital Filter Design, 1987.
"""

import mpmath
from mpmath import mpc, mpf

mpmath.mp.dps = 50

LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)


def butterworth_prototype(n):
    poles = [mpmath.expjpi(mpf(2 * m + n + 1) / (2 * n)) for m in range(n)]
    return [], poles, mpf(1)


def _chebyshev_poles(n, mu):
    angles = [mpmath.pi * (2 * m + 1) / (2 * n) for m in range(n)]
    return [mpc(-mpmath.sinh(mu) * mpmath.sin(t), mpmath.cosh(mu) * mpmath.cos(t)) for t in angles]


def _product(values):
    return mpmath.fprod(values) if values else mpf(1)


def chebyshev1_prototype(n, rp):
    eps = mpmath.sqrt(mpf(10) ** (mpf(rp) / 10) - 1)
    poles = _chebyshev_poles(n, mpmath.asinh(1 / eps) / n)
    gain = mpmath.re(_product([-p for p in poles]))
    return [], poles, gain / mpmath.sqrt(1 + eps * eps) if n % 2 == 0 else gain


def chebyshev2_prototype(n, rs):
    es = mpmath.sqrt(mpf(10) ** (mpf(rs) / 10) - 1)
    poles = [1 / p for p in _chebyshev_poles(n, mpmath.asinh(es) / n)]
    zeros = [
        mpc(0, 1) / mpmath.cos(mpmath.pi * (2 * m + 1) / (2 * n)) for m in range(n) if 2 * m + 1 != n
    ]
    return zeros, poles, mpmath.re(_product([-p for p in poles]) / _product([-z for z in zeros]))


def bessel_prototype(n):
    coefficients = [
        mpmath.factorial(2 * n - k) / (2 ** (n - k) * mpmath.factorial(k) * mpmath.factorial(n - k))
        for k in range(n, -1, -1)
    ]
    scale = mpmath.root(coefficients[-1], n)
    with mpmath.workdps(90):
        roots = mpmath.polyroots(coefficients, maxsteps=400, extraprec=300)
    return [], [root / scale for root in roots], mpf(1)


def transformed(prototype, kind, Wo, Bw):
    """Zeros, poles and gain after the substitution of a filter type."""
    zeros, poles, gain = prototype
    surplus = len(poles) - len(zeros)
    if kind == LOWPASS:
        return [z * Wo for z in zeros], [p * Wo for p in poles], gain * Wo**surplus
    if kind == HIGHPASS:
        ratio = mpmath.re(_product([-z for z in zeros]) / _product([-p for p in poles]))
        return [Wo / z for z in zeros] + [mpf(0)] * surplus, [Wo / p for p in poles], gain * ratio

    def split(values):
        result = []
        for value in values:
            root = mpmath.sqrt(value * value - Wo * Wo)
            result += [value + root, value - root]
        return result

    if kind == BANDPASS:
        zeros = split([z * Bw / 2 for z in zeros]) + [mpf(0)] * surplus
        return zeros, split([p * Bw / 2 for p in poles]), gain * Bw**surplus
    ratio = mpmath.re(_product([-z for z in zeros]) / _product([-p for p in poles]))
    zeros = split([Bw / 2 / z for z in zeros]) + [mpc(0, Wo), mpc(0, -Wo)] * surplus
    return zeros, split([Bw / 2 / p for p in poles]), gain * ratio


def bilinear(zeros, poles, gain):
    surplus = len(poles) - len(zeros)
    gain = mpmath.re(gain * _product([4 - z for z in zeros]) / _product([4 - p for p in poles]))
    zeros = [(4 + z) / (4 - z) for z in zeros] + [mpf(-1)] * surplus
    return zeros, [(4 + p) / (4 - p) for p in poles], gain


def digital(prototype, wn, kind):
    """The digital filter with edges wn, fractions of Nyquist."""
    u = [4 * mpmath.tan(mpmath.pi * mpf(edge) / 2) for edge in wn]
    if kind in (LOWPASS, HIGHPASS):
        return bilinear(*transformed(prototype, kind, u[0], None))
    return bilinear(*transformed(prototype, kind, mpmath.sqrt(u[0] * u[1]), u[1] - u[0]))


def analog(prototype, wn, kind):
    """The analog filter with edges wn in rad/s."""
    w = [mpf(edge) for edge in wn]
    if kind in (LOWPASS, HIGHPASS):
        return transformed(prototype, kind, w[0], None)
    return transformed(prototype, kind, mpmath.sqrt(w[0] * w[1]), w[1] - w[0])


def polynomial(roots):
    """Real coefficients of the monic polynomial, highest power first."""
    c = [mpf(1)]
    for root in roots:
        c = [x - root * y for x, y in zip(c + [mpf(0)], [mpf(0)] + c)]
    return [mpmath.re(x) for x in c]


def response(zeros, poles, gain, x):
    return gain * _product([x - z for z in zeros]) / _product([x - p for p in poles])


def response_of_coefficients(b, a, x):
    """b over a at x, highest power first, without rounding that would count."""
    return mpmath.polyval([mpf(c) for c in b], x) / mpmath.polyval([mpf(c) for c in a], x)


def decibels(value):
    return 20 * mpmath.log10(abs(value))
