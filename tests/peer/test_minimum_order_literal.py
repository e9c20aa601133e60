"""Every bit of FilterMinimumOrder against the literal version in literal_order.py.

TRELVANIX_LITERAL_CALLS sets the number of random calls.
"""

import math
import os
import random

import pytest

import literal_order as literal
import trelvanix_library as trelvanix
from test_iir_literal import HOSTILE, bits

CALLS = int(os.environ.get("TRELVANIX_LITERAL_CALLS", "1000"))
UNTOUCHED = trelvanix.UNTOUCHED
FAMILIES = range(5)


def compare(family, edges, ripple, attenuation):
    ours, theirs = ([UNTOUCHED] * max(len(edges) // 2, 1) for _ in range(2))
    call = f"minimum_order{(family, edges, ripple, attenuation)}"
    got = trelvanix.FilterMinimumOrder(family, edges, ripple, attenuation, ours)
    expected = literal.minimum_order(family, edges, ripple, attenuation, theirs)
    assert got == expected, f"{call}: order is {got}, literal {expected}"
    assert bits(ours) == bits(theirs), f"{call}: wn is {ours}, literal {theirs}"


def ordered_edges(rng, kind, low=0.005, high=0.995):
    """Edges, passband first, of a lowpass, highpass, bandpass or bandstop (kind 0 to 3)."""
    e = sorted(rng.uniform(low, high) for _ in range(2 if kind < 2 else 4))
    if kind == 0:
        return e
    if kind == 1:
        return e[::-1]
    inner, outer = e[1:3], [e[0], e[3]]
    return inner + outer if kind == 2 else outer + inner


@pytest.mark.parametrize("family", FAMILIES)
@pytest.mark.parametrize("kind", range(4))
def test_random_realistic_requests(family, kind):
    rng = random.Random(400 + 10 * family + kind)
    for _ in range(2 * CALLS):
        compare(family, ordered_edges(rng, kind), rng.uniform(0.01, 6.0), rng.uniform(10.0, 120.0))


@pytest.mark.parametrize("family", FAMILIES)
def test_random_requests_with_anything(family):
    rng = random.Random(500 + family)

    def number(low, high):
        return rng.uniform(low, high) if rng.randrange(5) else rng.choice(HOSTILE)

    for _ in range(5 * CALLS):
        edges = [number(-0.2, 2.3) for _ in range(rng.choice([2, 4]))]
        compare(family, edges, number(-5.0, 200.0), number(-200.0, 200.0))


@pytest.mark.parametrize("family", FAMILIES)
def test_edges_that_coincide_or_touch(family):
    for first in (0.0, 0.2, 0.5, 1.0, 2.0):
        for second in (0.0, 0.2, 0.5, 1.0, 2.0):
            compare(family, [first, second], 1.0, 40.0)
            compare(family, [first, second, first, second], 1.0, 40.0)
            compare(family, [first, second, 0.2, 0.5], 1.0, 40.0)
            compare(family, [0.2, 0.5, first, second], 1.0, 40.0)
            compare(family, [first, math.nextafter(first, 3.0)], 1.0, 40.0)


@pytest.mark.parametrize("family", FAMILIES)
def test_stopbands_closer_to_the_passband_than_the_minimiser_looks(family):
    rng = random.Random(600 + family)
    for _ in range(CALLS):
        lower, upper = sorted([rng.uniform(0.01, 0.99), rng.uniform(0.01, 0.99)])
        gap = 10.0 ** rng.uniform(-14.0, -1.0)
        compare(family, [lower, upper, lower + gap, upper - gap], 1.0, 40.0)


@pytest.mark.parametrize("family", FAMILIES)
def test_ripples_whose_ratio_is_extreme(family):
    rng = random.Random(700 + family)
    for _ in range(CALLS):
        ripple, attenuation = (10.0 ** rng.uniform(-17.0, 3.6) for _ in range(2))
        for edges in ([0.2, 0.3], [0.3, 0.2], [0.2, 0.5, 0.1, 0.6], [0.2, 0.5, 0.3, 0.4]):
            compare(family, edges, ripple, attenuation)
            compare(family, edges, -ripple, attenuation)


@pytest.mark.parametrize("family", FAMILIES)
def test_other_edge_counts(family):
    rng = random.Random(800 + family)
    for count in (0, 1, 3, 5, 6, 7, 8, 100):
        for _ in range(5):
            compare(family, [rng.uniform(0.05, 0.95) for _ in range(count)], 1.0, 40.0)


@pytest.mark.parametrize("family", FAMILIES)
def test_negative_edge_counts_touch_no_frequency(family):
    for count in (-1, -2, -4, -(2**31)):
        wn = [UNTOUCHED] * 2
        order = trelvanix.FilterMinimumOrder(family, [], 1.0, 40.0, wn, edge_count=count)
        assert wn == [UNTOUCHED] * 2
        assert order == literal.minimum_order(family, [], 1.0, 40.0, [])


@pytest.mark.parametrize("family", [5, 6, -1, 2**31 - 1, -(2**31)])
def test_other_families_write_nothing(family):
    for edges in ([0.2, 0.3], [0.2, 0.5, 0.1, 0.6]):
        wn = [UNTOUCHED] * 2
        assert trelvanix.FilterMinimumOrder(family, edges, 1.0, 40.0, wn) is None
        assert wn == [UNTOUCHED] * 2
