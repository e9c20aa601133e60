"""Every bit of Elliptic against the literal version in literal_elliptic.py.

TRELVANIX_LITERAL_CALLS sets the number of random calls.
"""

import math
import os
import random
import struct

import pytest

import literal_elliptic as literal
import trelvanix_library as trelvanix
from test_iir_literal import HOSTILE, assert_same, random_edges, random_kind

CALLS = int(os.environ.get("TRELVANIX_LITERAL_CALLS", "150"))


def compare(order, rp, rs, wn, kind, analog=0):
    ours, theirs = list(wn), list(wn)
    got = trelvanix.Elliptic(order, rp, rs, ours, kind, analog)
    expected = literal.elliptic(order, rp, rs, theirs, kind, analog)
    assert_same(f"elliptic{(order, rp, rs, wn, kind, analog)}", got, expected, ours, theirs)
    return got


def random_order(rng):
    """0 to 12; the high ones, which take a while in plain Python, less often."""
    return rng.randrange(13) if rng.randrange(4) == 0 else rng.randrange(7)


@pytest.mark.parametrize("analog", [0, 1])
@pytest.mark.parametrize("kind", [0, 1, 2, 3, 4, 7, 0xFFFFFFFF])
def test_designs_of_every_order_are_the_literal_ones(kind, analog):
    for order in range(13):
        compare(order, 0.5, 50.0, [0.2, 0.45], kind, analog)


def test_random_realistic_requests():
    rng = random.Random(301)
    for _ in range(2 * CALLS):
        kind = rng.randrange(4)
        wn = sorted([rng.uniform(0.02, 0.98), rng.uniform(0.02, 0.98)])
        compare(random_order(rng), rng.uniform(0.01, 3.0), rng.uniform(20.0, 120.0), wn, kind)


def test_random_requests_with_anything():
    rng = random.Random(302)

    def decibels(low, high):
        return rng.uniform(low, high) if rng.randrange(4) else rng.choice(HOSTILE)

    for _ in range(2 * CALLS):
        kind = random_kind(rng)
        rp, rs = decibels(-1.0, 10.0), decibels(-10.0, 300.0)
        compare(random_order(rng), rp, rs, random_edges(rng, kind), kind, rng.choice([0, 0, 0, 1, -5]))


@pytest.mark.parametrize("kind", range(4))
def test_ripples_that_leave_no_selectivity(kind):
    # k1 at, above and closely below 1, and orders that round k to 1.
    for order in (1, 2, 3, 4, 7):
        for rs in (0.5, 0.25, math.nextafter(0.5, 1.0), 0.5 + 1e-12, 0.5001, 0.6):
            compare(order, 0.5, rs, [0.2, 0.45], kind)
    for order in (9, 10, 12):
        for rs in (0.6, 1.0, 3.0):
            compare(order, 0.5, rs, [0.2, 0.45], kind)


@pytest.mark.parametrize("kind", range(4))
def test_moduli_for_which_the_nome_is_used(kind):
    # k1 below 1e-6, on both sides of it, and with ripples so small that 10^(rp/10) - 1 is rounding or 0.
    for order in (1, 2, 3, 4, 5):
        for rp, rs in ((0.1, 103.6), (0.1, 103.7), (0.1, 120.0), (3.0, 150.0), (1e-9, 40.0), (1e-14, 40.0),
                       (1e-15, 40.0), (1e-16, 40.0), (0.0, 40.0), (-0.0, 40.0), (0.1, 5000.0)):  # fmt: skip
            compare(order, rp, rs, [0.2, 0.45], kind)


def test_tiny_and_huge_ripples():
    rng = random.Random(303)
    for _ in range(CALLS):
        rp, rs = (10.0 ** rng.uniform(-17.0, 3.6) for _ in range(2))
        compare(rng.randrange(1, 6), rp, rs, [0.2, 0.45], rng.randrange(4))


def test_the_comparison_sees_a_single_bit():
    a, b = trelvanix.Elliptic(4, 0.5, 50.0, [0.2, 0.45], 2)
    expected = literal.elliptic(4, 0.5, 50.0, [0.2, 0.45], 2, 0)
    next_up = struct.unpack("<d", struct.pack("<q", struct.unpack("<q", struct.pack("<d", a[3]))[0] + 1))[0]
    with pytest.raises(AssertionError):
        assert_same("changed", (a[:3] + [next_up] + a[4:], b), expected)
