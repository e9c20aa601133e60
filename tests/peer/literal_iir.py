"""The IIR designs and the root finder once more, in plain Python: slow, literal, sharing no code with the
library, so that the library's results can be compared with it bit for bit.

Python's floats are IEEE doubles and every operator rounds once, as every elementary function does. Complex
numbers are pairs (re, im), matrices lists of rows.
"""

import collections
import math
import os
import re

from exact_functions import NAN, asinh, atan2, cos, cosh, hypot, power, sin, sinh, sqrt, tan

PI = 3.141592653589793
HALF_PI = 1.5707963267948966
TINY = 2.2204e-16


def over(x, y):
    """x / y without Python's exception for a divisor of zero."""
    if y != 0.0:
        return x / y
    if x == 0.0 or x != x:
        return NAN
    return math.copysign(math.inf, x) * math.copysign(1.0, y)


# ---- complex numbers -------------------------------------------------------------------------------


def times(x, y):
    (a, b), (c, d) = x, y
    return (a * c - b * d, a * d + b * c)


def minus(x, y):
    return (x[0] - y[0], x[1] - y[1])


def plus(x, y):
    return (x[0] + y[0], x[1] + y[1])


def quotient(x, y):
    """No number where the divisor is zero or not finite."""
    (a, b), (c, d) = x, y
    if abs(c) >= abs(d):
        ratio = over(d, c)
        size = c + d * ratio
        top = (a + b * ratio, b - a * ratio)
    else:
        ratio = over(c, d)
        size = c * ratio + d
        top = (a * ratio + b, b * ratio - a)
    if size == 0.0 or not math.isfinite(size):
        return (NAN, NAN)
    return (top[0] / size, top[1] / size)


def phasor(angle):
    return (cos(angle), sin(angle))


def product(factors):
    result = (1.0, 0.0)
    for factor in factors:
        result = times(result, factor)
    return result


def polynomial(roots):
    """Monic, highest power first: convolution with [1, -root] after [1, -root]."""
    c = [(1.0, 0.0)]
    for root in roots:
        longer = c + [(0.0, 0.0)]
        for j in range(1, len(longer)):
            longer[j] = minus(longer[j], times(root, c[j - 1]))
        c = longer
    return c


def real_polynomial(roots):
    return [c[0] for c in polynomial(roots)]


# ---- eigenvalues -----------------------------------------------------------------------------------


def reduce_to_hessenberg(a):
    n = len(a)
    for c in range(n - 2):
        x, r = a[c + 1][c], c + 1
        for j in range(c + 2, n):
            if abs(a[j][c]) > abs(x):
                x, r = a[j][c], j
        if not abs(x) > TINY:
            continue
        if r != c + 1:
            for j in range(c, n):
                a[r][j], a[c + 1][j] = a[c + 1][j], a[r][j]
            for i in range(n):
                a[i][r], a[i][c + 1] = a[i][c + 1], a[i][r]
        for i in range(c + 2, n):
            y = a[i][c] / x
            a[i][c] = 0.0
            for j in range(c + 1, n):
                a[i][j] -= y * a[c + 1][j]
            for j in range(n):
                a[j][c + 1] += y * a[j][i]


def sweep(a, l, nn, shift_sum, shift_product, tol):
    """One double-shift sweep over rows and columns l .. nn."""
    for i in range(l + 2, nn + 1):
        a[i][i - 2] = 0.0
    for i in range(l + 3, nn + 1):
        a[i][i - 3] = 0.0
    for k in range(l, nn):
        if k == l:
            p = a[l][l + 1] * a[l + 1][l] + (a[l][l] - shift_sum) * a[l][l] + shift_product
            q = (a[l][l] + a[l + 1][l + 1] - shift_sum) * a[l + 1][l]
            r = a[l + 1][l] * a[l + 2][l + 1]
        else:
            p = a[k][k - 1]
            q = a[k + 1][k - 1]
            r = a[k + 2][k - 1] if k < nn - 1 else 0.0
        if abs(p) + abs(q) + abs(r) <= tol:
            continue
        s = sqrt(p * p + q * q + r * r)
        if not p >= 0.0:
            s = -s
        if k > l:
            a[k][k - 1] = -s
        ps, qs, rs = over(p, s), over(q, s), over(r, s)
        h = [
            [-ps, -qs, -rs],
            [-qs, ps + over(rs * r, s + p), over(-qs * r, s + p)],
            [-rs, over(-qs * r, s + p), ps + over(qs * q, s + p)],
        ]
        size = 2 if k == nn - 1 else 3
        for j in range(k, nn + 1):
            column = [a[k + m][j] for m in range(size)]
            for m in range(size):
                total = h[m][0] * column[0]
                for t in range(1, size):
                    total = total + h[m][t] * column[t]
                a[k + m][j] = total
        for i in range(l, min(k + 3, nn) + 1):
            row = [a[i][k + m] for m in range(size)]
            for m in range(size):
                total = h[m][0] * row[0]
                for t in range(1, size):
                    total = total + h[m][t] * row[t]
                a[i][k + m] = total


