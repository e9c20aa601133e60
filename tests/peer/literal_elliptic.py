"""The elliptic functions and the elliptic design once more, in plain Python: slow, literal, sharing no code
with the library, so that the library's results can be compared with it bit for bit.

The conventions are those of literal_iir.py: complex numbers are pairs (re, im). All arguments u stand for
u times the quarter period K(k).
"""

import math

import literal_iir as iir
from exact_functions import asinh, atan2, cos, cosh, exp, fmod, hypot, log, power, sin, sinh, sqrt
from literal_iir import HALF_PI, PI, TINY, over, plus, product, quotient, times

K_MIN = 1e-6
K_MAX = sqrt(1.0 - power(K_MIN, 2.0))
TWO_OVER_PI = 0.6366197723675814


def scaled(factor, x):
    return (factor * x[0], factor * x[1])


# ---- elementary functions of complex numbers -------------------------------------------------------
# The formulas of Kahan 1987, in functions and operations that round once each.


def complex_sine(z):
    x, y = z
    return (sin(x) * cosh(y), cos(x) * sinh(y))


def complex_cosine(z):
    x, y = z
    return (cos(x) * cosh(y), -(sin(x) * sinh(y)))


def complex_square_root(z):
    x, y = z
    if x == 0.0 and y == 0.0:
        return (0.0, y)
    t = sqrt((abs(x) + hypot(x, y)) * 0.5)
    if x >= 0.0:
        return (t, over(y, 2.0 * t))
    return (over(abs(y), 2.0 * t), math.copysign(t, y))


def complex_arc_cosine(z):
    x, y = z
    p = complex_square_root((1.0 + x, y))
    m = complex_square_root((1.0 - x, -y))
    return (2.0 * atan2(m[0], p[0]), asinh(p[0] * m[1] - p[1] * m[0]))


# ---- moduli and integrals --------------------------------------------------------------------------


def symmetric_remainder(x, y):
    z = fmod(x, y)
    if z > y / 2.0:
        return z - y
    if z < -y / 2.0:
        return z + y
    return z


def complement(k):
    return sqrt(1.0 - power(k, 2.0))


def landen_moduli(k):
    """The sequence ends with the first modulus that is tiny, no number, or not smaller than the one before."""
    moduli = []
    last = k
    while last > TINY:
        following = power(over(last, 1.0 + complement(last)), 2.0)
        moduli.append(following)
        if not following < last:
            break
        last = following
    return moduli


def quarter_period(k):
    result = 1.0
    for modulus in landen_moduli(k):
        result *= 1.0 + modulus
    return HALF_PI * result


def elliptic_k(k):
    """K of the modulus k and of its complement."""
    if k == 0.0:
        return math.inf, math.inf
    prime = complement(k)
    if k > K_MAX:
        L = log(prime * 0.25)
        K = power(prime, 2.0) * (-L - 1.0) * 0.25 + (-L)
    else:
        K = quarter_period(k)
    if k < K_MIN:
        L = log(k * 0.25)
        K_prime = (-L - 1.0) * power(k, 2.0) * 0.25 + (-L)
    else:
        K_prime = quarter_period(prime)
    return K, K_prime


def elliptic_k_by_agm(m):
    """K of the parameter m, the square of the modulus; 0 for m = 0."""
    if m == 0.0:
        return 0.0
    if m == 1.0:
        return math.inf
    a, b, i = 1.0, sqrt(1.0 - m), 0
    while True:
        following = sqrt(a * b)
        i += 1
        c = power((a - b) / 2.0, 2.0)
        w = c * power(2.0, float(i))
        a = (a + b) / 2.0
        b = following
        # No number ends it like a small one. For parameters below -10^15 the means can stay one rounding
        # apart, larger than the tolerance, for ever.
        if not w > TINY or i == 64:
            return over(PI, 2.0 * a)


# ---- functions -------------------------------------------------------------------------------------


def ascend(w, k):
    for modulus in reversed(landen_moduli(k)):
        w = over((1.0 + modulus) * w, 1.0 + modulus * power(w, 2.0))
    return w


