"""Measures the IIR designs of the built library; prints tables in Markdown.

    TRELVANIX_LIBRARY=.../libTrelvanix.so python3 measure/accuracy/iir_accuracy.py

scripts/measure.sh iir_accuracy builds the library and writes docs/measured/iir_accuracy.md.

First table: up to which order a design's response is within 0.01 dB of the exact one, wherever the exact
one is above -100 dB, and the error of the first, third and fifth order after it; SciPy's transfer functions beside it.
Second table: how often the eigenvalue iterations meet their sweep limits (counted by the literal version,
whose results are the library's bit for bit), and what comes out then.
Third table: to which order b and a of a Bessel lowpass are what they should be, by its edge.
"""

import math
import sys
from pathlib import Path

import mpmath
import numpy as np
import scipy.signal

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "peer"))
import exact_iir as exact
import literal_iir as literal
import trelvanix_library as trelvanix

LARGEST_ORDER = 25
TOLERANCE = 0.01  # decibels
FLOOR = -100  # decibels
RIPPLE, ATTENUATION = 0.5, 60.0
TYPES = ("lowpass", "highpass", "bandpass", "bandstop")
EDGES = {
    "lowpass": ([0.3], [0.05], [0.01]),
    "highpass": ([0.3], [0.05], [0.01]),
    "bandpass": ([0.2, 0.5], [0.1, 0.15], [0.02, 0.03]),
    "bandstop": ([0.2, 0.5], [0.1, 0.15], [0.02, 0.03]),
}

FAMILIES = {
    "Butterworth": (
        trelvanix.Butterworth,
        lambda n: exact.butterworth_prototype(n),
        lambda n, wn, kind: scipy.signal.butter(n, wn, kind),
        (),
    ),
    "Chebyshev I": (
        trelvanix.Chebyshv1,
        lambda n: exact.chebyshev1_prototype(n, RIPPLE),
        lambda n, wn, kind: scipy.signal.cheby1(n, RIPPLE, wn, kind),
        (RIPPLE,),
    ),
    "Chebyshev II": (
        trelvanix.Chebyshv2,
        lambda n: exact.chebyshev2_prototype(n, ATTENUATION),
        lambda n, wn, kind: scipy.signal.cheby2(n, ATTENUATION, wn, kind),
        (ATTENUATION,),
    ),
}


def frequencies(edges, limit):
    """Points of (0, limit): evenly spaced, and dense around the edges."""
    points = set(np.linspace(0.0, limit, 62)[1:-1])
    width = edges[-1] - edges[0] if len(edges) == 2 else edges[0]
    for edge in edges:
        points |= {edge + width * step for step in np.linspace(-0.45, 0.45, 19)}
    return sorted(f for f in points if 0.0 < f < limit)


def error_in_decibels(b, a, filter_exact, points):
    """Largest deviation from the exact response; infinite where coefficients are no numbers."""
    if not (np.all(np.isfinite(b)) and np.all(np.isfinite(a))):
        return math.inf
    largest = 0.0
    for x in points:
        wanted = exact.decibels(exact.response(*filter_exact, x))
        got = exact.response_of_coefficients(b, a, x)
        got = exact.decibels(got) if got != 0 else mpmath.mpf(-1000)
        if max(wanted, got) > FLOOR:
            largest = max(largest, float(abs(max(got, FLOOR) - max(wanted, FLOOR))))
    return largest


def digital_errors(design, prototype, peer, parameters, kind, edges, order):
    points = [mpmath.expjpi(mpmath.mpf(f)) for f in frequencies(edges, 1.0)]
    wanted = exact.digital(prototype(order), edges, kind)
    a, b = design(order, *parameters, list(edges), kind)
    ours = error_in_decibels(b, a, wanted, points)
    with np.errstate(all="ignore"):
        b, a = peer(order, edges if len(edges) == 2 else edges[0], TYPES[kind])
    return ours, error_in_decibels(b, a, wanted, points)