def first_row(a, nn, tol, if_both_zero=0.0):
    for l in range(nn, 0, -1):
        neighbours = abs(a[l - 1][l - 1]) + abs(a[l][l])
        if neighbours == 0.0:
            neighbours = if_both_zero
        if abs(a[l][l - 1]) <= tol * neighbours:
            return l
    return 0


def split_off(a, l, nn, found):
    """Stores the one or two eigenvalues of the bottom block."""
    if l == nn:
        found[nn] = (a[nn][nn], 0.0)
        return
    A, D = a[nn - 1][nn - 1], a[nn][nn]
    det = A * D - a[nn - 1][nn] * a[nn][nn - 1]
    p = -(A + D)
    disc = p * p - 4 * det
    t = sqrt(abs(disc))
    if disc > 0.0:
        sigma = -1.0 if p < 0.0 else 1.0
        z = (-p - sigma * t) * 0.5
        found[nn] = (z, 0.0)
        found[nn - 1] = (over(det, z), 0.0)
    else:
        found[nn] = (-p * 0.5, t * 0.5)
        found[nn - 1] = (-p * 0.5, -(t * 0.5))


def bottom_shifts(a, nn):
    x, y = a[nn][nn], a[nn - 1][nn - 1]
    w = a[nn][nn - 1] * a[nn - 1][nn]
    return x + y, x * y - w


def exceptional_shifts(d, e1, e2):
    s = abs(e1) + abs(e2)
    h = 0.75 * s + d
    return h + h, h * h - -0.4375 * s * s


def hessenberg_eigenvalues(a, tol, limit):
    """All eigenvalues as the bare iteration leaves them: None where the limit came first."""
    n = len(a)
    found = [None] * n
    nn, its = n - 1, 0
    while nn >= 0:
        l = first_row(a, nn, tol)
        if l >= nn - 1:
            split_off(a, l, nn, found)
            nn, its = l - 1, 0
            continue
        if its >= limit:
            break
        its += 1
        sweep(a, l, nn, *bottom_shifts(a, nn), tol)
    return found


def go_on(a, found):
    """The rest, with the conventional tolerance and exceptional shifts."""
    n, count = len(a), found.count(None)
    norm = 0.0
    for i in range(count):
        for j in range(max(i - 1, 0), count):
            norm += abs(a[i][j])
    nn, its, sweeps, exceptions = count - 1, 0, 0, 0
    while nn >= 0 and math.isfinite(norm):
        l = first_row(a, nn, 2.0**-52, norm)
        if l >= nn - 1:
            split_off(a, l, nn, found)
            nn, its = l - 1, 0
            continue
        if sweeps >= 30 * max(10, n):
            break
        shifts = bottom_shifts(a, nn)
        if sweeps == 0 or its == 10:
            if exceptions % 2 == 0:
                shifts = exceptional_shifts(a[nn][nn], a[nn][nn - 1], a[nn - 1][nn - 2])
            else:
                shifts = exceptional_shifts(a[l][l], a[l + 1][l], a[l + 2][l + 1])
            exceptions += 1
            its = 0
        its += 1
        sweeps += 1
        sweep(a, l, nn, *shifts, 1e-150)
    for i in range(count):
        if found[i] is None or not (math.isfinite(found[i][0]) and math.isfinite(found[i][1])):
            found[i] = (NAN, NAN)


