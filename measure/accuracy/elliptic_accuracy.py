"""How often elliptic designs keep their masks, as tables in Markdown.

A design keeps its mask if, where its edges say, the passband's loss is between 0 and the ripple and the
stopband's at least the attenuation, each within TOLERANCE decibels. Where the stopband begins is computed
with fifty digits from the order, the ripple and the attenuation; the responses of the coefficients are
evaluated in extended precision, so that only the coefficients count. SciPy's coefficients stand beside.

    TRELVANIX_LIBRARY=.../libTrelvanix.so python3 measure/accuracy/elliptic_accuracy.py

scripts/measure.sh elliptic_designs builds the library and writes docs/measured/elliptic_designs.md.
"""

import functools
import random
import sys
from pathlib import Path

import mpmath
import numpy as np
import scipy.signal

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "peer"))
import test_minimum_order as orders
import trelvanix_library as trelvanix

TOLERANCE = 0.1  # decibels
NAMES = ("lowpass", "highpass", "bandpass", "bandstop")
LOWPASS, HIGHPASS, BANDPASS, BANDSTOP = range(4)
POINTS = 100  # in each band


def modulus(order, rp, rs):
    """k of the degree equation; a lowpass with the passband edge 1 has the stopband edge 1 / k."""
    m1 = (mpmath.mpf(10) ** (mpmath.mpf(rp) / 10) - 1) / (mpmath.mpf(10) ** (mpmath.mpf(rs) / 10) - 1)
    q = mpmath.exp(-mpmath.pi * mpmath.ellipk(1 - m1) / mpmath.ellipk(m1) / order)
    return (mpmath.jtheta(2, 0, q) / mpmath.jtheta(3, 0, q)) ** 2


def bands(order, rp, rs, wn, kind):
    """Passbands and stopbands, fractions of Nyquist."""
    k = modulus(order, rp, rs)
    w = [mpmath.tan(mpmath.pi * mpmath.mpf(edge) / 2) for edge in wn]
    if kind == LOWPASS:
        stop = [w[0] / k]
    elif kind == HIGHPASS:
        stop = [w[0] * k]
    else:
        half = (w[1] - w[0]) / 2 * (1 / k if kind == BANDPASS else k)
        root = mpmath.sqrt(half * half + w[0] * w[1])
        stop = [root - half, root + half]
    stop = [float(2 / mpmath.pi * mpmath.atan(x)) for x in stop]
    below_and_above = [(0.0, wn[0]), (wn[-1], 1.0)]
    return {
        LOWPASS: ([(0.0, wn[0])], [(stop[0], 1.0)]),
        HIGHPASS: ([(wn[0], 1.0)], [(0.0, stop[0])]),
        BANDPASS: ([tuple(wn)], [(0.0, stop[0]), (stop[-1], 1.0)]),
        BANDSTOP: (below_and_above, [tuple(stop)]),
    }[kind]


def losses(filter_, bands_):
    """In decibels, at more points near the edges, which are among them."""
    a, b = (np.array(c, dtype=np.longdouble) for c in filter_)
    x = 0.5 - 0.5 * np.cos(np.pi * np.linspace(0.0, 1.0, POINTS))
    angle = np.arccos(np.longdouble(-1.0)) * np.concatenate([low + (high - low) * x for low, high in bands_])
    z = np.cos(angle) + 1j * np.sin(angle)
    with np.errstate(all="ignore"):
        return -20.0 * np.log10(np.abs(np.polyval(b, z) / np.polyval(a, z)))


def keeps_mask(filter_, rp, rs, passbands, stopbands):
    """Not if it is no filter: comparisons with not-a-number are false."""
    inside, outside = losses(filter_, passbands), losses(filter_, stopbands)
    return bool(
        np.all((inside >= -TOLERANCE) & (inside <= rp + TOLERANCE)) and np.all(outside >= rs - TOLERANCE)
    )


def scipy_design(order, rp, rs, wn, kind):
    with np.errstate(all="ignore"):
        b, a = scipy.signal.ellip(order, rp, rs, wn if len(wn) == 2 else wn[0], NAMES[kind])
    return a, b


def kept(requests):
    """Shares of the requests whose design keeps its mask, the library's and SciPy's."""
    ours, scipys, count = 0, 0, 0
    for order, rp, rs, wn, kind in requests:
        mask = bands(order, rp, rs, wn, kind)
        ours += keeps_mask(trelvanix.Elliptic(order, rp, rs, list(wn), kind), rp, rs, *mask)
        scipys += keeps_mask(scipy_design(order, rp, rs, wn, kind), rp, rs, *mask)
        count += 1
    return f"{100.0 * ours / count:.0f} % ({100.0 * scipys / count:.0f} %)"


def random_request(rng, kind, orders_, rs=None, width=None):
    rp = rng.uniform(0.1, 3.0)
    rs = rng.uniform(30.0, 80.0) if rs is None else rs
    if width is not None:
        low = rng.uniform(0.05, 0.9 - width)
        wn = [low, low + width]
    elif kind in (BANDPASS, BANDSTOP):
        wn = [0.0, 0.0]
        while wn[1] - wn[0] < 0.05:
            wn = sorted([rng.uniform(0.05, 0.9), rng.uniform(0.05, 0.9)])
    else:
        wn = [rng.uniform(0.05, 0.9)]
    return rng.choice(orders_), rp, rs, wn, kind