def bessel_errors(kind, edges, order):
    """Of the denominators for every type, the numerator being no filter's but the lowpass's."""
    points = [mpmath.mpc(0, f) for f in frequencies(edges, 3.0 * edges[-1])]
    zeros, poles, gain = exact.analog(exact.bessel_prototype(order), edges, kind)
    a, b = trelvanix.Bessel(order, list(edges), kind)
    if kind == exact.LOWPASS:
        wanted, b = ([], poles, gain), [b[-1]]
        scipy_a = scipy.signal.bessel(order, edges[0], analog=True, norm="phase")[1]
        scipy_b = [scipy_a[-1]]
    else:
        wanted, b = ([], poles, 1), [1.0]
        scipy_a = scipy.signal.bessel(
            order, edges if len(edges) == 2 else edges[0], TYPES[kind], analog=True, norm="phase"
        )[1]
        scipy_b = [1.0]
    return error_in_decibels(b, a, wanted, points), error_in_decibels(scipy_b, scipy_a, wanted, points)


def shown(error):
    if error == math.inf:
        return "not a number"
    return f"{error:.1f} dB" if error >= 0.1 else f"{error:.1g} dB"


def row(errors_of, skipped=()):
    """Orders within the tolerance, and what comes two and five orders after the last of them."""
    orders = [order for order in range(1, LARGEST_ORDER + 1) if order not in skipped]
    errors = []
    good, peer_good = 0, 0
    for order in orders:
        errors.append(errors_of(order))
        if all(ours <= TOLERANCE for ours, _ in errors):
            good = order
        if all(theirs <= TOLERANCE for _, theirs in errors):
            peer_good = order
        if len(errors) >= 6 and errors[-6][0] > TOLERANCE and errors[-1][1] > TOLERANCE:
            break
    first_bad = orders.index(good) + 1 if good else 0
    later = [shown(errors[i][0]) if i < len(errors) else "" for i in (first_bad, first_bad + 2, first_bad + 4)]
    return good, later, peer_good


def accuracy_table():
    print("## Responses\n")
    print(f"Exact designs have fifty digits, from the closed formulas of the prototypes. Responses are compared "
          f"at some hundred frequencies, dense around the edges, wherever one of the two is above {FLOOR} dB. "
          f"Orders 1 to {LARGEST_ORDER}; ripple {RIPPLE} dB, attenuation {ATTENUATION:.0f} dB. \"Beyond\" are the "
          f"first, third and fifth order after the last one that is right; the last column is for SciPy's transfer "
          f"functions.\n")
    print("| Design | Type | Edges | Within 0.01 dB to order | 1st beyond | 3rd | 5th | SciPy to order |")
    print("|---|---|---|---|---|---|---|---|")
    for name, (design, prototype, peer, parameters) in FAMILIES.items():
        for kind, type_name in enumerate(TYPES):
            for edges in EDGES[type_name]:
                # The odd highpass and bandpass of type II have no palindromic numerator; see there.
                skipped = range(1, 26, 2) if name == "Chebyshev II" and kind in (1, 2) else ()

                def errors_of(order):
                    return digital_errors(design, prototype, peer, parameters, kind, edges, order)

                good, later, peer_good = row(errors_of, skipped)
                note = " (even orders)" if skipped else ""
                print(f"| {name} | {type_name}{note} | {edges} | {good} | {' | '.join(later)} | {peer_good} |")
    for kind, type_name in enumerate(TYPES):
        for edges in ([1.0],) if kind < 2 else ([1.0, 2.0], [1.0, 1.2]):
            good, later, peer_good = row(lambda order: bessel_errors(kind, edges, order), (4, 17))
            note = " (denominator)" if kind else ""
            print(f"| Bessel | {type_name}{note} | {edges} | {good} | {' | '.join(later)} | {peer_good} |")


CALLERS = {
    (1e-30, 60): "poles of a digital design",
    (1e-11, 60): "characteristic polynomial",
    (1e-12, 10): "roots of a denominator",
    (1e-100, 60): "zeros (Roots)",
}


