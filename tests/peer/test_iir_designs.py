"""The IIR designs against SciPy and against exact designs with fifty digits.

The orders in WITHIN are those that measure/accuracy/iir_accuracy.py finds.
"""

import sys
from pathlib import Path

import mpmath
import numpy as np
import pytest
import scipy.signal

import exact_iir as exact
import literal_iir as literal
import trelvanix_library as trelvanix

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "measure" / "accuracy"))
import iir_accuracy as measure

EPSILON = np.finfo(float).eps
RP, RS = measure.RIPPLE, measure.ATTENUATION
EDGES = ([0.3], [0.3], [0.2, 0.5], [0.2, 0.5])
TYPES = measure.TYPES

PROTOTYPES = {
    "Butterworth": (exact.butterworth_prototype, literal.butterworth_prototype, ()),
    "Chebyshv1": (lambda n: exact.chebyshev1_prototype(n, RP), lambda n: literal.cheb1_prototype(n, RP), (RP,)),
    "Chebyshv2": (lambda n: exact.chebyshev2_prototype(n, RS), lambda n: literal.cheb2_prototype(n, RS), (RS,)),
}


def denominator_bound(prototype, order, kind):
    """How far rounding may move the coefficients of a digital denominator.

    The QR iteration gives the eigenvalues of a matrix that differs from the state matrix by a few (some
    four sweeps for each eigenvalue) N epsilon times its norm; the rounding of the state matrix itself is
    smaller. What such a difference does to the coefficients is found by trying: random perturbations of
    norm epsilon |A|, made ten thousand times larger so that the rounding of the trial doesn't count.
    """
    Wo, Bw = literal.prepare_edges(list(EDGES[kind]), kind, False)
    A = np.array(literal.transformed(*prototype(order), kind, Wo, Bw, True).A)
    n = len(A)
    rng = np.random.default_rng(order)
    unperturbed = np.real(np.poly(np.linalg.eigvals(A)))
    largest = 0.0
    for _ in range(5):
        E = rng.standard_normal((n, n))
        E *= 1e4 * EPSILON * np.linalg.norm(A) / np.linalg.norm(E)
        moved = np.real(np.poly(np.linalg.eigvals(A + E))) - unperturbed
        largest = max(largest, np.max(np.abs(moved)) / 1e4)
    return 4.0 * n * (largest + EPSILON)


@pytest.mark.parametrize("kind", range(4))
@pytest.mark.parametrize("name", list(PROTOTYPES))
def test_denominators_are_the_exact_ones(name, kind):
    exact_prototype, literal_prototype, parameters = PROTOTYPES[name]
    for order in range(1, 13):
        a, _ = getattr(trelvanix, name)(order, *parameters, list(EDGES[kind]), kind)
        _, poles, _ = exact.digital(exact_prototype(order), EDGES[kind], kind)
        expected = exact.polynomial(poles)
        bound = denominator_bound(literal_prototype, order, kind)
        for j, (got, wanted) in enumerate(zip(a, expected)):
            assert abs(got - wanted) <= bound, (
                f"{name} order {order} {TYPES[kind]}: a[{j}] is {got}, exact {float(wanted)}, bound {bound:.3e}"
            )


def scipy_design(name, order, kind):
    edges = EDGES[kind] if kind > 1 else EDGES[kind][0]
    if name == "Butterworth":
        return scipy.signal.butter(order, edges, TYPES[kind])
    if name == "Chebyshv1":
        return scipy.signal.cheby1(order, RP, edges, TYPES[kind])
    return scipy.signal.cheby2(order, RS, edges, TYPES[kind])