def table(heading, columns, rows):
    """rows: (name, makers), a maker being a function that makes one random request."""
    print("| " + " | ".join([heading] + columns) + " |")
    print("|---" * (len(columns) + 1) + "|")
    for name, makers in rows:
        rng = random.Random(1)
        cells = [kept([maker(rng) for _ in range(count)]) for maker, count in makers]
        print("| " + " | ".join([name] + cells) + " |")
    print()


def by_order():
    print("## By order\n")
    print(f"Random requests: ripple 0.1 to 3 dB, attenuation 30 to 80 dB, edges 0.05 to 0.9, bands at least 0.05 "
          f"wide. The share of designs that keep their mask within {TOLERANCE} dB, in brackets that of SciPy's "
          f"transfer functions.\n")
    groups = [(2, 4), (6, 8), (10,), (3, 5), (7, 9)]
    table(
        "Type",
        ["order " + ", ".join(map(str, group)) for group in groups],
        [
            (NAMES[kind], [(functools.partial(random_request, kind=kind, orders_=group), 200) for group in groups])
            for kind in range(4)
        ],
    )


def palindromic(kind, largest=8):
    step = 2 if kind in (HIGHPASS, BANDPASS) else 1
    return list(range(2, largest + 1, step))


def by_attenuation():
    print("## By attenuation\n")
    attenuations = range(70, 150, 10)
    table(
        "Type, orders 2 to 8",
        [f"{rs} dB" for rs in attenuations],
        [
            (
                NAMES[kind] + (" (even orders)" if kind in (HIGHPASS, BANDPASS) else ""),
                [
                    (functools.partial(random_request, kind=kind, orders_=palindromic(kind), rs=float(rs)), 100)
                    for rs in attenuations
                ],
            )
            for kind in range(4)
        ],
    )


def by_bandwidth():
    print("## By the width of the band\n")
    widths = (0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.4)
    rows = []
    for kind in (BANDPASS, BANDSTOP):
        for orders_ in ([2], [4], [6], [8]) if kind == BANDPASS else ([2, 3], [4, 5], [6, 7], [8]):
            makers = [
                (functools.partial(random_request, kind=kind, orders_=orders_, width=width), 60) for width in widths
            ]
            rows.append((f"{NAMES[kind]}, order {' and '.join(map(str, orders_))}", makers))
    table("Width of the band", [f"{width}" for width in widths], rows)


def by_edge():
    print("## By the edge\n")
    edges = ((0.01, 0.02), (0.02, 0.05), (0.05, 0.1), (0.1, 0.2), (0.2, 0.5), (0.5, 0.9))

    def request(rng, kind, orders_, edge):
        order, rp, rs, _, _ = random_request(rng, kind, orders_)
        return order, rp, rs, [rng.uniform(*edge)], kind

    rows = []
    for kind in (LOWPASS, HIGHPASS):
        for orders_ in ([2], [4], [6], [8]) if kind == HIGHPASS else ([2, 3], [4, 5], [6, 7], [8]):
            makers = [(functools.partial(request, kind=kind, orders_=orders_, edge=edge), 60) for edge in edges]
            rows.append((f"{NAMES[kind]}, order {' and '.join(map(str, orders_))}", makers))
    table("Edge", [f"{low} to {high}" for low, high in edges], rows)


def estimated_orders():
    """Where the order estimated and the edges returned don't give a design that keeps the mask."""
    print("## Estimated orders\n")
    print("Designs of the order and the edges that FilterMinimumOrder gives; orders up to 8, attenuation up to 50 "
          "dB.\n")
    families = ("Butterworth", "Chebyshev I", "Chebyshev II", "elliptic")
    print("| Family | Type | Designs | Keep the mask | Worst shortfall | Keep it with one order more | two more |")
    print("|---|---|---|---|---|---|---|")
    for family in orders.FAMILIES:
        for kind in orders.TYPES:
            count, kept_, later, worst = 0, 0, [0, 0], 0.0
            # One order more is an odd one where those are left out.
            step = 2 if family in (orders.CHEBYSHEV2, orders.ELLIPTIC) and kind in (HIGHPASS, BANDPASS) else 1
            for order, wn, edges, rp, rs in orders.moderate_requests(family, kind, 3000 + 10 * family + kind):

                def shortfall(order):
                    filter_ = orders.design(family, order, rp, rs, wn, kind)
                    least, largest, stopped = orders.losses(filter_, edges, kind)
                    return max(-least, largest - rp, rs - stopped)

                count += 1
                short = shortfall(order)
                kept_ += short <= TOLERANCE
                worst = max(worst, short)
                for i in range(2):
                    later[i] += short <= TOLERANCE or shortfall(order + (i + 1) * step) <= TOLERANCE
            note = " (even orders)" if step == 2 else ""
            print(
                f"| {families[family]} | {NAMES[kind]}{note} | {count} | {100.0 * kept_ / count:.0f} % "
                f"| {f'{worst:.1f} dB' if worst > TOLERANCE else 'none'} "
                f"| {100.0 * later[0] / count:.0f} % | {100.0 * later[1] / count:.0f} % |"
            )
    print()


if __name__ == "__main__":
    by_order()
    by_attenuation()
    by_bandwidth()
    by_edge()
    estimated_orders()