# Counts of (tolerance, sweep limit, event): "calls", "limit" where the limit was met, "unfound" where an
# eigenvalue stayed unknown even after that.
events = collections.Counter()


def all_eigenvalues(a, tol, limit):
    found = hessenberg_eigenvalues(a, tol, limit)
    events[tol, limit, "calls"] += 1
    if None in found:
        events[tol, limit, "limit"] += 1
        go_on(a, found)
        events[tol, limit, "unfound"] += any(value[0] != value[0] for value in found)
    return found


def dense_eigenvalues(a, tol, limit):
    a = [row[:] for row in a]
    reduce_to_hessenberg(a)
    return all_eigenvalues(a, tol, limit)


def companion(first_row_entries):
    n = len(first_row_entries)
    rows = [first_row_entries]
    for i in range(1, n):
        rows.append([1.0 if j == i - 1 else 0.0 for j in range(n)])
    return rows


def roots(c, n):
    if n == 0:
        return []
    first = [over(-c[k], c[0]) for k in range(1, n)] + [-1.0]
    return dense_eigenvalues(companion(first), 1e-100, 60)


def companion_roots(c, n):
    if n == 0:
        return []
    return all_eigenvalues(companion([over(-c[k + 1], c[0]) for k in range(n)]), 1e-12, 10)


# ---- matrices --------------------------------------------------------------------------------------


def matmul(x, y):
    result = []
    for row in x:
        out = []
        for j in range(len(y[0])):
            total = 0.0
            for l in range(len(y)):
                total += row[l] * y[l][j]
            out.append(total)
        result.append(out)
    return result


def zeros_matrix(n):
    return [[0.0] * n for _ in range(n)]


def inverse(w):
    n = len(w)
    low, up, low_i, up_i = zeros_matrix(n), zeros_matrix(n), zeros_matrix(n), zeros_matrix(n)
    for i in range(n):
        low[i][i] = 1.0
        up[0][i] = w[0][i]
    for i in range(1, n):
        low[i][0] = over(w[i][0], up[0][0])
    for k in range(1, n):
        for j in range(k, n):
            total = 0.0
            for m in range(k):
                total += low[k][m] * up[m][j]
            up[k][j] = w[k][j] - total
        for i in range(k, n):
            total = 0.0
            for m in range(k):
                total += low[i][m] * up[m][k]
            low[i][k] = over(w[i][k] - total, up[k][k])
    for i in range(n):
        low_i[i][i] = over(1.0, low[i][i])
        for j in range(i + 1, n):
            total = 0.0
            for m in range(i, j):
                total += low[j][m] * low_i[m][i]
            low_i[j][i] = -low_i[i][i] * total
    for i in range(n):
        up_i[i][i] = over(1.0, up[i][i])
        for j in range(i - 1, -1, -1):
            total = 0.0
            for m in range(j + 1, i + 1):
                total += up[j][m] * up_i[m][i]
            up_i[j][i] = over(-1.0, up[j][j]) * total
    return matmul(up_i, low_i)


# ---- zeros, poles and gain to state space ----------------------------------------------------------


def compare(a, b):
    if abs(a[0] - b[0]) > TINY:
        return -1 if a[0] < b[0] else 1
    if abs(abs(a[1]) - abs(b[1])) > TINY:
        return -1 if abs(a[1]) > abs(b[1]) else 1
    if a[1] < 0.0 and b[1] >= 0.0:
        return -1
    if a[1] >= 0.0 and b[1] < 0.0:
        return 1
    return 0


def pair_conjugates(values):
    for i in range(1, len(values)):
        j = i
        while j > 0 and compare(values[j - 1], values[j]) > 0:
            values[j - 1], values[j] = values[j], values[j - 1]
            j -= 1

    def is_real(value):
        return abs(value[1]) < TINY

    for i in range(len(values)):
        if not is_real(values[i]):
            continue
        for j in range(i + 1, len(values)):
            swap = not is_real(values[j])
            swap = swap or values[j][0] > abs(values[i][0])
            swap = swap or (abs(values[i][0] - values[j][0]) < TINY and values[j][0] < TINY)
            if swap:
                values[i], values[j] = values[j], values[i]
                break