@pytest.mark.parametrize("kind", range(4))
@pytest.mark.parametrize("name", list(PROTOTYPES))
def test_scipy_designs_the_same_filter(name, kind):
    # SciPy takes another way (zeros and poles all along), whose rounding is bounded likewise; the
    # numerators of type II are read back from eigenvalues that split at 1e-11.
    for order in range(1, 9):
        if name == "Chebyshv2" and kind in (1, 2) and order % 2:
            continue
        _, literal_prototype, parameters = PROTOTYPES[name]
        a, b = getattr(trelvanix, name)(order, *parameters, list(EDGES[kind]), kind)
        scipy_b, scipy_a = scipy_design(name, order, kind)
        bound = 2.0 * denominator_bound(literal_prototype, order, kind)
        assert np.max(np.abs(np.array(a) - scipy_a)) <= bound, f"{name} {order} {TYPES[kind]}"
        # The gain is a quotient of the denominator at the reference by a power of two: relative to it
        # the error is that of the denominator's value there.
        at_reference = abs(np.polyval(a, [1.0, -1.0, 1.0, 1.0][kind]))
        relative = len(a) * bound / at_reference
        if name == "Chebyshv2":
            relative += 1e-8
        scale = np.max(np.abs(scipy_b))
        assert np.max(np.abs(np.array(b) - scipy_b)) <= relative * scale, f"{name} {order} {TYPES[kind]}"


# family, type, edges, order to which every design is within 0.01 dB of the exact one
WITHIN = [
    ("Butterworth", 0, [0.3], 25),
    ("Butterworth", 0, [0.05], 12),
    ("Butterworth", 1, [0.3], 25),
    ("Butterworth", 2, [0.2, 0.5], 19),
    ("Butterworth", 3, [0.2, 0.5], 16),
    ("Butterworth", 2, [0.02, 0.03], 4),
    ("Chebyshev I", 0, [0.3], 22),
    ("Chebyshev I", 1, [0.3], 25),
    ("Chebyshev I", 2, [0.2, 0.5], 15),
    ("Chebyshev I", 3, [0.2, 0.5], 17),
    ("Chebyshev II", 0, [0.3], 25),
    ("Chebyshev II", 1, [0.3], 18),
    ("Chebyshev II", 2, [0.2, 0.5], 14),
    ("Chebyshev II", 3, [0.2, 0.5], 13),
]


@pytest.mark.parametrize("family,kind,edges,largest", WITHIN)
def test_responses_stay_within_a_hundredth_of_a_decibel(family, kind, edges, largest):
    design, prototype, _, parameters = measure.FAMILIES[family]
    points = [mpmath.expjpi(mpmath.mpf(f)) for f in measure.frequencies(edges, 1.0)[::3]]
    for order in range(1, largest + 1):
        if family == "Chebyshev II" and kind in (1, 2) and order % 2:
            continue
        wanted = exact.digital(prototype(order), edges, kind)
        a, b = design(order, *parameters, list(edges), kind)
        error = measure.error_in_decibels(b, a, wanted, points)
        assert error <= measure.TOLERANCE, f"{family} order {order}: {error} dB"


@pytest.mark.parametrize("kind", range(4))
def test_chebyshev1_ripples_no_more_than_asked(kind):
    inside = {0: (0.0, 0.3), 1: (0.3, 1.0), 2: (0.2, 0.5), 3: (0.0, 0.2)}[kind]
    for order in range(1, 9):
        a, b = trelvanix.Chebyshv1(order, RP, list(EDGES[kind]), kind)
        _, h = scipy.signal.freqz(b, a, np.pi * np.linspace(*inside, 300)[1:-1])
        loss = -20.0 * np.log10(np.abs(h))
        # 1e-6 dB for the rounding of the evaluation at these orders.
        assert np.min(loss) >= -1e-6 and np.max(loss) <= RP + 1e-6, f"order {order}: {np.min(loss)}, {np.max(loss)}"
        assert np.min(loss) < 0.05 * RP, "the ripple touches one"


