"""Comparisons whose failure shows input, expected, got and tolerance."""
import numpy as np


def _bits(values):
    return np.asarray(values, dtype=np.float64).view(np.uint64)


def _shown(value, limit=12):
    if isinstance(value, (list, tuple, np.ndarray)) and np.ndim(value) == 1:
        head = ", ".join(_shown(v) for v in value[:limit])
        return f"[{head}{f', ... {len(value)} in all' if len(value) > limit else ''}]"
    return repr(float(value)) if isinstance(value, np.floating) else repr(value)


def _report(call, inputs, expected, got, wrong, tolerance):
    at = wrong[:4]
    lines = [f"{call}: {len(wrong)} of {len(expected)} values differ, first at {list(map(int, at))}"]
    lines += [f"  input {name} = {_shown(value)}" for name, value in inputs.items()]
    for i in at:
        limit = tolerance if isinstance(tolerance, str) else f"{tolerance[i]:.3e}"
        lines.append(
            f"  [{i}] expected {expected[i]!r} got {got[i]!r} difference {got[i] - expected[i]!r}"
            f" tolerance {limit}"
        )
    return "\n".join(lines)


def assert_same_bits(call, inputs, expected, got):
    """Bit for bit, signs of zeros too; any not-a-number equals any other."""
    expected = np.asarray(expected, dtype=np.float64)
    got = np.asarray(got, dtype=np.float64)
    assert expected.shape == got.shape, f"{call}: {got.shape} values, expected {expected.shape}"
    same = (_bits(expected) == _bits(got)) | (np.isnan(expected) & np.isnan(got))
    if not same.all():
        with np.errstate(all="ignore"):
            raise AssertionError(
                _report(call, inputs, expected, got, np.flatnonzero(~same), "none, the bits are compared")
            )


def assert_within(call, inputs, expected, got, tolerance):
    """|got - expected| <= tolerance, value by value; not-a-number is never within."""
    expected = np.atleast_1d(expected)
    got = np.atleast_1d(got)
    assert expected.shape == got.shape, f"{call}: {got.shape} values, expected {expected.shape}"
    tolerance = np.broadcast_to(np.asarray(tolerance, dtype=np.float64), expected.shape)
    within = np.abs(got - expected) <= tolerance
    if not within.all():
        raise AssertionError(_report(call, inputs, expected, got, np.flatnonzero(~within), tolerance))