class Model:
    """State space: A list of rows, B and C lists, D a number."""

    def __init__(self):
        self.A, self.B, self.C, self.D = [], [], [], 1.0

    def connect(self, A1, B1, C1, D1):
        old = len(self.B)
        rows = [row + [0.0] * len(B1) for row in self.A]
        for i, b in enumerate(B1):
            rows.append([0.0 + b * c for c in self.C] + A1[i])
        self.A = rows
        self.B = self.B + [b * self.D for b in B1]
        self.C = [D1 * c for c in self.C] + C1
        self.D = D1 * self.D
        assert len(self.A) == old + len(B1)


def section(pair, numerator, D1):
    """A second-order block; numerator(den) gives its two coefficients."""
    den = real_polynomial(pair)
    wn = sqrt(1.0 * hypot(*pair[0]) * hypot(*pair[1]))
    if wn == 0.0:
        wn = 1.0
    T = [[1.0, 0.0], [0.0, over(1.0, wn)]]
    Ti = inverse(T)
    A1 = matmul(matmul(Ti, [[-den[1], -den[2]], [1.0, 0.0]]), T)
    B1 = [row[0] for row in matmul(Ti, [[1.0], [0.0]])]
    C1 = matmul([numerator(den)], T)[0]
    return A1, B1, C1, D1