def ascend_complex(w, k):
    for modulus in reversed(landen_moduli(k)):
        square = times(w, w)
        w = quotient(scaled(1.0 + modulus, w), plus((1.0, 0.0), scaled(modulus, square)))
    return w


def cd(u, k):
    return ascend(cos(u * PI * 0.5), k)


def sn(u, k):
    return ascend(sin(u * PI * 0.5), k)


def cd_complex(u, k):
    return ascend_complex(complex_cosine(scaled(HALF_PI, u)), k)


def sn_complex(u, k):
    return ascend_complex(complex_sine(scaled(HALF_PI, u)), k)


def inverse_cd_complex(w, k):
    before = k
    for modulus in landen_moduli(k):
        inner = scaled(power(before, 2.0), times(w, w))
        root = complex_square_root((1.0 - inner[0], 0.0 - inner[1]))
        w = quotient(w, plus((1.0, 0.0), root))
        w = (over(w[0] * 2.0, 1.0 + modulus), over(w[1] * 2.0, 1.0 + modulus))
        before = modulus
    u = scaled(TWO_OVER_PI, complex_arc_cosine(w))
    K, K_prime = elliptic_k(k)
    R = over(K_prime, K)
    return (symmetric_remainder(u[0], 4.0), symmetric_remainder(u[1], 2.0 * R))


def inverse_sn_complex(w, k):
    u = inverse_cd_complex(w, k)
    return (1.0 - u[0], 0.0 - u[1])


# ---- degree equation -------------------------------------------------------------------------------


def positions(n):
    return [(2 * i - 1) / n for i in range(1, n // 2 + 1)]


def elliptic_degree(N, k1):
    if k1 < 1e-6:
        return elliptic_degree_by_nome(N, k1)
    k1_prime = complement(k1)
    values = 1.0
    for u in positions(N):
        values *= sn(u, k1_prime)
    kp = power(k1_prime, float(N)) * power(values, 4.0)
    return sqrt(1.0 - power(kp, 2.0))


def elliptic_degree_by_nome(N, k1):
    """Of the N-th power of the nome, where the degree equation would have the N-th root."""
    K, K_prime = elliptic_k(k1)
    q = power(exp(over(-PI * K_prime, K)), float(N))
    A = B = 0.0
    for m in range(1, 8):
        A = A + power(q, float(m * (m + 1)))
        B = B + power(q, float(m * m))
    return over(4.0 * sqrt(q) * (1.0 + A), power(1.0 + 2.0 * B, 2.0))


# ---- design ----------------------------------------------------------------------------------------


def with_conjugates(values):
    result = []
    for re, im in values:
        result += [(re, im), (re, -im)]
    iir.pair_conjugates(result)
    return result


def elliptic_prototype(n, rp, rs):
    Gp = power(10.0, rp * -1.0 / 20.0)
    ep = sqrt(power(10.0, rp / 10.0) - 1.0)
    es = sqrt(power(10.0, rs / 10.0) - 1.0)
    k1 = over(ep, es)
    k = elliptic_degree(n, k1)
    r = n % 2
    u = positions(n)

    z = []
    for x in u:
        size = k * cd(x, k)
        z.append((over(0.0, size), over(1.0, size)))

    re, im = inverse_sn_complex((over(0.0, ep), over(1.0, ep)), k1)
    v0 = quotient((im, -re), (float(n), 0.0))

    p = []
    for x in u:
        w = cd_complex((x + v0[1], -v0[0]), k)
        p.append((-w[1], w[0]))
    z, p = with_conjugates(z), with_conjugates(p)
    if r:
        w = sn_complex((-v0[1], v0[0]), k)
        p.append((-w[1], w[0]))

    H0 = power(Gp, 1.0 - r)
    gain = abs(quotient(product(p), product(z))[0] * H0)
    return z, p, gain


def elliptic(n, rp, rs, wn, kind, analog):
    Wo, Bw = iir.prepare_edges(wn, kind, analog)
    m = iir.transformed(*elliptic_prototype(n, rp, rs), kind, Wo, Bw, not analog)
    z, p, g = iir.zeros_poles_gain(m)
    return iir.coefficients(p, z, g)
