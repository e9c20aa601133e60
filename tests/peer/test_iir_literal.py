"""Every bit of the IIR designs and of Roots against the literal version in literal_iir.py.

TRELVANIX_LITERAL_CALLS sets the number of random calls for each family.
"""

import os
import random
import struct

import pytest

import literal_iir as literal
import trelvanix_library as trelvanix

LITERAL = {
    "Butterworth": literal.butterworth,
    "Chebyshv1": literal.chebyshev1,
    "Chebyshv2": literal.chebyshev2,
    "Bessel": literal.bessel,
}
CALLS = int(os.environ.get("TRELVANIX_LITERAL_CALLS", "150"))

HOSTILE = [
    float("nan"), float("inf"), float("-inf"), 0.0, -0.0, 1.0, -1.0, 2.0, -0.3, 1e-300, 1e300, 5e-324, 1e-9,
]  # fmt: skip


def bits(values):
    """The values as bytes, every not-a-number alike."""
    return [b"nan" if value != value else struct.pack("<d", value) for value in values]


def assert_same(call, got, expected, got_wn=(), expected_wn=()):
    for name, ours, theirs in zip(("a", "b"), got, expected):
        assert bits(ours) == bits(theirs), f"{call}: {name} is {ours}, literal {theirs}"
    assert bits(got_wn) == bits(expected_wn), f"{call}: wn becomes {got_wn}, literal {expected_wn}"


def random_edges(rng, kind):
    style = rng.randrange(8)
    if style == 0:
        return [rng.choice(HOSTILE), rng.choice(HOSTILE)]
    if style == 1:
        return rng.sample([rng.random(), rng.choice(HOSTILE)], 2)
    edges = [rng.random(), rng.random()]
    # One request in eight has its band edges the wrong way round.
    return edges if style == 2 else sorted(edges)


def random_kind(rng):
    return rng.choice([0, 1, 2, 3] * 6 + [4, 7, 0xFFFFFFFF])


def random_decibels(rng, low, high):
    return rng.uniform(low, high) if rng.randrange(10) else rng.choice(HOSTILE)


def compare_design(name, order, wn, kind, *rest, decibels=None):
    leading = (order,) if decibels is None else (order, decibels)
    call = f"{name}{(*leading, wn, kind, *rest)}"
    ours, theirs = list(wn), list(wn)
    got = getattr(trelvanix, name)(*leading, ours, kind, *rest)
    expected = LITERAL[name](*leading, theirs, kind, *rest)
    assert_same(call, got, expected, ours, theirs)


@pytest.mark.parametrize("analog", [0, 1])
@pytest.mark.parametrize("kind", [0, 1, 2, 3, 4, 7, 0xFFFFFFFF])
def test_designs_of_every_order_are_the_literal_ones(kind, analog):
    for order in range(13):
        wn = [0.2, 0.45]
        compare_design("Butterworth", order, wn, kind, analog)
        compare_design("Chebyshv1", order, wn, kind, analog, decibels=0.5)
        compare_design("Chebyshv2", order, wn, kind, analog, decibels=50.0)


@pytest.mark.parametrize("kind", [0, 1, 2, 3, 4, 7, -1])
def test_bessel_of_every_order_is_the_literal_one(kind):
    # Beyond the table to 28; the band types of the high orders take a while in plain Python.
    for order in list(range(15)) + [16, 17, 18, 25, 26, 28]:
        compare_design("Bessel", order, [0.7, 1.9], kind)


def test_random_butterworth_requests():
    rng = random.Random(101)
    for _ in range(CALLS):
        kind = random_kind(rng)
        compare_design("Butterworth", rng.randrange(13), random_edges(rng, kind), kind, rng.choice([0, 0, 0, 1, -5]))


def test_random_chebyshev1_requests():
    rng = random.Random(102)
    for _ in range(CALLS):
        kind = random_kind(rng)
        compare_design(
            "Chebyshv1", rng.randrange(13), random_edges(rng, kind), kind, rng.choice([0, 0, 0, 1]),
            decibels=random_decibels(rng, 0.01, 6.0),
        )  # fmt: skip


def test_random_chebyshev2_requests():
    rng = random.Random(103)
    for _ in range(CALLS):
        kind = random_kind(rng)
        compare_design(
            "Chebyshv2", rng.randrange(13), random_edges(rng, kind), kind, rng.choice([0, 0, 0, 1]),
            decibels=random_decibels(rng, 10.0, 100.0),
        )  # fmt: skip


def test_random_bessel_requests():
    rng = random.Random(104)
    for _ in range(CALLS):
        kind = rng.choice([0, 1, 2, 3] * 6 + [4, -1, -(2**31)])
        scale = 10.0 ** rng.randrange(-3, 4)
        wn = [scale * edge for edge in random_edges(rng, kind)]
        compare_design("Bessel", rng.randrange(13), wn, kind)


def random_polynomial(rng, n):
    style = rng.randrange(7)
    if style == 0:  # sparse, even ones among them
        return [rng.choice([0.0, 0.0, 1.0, -2.0, -0.0]) for _ in range(n + 1)]
    if style == 1:
        return [rng.choice(HOSTILE) for _ in range(n + 1)]
    if style == 2:
        return [rng.uniform(-1, 1) * 10.0 ** rng.randrange(-12, 13) for _ in range(n + 1)]
    if style == 3:  # even
        return [0.0 if k % 2 else rng.uniform(-1, 1) for k in range(n + 1)]
    return [rng.uniform(-1, 1) for _ in range(n + 1)]


def test_random_polynomials():
    rng = random.Random(105)
    for _ in range(3 * CALLS):
        n = rng.randrange(16) if rng.randrange(20) else rng.randrange(16, 40)
        c = random_polynomial(rng, n)
        ours = [part for root in trelvanix.Roots(c, n) for part in root]
        theirs = [part for root in literal.roots(c, n) for part in root]
        assert bits(ours) == bits(theirs), f"Roots({c}, {n}) gives {ours}, literal {theirs}"


def test_the_comparison_sees_a_single_bit():
    wn = [0.2, 0.45]
    a, b = trelvanix.Butterworth(4, wn, 2)
    expected = literal.butterworth(4, [0.2, 0.45], 2, 0)
    next_up = struct.unpack("<d", struct.pack("<q", struct.unpack("<q", struct.pack("<d", a[3]))[0] + 1))[0]
    with pytest.raises(AssertionError):
        assert_same("changed", (a[:3] + [next_up] + a[4:], b), expected)