def zp_to_state_space(z, p, k):
    pair_conjugates(z)
    pair_conjugates(p)
    model = Model()
    nz, np = len(z), len(p)
    if np % 2:
        if nz % 2:
            model.connect([[p[-1][0]]], [1.0], [p[-1][0] - z[-1][0]], 1.0)
            nz -= 1
        else:
            model.connect([[p[-1][0]]], [1.0], [1.0], 0.0)
        np -= 1
    for j in range(np // 2):
        pair = p[2 * j : 2 * j + 2]
        if 2 * j < nz:
            num = real_polynomial(z[2 * j : 2 * j + 2])
            model.connect(*section(pair, lambda den: [num[1] - den[1], num[2] - den[2]], 1.0))
        else:
            model.connect(*section(pair, lambda den: [0.0, 1.0], 0.0))
    model.C = [k * c for c in model.C]
    model.D = k * model.D
    return model


# ---- transformations -------------------------------------------------------------------------------


def column(values):
    return [[value] for value in values]


def flat(rows):
    return [value for row in rows for value in row]


def lp_to_lp(m, Wo):
    m.A = [[a * Wo for a in row] for row in m.A]
    m.B = [b * Wo for b in m.B]


def products_of_inverse(m):
    if not m.B:
        return [], [], [], 0.0
    Ai = inverse(m.A)
    CAi = matmul([m.C], Ai)
    return Ai, flat(matmul(Ai, column(m.B))), CAi[0], matmul(CAi, column(m.B))[0][0]


def lp_to_hp(m, Wo):
    Ai, AiB, CAi, CAiB = products_of_inverse(m)
    m.A = [[Wo * a for a in row] for row in Ai]
    m.B = [-Wo * b for b in AiB]
    m.C = CAi
    m.D = m.D - CAiB


def twice_the_states(m, top_left, Wo):
    n = len(m.B)
    rows = []
    for i in range(n):
        rows.append(top_left[i] + [Wo if j == i else 0.0 for j in range(n)])
    for i in range(n):
        rows.append([Wo * -1.0 if j == i else 0.0 for j in range(n)] + [0.0] * n)
    m.A = rows
    m.B = m.B + [0.0] * n
    m.C = m.C + [0.0] * n


def lp_to_bp(m, Wo, Bw):
    Q = over(Wo, Bw)
    m.B = [over(Wo * b, Q) for b in m.B]
    twice_the_states(m, [[over(a, Q) * Wo for a in row] for row in m.A], Wo)


def lp_to_bs(m, Wo, Bw):
    Q = over(Wo, Bw)
    Ai, AiB, CAi, CAiB = products_of_inverse(m)
    m.B = [over(b * -1.0 * Wo, Q) for b in AiB]
    m.C = CAi
    m.D = m.D - CAiB
    twice_the_states(m, [[over(Wo * a, Q) for a in row] for row in Ai], Wo)


def bilinear(m, fs):
    n = len(m.B)
    t = 1.0 / fs
    r = sqrt(t)
    if n == 0:
        m.D = t * 0.0 * 0.5 + m.D
        return
    unit = [[1.0 if i == j else 0.0 for j in range(n)] for i in range(n)]
    T1 = [[unit[i][j] + m.A[i][j] * t * 0.5 for j in range(n)] for i in range(n)]
    T2 = [[unit[i][j] - m.A[i][j] * t * 0.5 for j in range(n)] for i in range(n)]
    T2i = inverse(T2)
    Bt = flat(matmul(T2i, column(m.B)))
    Ct = matmul([m.C], T2i)
    s = matmul(Ct, column(m.B))[0][0]
    m.A = matmul(T2i, T1)
    m.B = [t * b / r for b in Bt]
    m.C = [c * r for c in Ct[0]]
    m.D = t * s * 0.5 + m.D


# ---- read-back -------------------------------------------------------------------------------------


def char_poly(a):
    return real_polynomial(dense_eigenvalues(a, 1e-11, 60))


def transfer_function(m):
    n = len(m.B)
    den = char_poly(m.A)
    difference = [[m.A[i][j] - (0.0 + m.B[i] * m.C[j]) for j in range(n)] for i in range(n)]
    num = char_poly(difference)
    return [num[i] + (m.D - 1.0) * den[i] for i in range(n + 1)], den


def zeros_poles_gain(m, want_zeros=True, want_poles=True):
    n = len(m.B)
    num, den = transfer_function(m)
    leading = next((c for c in num if abs(c) > 0.0001), num[n])
    zeros = roots(num, n) if want_zeros else None
    poles = companion_roots(den, n) if want_poles else None
    return zeros, poles, den[0] * leading


# ---- designs ---------------------------------------------------------------------------------------


def prepare_edges(wn, kind, analog):
    """(Wo, Bw); wn is overwritten for the band types."""
    u0 = u1 = 0.0
    if not analog:
        u0 = 4.0 * tan(PI * wn[0] * 0.5)
        if kind in (2, 3):
            u1 = 4.0 * tan(PI * wn[1] * 0.5)
    elif kind in (2, 3):
        u1 = wn[1]
    if kind in (2, 3):
        wn[:] = [sqrt(u1 * u0), 0.0]
        return wn[0], u1 - u0
    return (u0 if kind in (0, 1) else wn[0]), 0.0


def transformed(z, p, k, kind, Wo, Bw, digital):
    m = zp_to_state_space(z, p, k)
    if kind == 1:
        lp_to_hp(m, Wo)
    elif kind == 2:
        lp_to_bp(m, Wo, Bw)
    elif kind == 3:
        lp_to_bs(m, Wo, Bw)
    else:
        lp_to_lp(m, Wo)
    if digital:
        bilinear(m, 2.0)
    return m


def negative(x):
    return (x[0] * -1.0, x[1] * -1.0)


def butterworth_prototype(n):
    p = []
    for m in range(1, n // 2 + 1):
        q = phasor((2 * m - 1) * PI / (2 * n) + HALF_PI)
        p += [q, (q[0], -q[1])]
    if n % 2:
        p.append((-1.0, 0.0))
    return [], p, product(map(negative, p))[0]


def closed_zeros_and_gain(p, kind, n, Wo, gain_of_others):
    N = len(p)
    one = (1.0, 0.0)
    w = 2.0 * atan2(Wo, 4.0)
    if kind == 0:
        return [(-1.0, 0.0)] * N, over(product(minus(one, x) for x in p)[0], power(2.0, n))
    if kind == 1:
        return [one] * N, over(product(plus(one, x) for x in p)[0], power(2.0, n))
    if kind == 2:
        z = [one] * n + [(-1.0, 0.0)] * n
        at = phasor(w)
    elif kind == 3:
        z = [phasor(w * (-1.0 if i % 2 else 1.0)) for i in range(N)]
        at = one
    else:
        return [(0.0, 0.0)] * N, gain_of_others
    top, bottom = product(minus(at, x) for x in p), product(minus(at, x) for x in z)
    return z, quotient(top, bottom)[0]


def ellipse(n, mu):
    re = [cos((2 * i + 1) * PI / (2 * n) + HALF_PI) for i in range(n)]
    im = [sin((2 * i + 1) * PI / (2 * n) + HALF_PI) for i in range(n)]
    re, im = (
        [(re[i] + re[n - 1 - i]) * 0.5 for i in range(n)],
        [(im[i] - im[n - 1 - i]) * 0.5 for i in range(n)],
    )
    return [(sinh(mu) * re[i], cosh(mu) * im[i]) for i in range(n)]


def cheb1_prototype(n, rp):
    eps = sqrt(power(10.0, 0.1 * rp) - 1.0)
    p = ellipse(n, over(asinh(over(1.0, eps)), float(n)))
    k = product(p)[0]
    if n % 2 == 0:
        k = over(k, sqrt(power(eps, 2.0) + 1.0))
    return [], p, k


def cheb2_prototype(n, rs):
    delta = over(1.0, sqrt(power(10.0, 0.1 * rs) - 1.0))
    mu = over(asinh(over(1.0, delta)), float(n))
    if n % 2 == 0:
        v = [2 * i + 1 for i in range(n)]
    else:
        v = [2 * i + 1 if i < n // 2 else 2 * (i - n // 2) + n + 2 for i in range(n - 1)]
    m = len(v)
    z = [quotient((0.0, 1.0), (cos(x * PI / (2 * n)), 0.0)) for x in v]
    z = [z[i] for h in range(m // 2) for i in (h, m - 1 - h)]
    p = [quotient((1.0, 0.0), x) for x in ellipse(n, mu)]
    k = product(map(negative, p))
    if m:
        k = quotient(k, product(map(negative, z)))
    return z, p, k[0]


def coefficients(p, z, g):
    return real_polynomial(p), [g * c for c in real_polynomial(z)]


def butterworth(n, wn, kind, analog):
    Wo, Bw = prepare_edges(wn, kind, analog)
    m = transformed(*butterworth_prototype(n), kind, Wo, Bw, not analog)
    p = dense_eigenvalues(m.A, 1e-30, 60)
    return coefficients(p, *closed_zeros_and_gain(p, kind, n, Wo, 0.0))


def chebyshev1(n, rp, wn, kind, analog):
    Wo, Bw = prepare_edges(wn, kind, analog)
    prototype = cheb1_prototype(n, rp)
    m = transformed(*prototype, kind, Wo, Bw, not analog)
    p = dense_eigenvalues(m.A, 1e-30, 60)
    z, g = closed_zeros_and_gain(p, kind, n, Wo, prototype[2])
    return coefficients(p, z, g * (1.0 if n % 2 else power(10.0, -rp / 20.0)))


def chebyshev2(n, rs, wn, kind, analog):
    Wo, Bw = prepare_edges(wn, kind, analog)
    m = transformed(*cheb2_prototype(n, rs), kind, Wo, Bw, not analog)
    z, _, g = zeros_poles_gain(m, want_poles=False)
    return coefficients(dense_eigenvalues(m.A, 1e-30, 60), z, g)


def bessel_table():
    """The rows of the library's table, whose numbers are checked by a test of their own, and the two that a
    Bessel design has in their place: of order 4 two poles are not a pair, order 17 has its real pole at 0."""
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../src/iir/bessel_poles.inc")
    with open(path) as file:
        pairs = re.findall(r"^\{(\S+), (\S+)\},$", file.read(), re.MULTILINE)
    values = [(float(x), float(y)) for x, y in pairs]
    rows = {n: values[n * (n - 1) // 2 : n * (n + 1) // 2] for n in range(1, 26)}
    # As released: one pole twice instead of a pair, and a real pole whose value is an imaginary part.
    rows[4] = [rows[4][1], *rows[4][1:]]
    rows[17] = [(0.0, rows[17][0][0]), *rows[17][1:]]
    return rows


def bessel(n, wn, kind):
    p = list(bessel_table().get(n, [(0.0, 0.0)] * n))
    if kind in (2, 3):
        Bw = wn[1] - wn[0]
        wn[:] = [sqrt(wn[0] * wn[1]), 0.0]
    else:
        Bw = 0.0
    Wo = wn[0]
    m = transformed([], p, 1.0, kind, Wo, Bw, False)
    _, p, g = zeros_poles_gain(m, want_zeros=False)
    a = real_polynomial(p)
    return a, [0.0] * (len(a) - 1) + [g]