@pytest.mark.parametrize("kind", range(4))
def test_chebyshev2_attenuates_as_asked(kind):
    outside = {0: (0.3, 1.0), 1: (0.0, 0.3), 2: (0.5, 1.0), 3: (0.2, 0.5)}[kind]
    for order in range(2, 9, 2):
        a, b = trelvanix.Chebyshv2(order, 40.0, list(EDGES[kind]), kind)
        _, h = scipy.signal.freqz(b, a, np.pi * np.linspace(*outside, 300)[1:-1])
        # 1e-8 from the eigenvalues that split at 1e-11, times their condition.
        assert np.max(np.abs(h)) <= 0.01 * (1.0 + 1e-5), f"order {order}"


def test_keeps_a_wrong_gain_for_type_two_numerators_below_the_threshold():
    # The first coefficient above 0.0001 counts as the leading one. At 90 dB the true one is 0.0000967.
    a, b = trelvanix.Chebyshv2(4, 90.0, [0.3], 0)
    scipy_b, _ = scipy.signal.cheby2(4, 90.0, 0.3)
    taken = next(c for c in scipy_b if abs(c) > 1e-4)
    assert abs(scipy_b[0]) < 1e-4 and taken > 1.3e-4
    assert b[0] == pytest.approx(taken, rel=1e-6)


def test_keeps_rounding_noise_as_the_gain_of_bessel_lowpasses_with_large_edges():
    # The middle numerator coefficients, zero on paper, are noise above the threshold.
    for order in (5, 6, 8, 10):
        edge = 2000.0 * np.pi
        a, b = trelvanix.Bessel(order, [edge], 0)
        assert abs(b[-1]) < 1e-6 * edge**order
        # Eigenvalues that split at 1e-11 times their condition.
        assert a[-1] == pytest.approx(edge**order, rel=1e-6)


@pytest.mark.parametrize("kind", (1, 2))
def test_keeps_palindromic_numerators_for_odd_orders_of_type_two(kind):
    # The true numerator is antisymmetric: b[0] = -b[N].
    for order in (1, 3, 5):
        _, b = trelvanix.Chebyshv2(order, RS, list(EDGES[kind]), kind)
        scipy_b, _ = scipy_design("Chebyshv2", order, kind)
        assert scipy_b[0] == pytest.approx(-scipy_b[-1])
        assert b[0] * b[-1] > 0.0
        assert np.max(np.abs(np.array(b) - scipy_b)) > 1e-4


@pytest.mark.parametrize("kind", range(4))
def test_bessel_denominators_are_scipys_with_phase_normalisation(kind):
    edges = [3.0] if kind < 2 else [2.0, 5.0]
    for order in range(1, 13):
        a, _ = trelvanix.Bessel(order, list(edges), kind)
        argument = edges if kind > 1 else edges[0]
        expected = scipy.signal.bessel(order, argument, TYPES[kind], analog=True, norm="phase")[1]
        difference = np.max(np.abs((np.array(a) - expected) / expected))
        if order == 4:
            assert difference > 0.01  # one pole twice
            continue
        # Eigenvalues that split at 1e-11, twice, and whose condition grows with the order.
        assert difference <= 1e-9 * 2.0**order / 2.0, f"order {order}: {difference}"
        for norm in ("delay", "mag"):
            other = scipy.signal.bessel(order, argument, TYPES[kind], analog=True, norm=norm)[1]
            if order > 1:
                assert np.max(np.abs(np.array(a) - other)) > 0.01


@pytest.mark.parametrize("kind", range(4))
def test_bessel_designs_that_meet_the_sweep_limit_come_out_right(kind):
    # Ten sweeps are too few for about half of the denominators above order nine.
    edges = [1.0] if kind < 2 else [1.0, 2.0]
    met = 0
    for order in range(10, 26 if kind < 2 else 13):
        if order == 17:
            continue
        if kind < 2 or order < 12:
            literal.events.clear()
            literal.bessel(order, list(edges), kind)
            met += literal.events[1e-12, 10, "limit"]
        error, _ = measure.bessel_errors(kind, edges, order)
        assert error <= measure.TOLERANCE, f"order {order} {TYPES[kind]}: {error} dB"
    assert met > 0, "the designs asked for are about something"