def limits_row(name, requests):
    """requests: callables that make a design; counts what its eigenvalue iterations meet."""
    total, met, unfound = 0, 0, 0
    where = {}
    for request in requests:
        literal.events.clear()
        request()
        total += 1
        hit = {key[:2] for key, count in literal.events.items() if key[2] == "limit" and count}
        met += bool(hit)
        for key in hit:
            where[key] = where.get(key, 0) + 1
        unfound += any(count for key, count in literal.events.items() if key[2] == "unfound")
    places = ", ".join(f"{CALLERS[key]} {count}" for key, count in sorted(where.items()))
    print(f"| {name} | {total} | {met} | {places or 'nowhere'} | {unfound} |")


def limits_table():
    print("## Sweep limits of the eigenvalue iteration\n")
    print("What requests meet the limits of sweeps between two eigenvalues, and what isn't found beyond them.\n")
    print("| Requests | Designs | Meet a sweep limit | Where | Eigenvalues unfound |")
    print("|---|---|---|---|---|")
    for name, design, parameters in (
        ("Butterworth, order 1 to 12", literal.butterworth, ()),
        ("Chebyshev I, order 1 to 12", literal.chebyshev1, (RIPPLE,)),
        ("Chebyshev II, order 1 to 12", literal.chebyshev2, (ATTENUATION,)),
    ):
        limits_row(
            name + ", all types and edges above",
            [
                lambda o=o, e=e, k=k: design(o, *parameters, list(e), k, 0)
                for k, t in enumerate(TYPES)
                for e in EDGES[t]
                for o in range(1, 13)
            ],
        )
    for low, high in ((1, 9), (10, 25)):
        limits_row(
            f"Bessel lowpass and highpass, order {low} to {high}",
            [
                lambda o=o, e=e, k=k: literal.bessel(o, [e], k)
                for k in (0, 1)
                for e in (1.0, 6.28, 100.0)
                for o in range(low, high + 1)
            ],
        )
    limits_row(
        "Bessel bandpass and bandstop, order 1 to 12",
        [
            lambda o=o, e=e, k=k: literal.bessel(o, list(e), k)
            for k in (2, 3)
            for e in ([1.0, 2.0], [1.0, 1.2])
            for o in range(1, 13)
        ],
    )
    rng = np.random.default_rng(1)
    limits_row(
        "Roots, random coefficients, degree 2 to 40",
        [lambda n=n: literal.roots(list(rng.standard_normal(n)), n) for n in range(2, 41) for _ in range(3)],
    )

    def even(n):
        c = rng.standard_normal(n)
        c[1::2] = 0.0
        return list(c)

    limits_row(
        "Roots, even polynomials, degree 2 to 40",
        [lambda n=n: literal.roots(even(n), n) for n in range(2, 41, 2) for _ in range(3)],
    )
    limits_row("Roots, x^n + 1, degree 2 to 40", [lambda n=n: literal.roots([1.0] + [0.0] * (n - 1), n) for n in range(2, 41)])


def bessel_edges_table():
    """The gain is read from the first numerator coefficient above 0.0001, which may be rounding noise."""
    print("## Bessel lowpass filters by their edge\n")
    print("| Edge in rad/s | Gain within 0.01 dB to order | First gain beyond | Denominator within 1e-6 to order |")
    print("|---|---|---|---|")
    for edge in (0.01, 0.1, 1.0, 2 * math.pi, 20 * math.pi, 200 * math.pi, 2000 * math.pi):
        gain, denominator, beyond = 0, 0, ""
        gain_open = denominator_open = True
        for order in range(1, LARGEST_ORDER + 1):
            if order in (4, 17):
                continue
            a, b = trelvanix.Bessel(order, [edge], 0)
            error = abs(20.0 * math.log10(abs(b[-1]) / edge**order)) if b[-1] else math.inf
            wanted = exact.polynomial(exact.analog(exact.bessel_prototype(order), [edge], 0)[1])
            if gain_open and error > TOLERANCE:
                gain_open, beyond = False, f"{b[-1]:.2g} for {edge**order:.2g}"
            gain = order if gain_open else gain
            denominator_open = denominator_open and all(abs(x / y - 1) <= 1e-6 for x, y in zip(a, wanted))
            denominator = order if denominator_open else denominator
        print(f"| {edge:.4g} | {gain} | {beyond} | {denominator} |")


if __name__ == "__main__":
    accuracy_table()
    print()
    limits_table()
    print()
    bessel_edges_table()
