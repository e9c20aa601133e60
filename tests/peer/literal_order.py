"""The estimation of the minimum order once more, in plain Python: slow, literal, sharing no code with the
library, so that the library's results can be compared with it bit for bit.
"""

import math

from exact_functions import NAN, acosh, atan, log10, power, sqrt, tan
from literal_elliptic import TWO_OVER_PI, elliptic_k_by_agm
from literal_iir import PI, over

BUTTERWORTH, CHEBYSHEV1, CHEBYSHEV2, ELLIPTIC, BESSEL = range(5)
LOWPASS, HIGHPASS, BANDSTOP, BANDPASS = 1, 2, 3, 4
INT_MIN = -(2**31)


def to_int(value):
    """Truncated; the most negative int where that is no int."""
    if not -2147483649.0 < value < 2147483648.0:
        return INT_MIN
    return int(value)


def ceiling(value):
    return float(math.ceil(value)) if math.isfinite(value) else value


# ---- minimiser -------------------------------------------------------------------------------------


def sign(value):
    return -1.0 if value < 0.0 else 1.0


def minimum(objective, lo, hi):
    """Where the objective is smallest: golden sections and parabolas. Source: Brent 1973."""
    if not (math.isfinite(lo) and math.isfinite(hi)):
        return NAN
    fraction = (3.0 - sqrt(5.0)) * 0.5
    x = second = previous = lo + fraction * (hi - lo)
    fx = f_second = f_previous = objective(x)
    step = before_last = 0.0
    while True:
        m = (lo + hi) * 0.5
        tol1 = abs(x) * sqrt(2.2204e-16) + 3.3333333333333335e-5
        tol2 = 2.0 * tol1
        if abs(x - m) <= tol2 - (hi - lo) * 0.5:
            return x
        golden = True
        if abs(before_last) > tol1:
            r = (x - second) * (fx - f_previous)
            q = (x - previous) * (fx - f_second)
            p = (x - previous) * q - (x - second) * r
            q = 2.0 * (q - r)
            if q > 0.0:
                p = -p
            q = abs(q)
            limit, before_last = before_last, step
            if abs(p) < abs(0.5 * q * limit) and p > q * (lo - x) and p < q * (hi - x):
                golden = False
                step = over(p, q)
                trial = x + step
                if trial - lo < tol2 or hi - trial < tol2:
                    step = tol1 * sign(m - x)
        if golden:
            before_last = hi - x if x < m else lo - x
            step = fraction * before_last
        trial = x + sign(step) * (abs(step) if abs(step) > tol1 else tol1)
        f_trial = objective(trial)
        if f_trial <= fx:
            if trial >= x:
                lo = x
            else:
                hi = x
            previous, f_previous = second, f_second
            second, f_second = x, fx
            x, fx = trial, f_trial
        else:
            if trial < x:
                lo = trial
            else:
                hi = trial
            if f_trial <= f_second or second == x:
                previous, f_previous = second, f_second
                second, f_second = trial, f_trial
            elif f_trial <= f_previous or previous == x or previous == second:
                previous, f_previous = trial, f_trial


# ---- estimation ------------------------------------------------------------------------------------


def selectivity(wp, ws, kind):
    smallest = math.inf
    for i in range(len(wp)):
        if kind == LOWPASS:
            value = over(ws[i], wp[i])
        elif kind == HIGHPASS:
            value = over(wp[i], ws[i])
        elif kind == BANDSTOP:
            value = over((wp[0] - wp[1]) * ws[i], power(ws[i], 2.0) - wp[1] * wp[0])
        else:
            value = over(power(ws[i], 2.0) - wp[1] * wp[0], (wp[0] - wp[1]) * ws[i])
        if abs(value) < smallest:
            smallest = abs(value)
    return smallest


def excess(decibels):
    return power(10.0, 0.1 * decibels) - 1.0


def real_order(family, wa, ripple, attenuation):
    """The family's order formula before it is rounded up."""
    if family == ELLIPTIC:
        k = over(1.0, wa)
        parameter = power(k, 2.0)
        parameter1 = power(over(sqrt(excess(ripple)), sqrt(excess(attenuation))), 2.0)
        K = elliptic_k_by_agm
        return over(K(parameter) * K(1.0 - parameter1), K(1.0 - parameter) * K(parameter1))
    ratio = over(excess(abs(attenuation)), excess(abs(ripple)))
    if family == BUTTERWORTH:
        return over(log10(ratio), 2.0 * log10(wa))
    return over(acosh(sqrt(ratio)), acosh(wa))


def butterworth_frequencies(wp, wa, kind, attenuation, order):
    W0 = over(wa, power(excess(abs(attenuation)), over(1.0, 2.0 * float(order))))
    if kind == LOWPASS:
        return [W0 * w for w in wp]
    if kind == HIGHPASS:
        return [over(w, W0) for w in wp]
    d = wp[1] - wp[0]
    if kind == BANDSTOP:
        root = sqrt(power(d, 2.0) + 4.0 * power(W0, 2.0) * wp[0] * wp[1])
        result = [abs(over(root + d, 2.0 * W0)), abs(over(d - root, 2.0 * W0))]
    else:
        root = sqrt(0.25 * power(W0, 2.0) * power(d, 2.0) + wp[0] * wp[1])
        result = [root + W0 * d * 0.5, root - W0 * d * 0.5]
    return [result[1], result[0]] if result[1] < result[0] else result


def minimum_order(family, edges, ripple, attenuation, wn):
    """The order, None where none is written; wn is overwritten. The edge count is that of the list."""
    if family not in range(5):
        return None
    if family == BESSEL:
        if len(edges) == 2:
            wn[0] = 0.1
        return 1
    h = len(edges) // 2
    kind = 2 if len(edges) == 4 else 0
    kind += 1 if edges and edges[h] > edges[0] else 2
    wp = [tan(edge * PI * 0.5) for edge in edges[:h]]
    ws = [tan(edge * PI * 0.5) for edge in edges[h : 2 * h]]

    if kind == BANDSTOP:

        def with_edge(index):
            def objective(trial):
                moved = list(wp)
                moved[index] = trial
                return real_order(family, selectivity(moved, ws, kind), ripple, attenuation)

            return objective

        wp[0] = minimum(with_edge(0), wp[0], ws[0] - 1e-12)
        wp[1] = minimum(with_edge(1), ws[1] + 1e-12, wp[1])

    wa = selectivity(wp, ws, kind)
    order = to_int(ceiling(real_order(family, wa, ripple, attenuation)))
    if family == BUTTERWORTH:
        natural = butterworth_frequencies(wp, wa, kind, attenuation, order)
        wn[:h] = [atan(w) * TWO_OVER_PI for w in natural]
    elif family == CHEBYSHEV2:
        wn[:h] = edges[h : 2 * h]
    else:
        wn[:h] = edges[:h]
    return order
