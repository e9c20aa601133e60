"""The library's algorithms written out step by step in Python floats, as slow as they come.

Every operation is one rounding, in the order that the contract fixes: no vector, no fusion of loops,
no symmetry used. Elementary functions are the exact ones, rounded once, so that the results of the built
library can be compared bit for bit.

Filter types and windows are numbered as in trelvanix.h.
"""
import functools

import numpy as np

from exact_functions import cos, exp, hypot, power, sin, sqrt

PI = 3.141592653589793
TWO_PI = 6.283185307179586
FOUR_PI = 12.566370614359172
SIX_PI = 18.84955592153876


def quotient(a, b):
    """a / b as IEEE 754 has it: Python raises an exception for b = 0."""
    if b != 0.0:
        return a / b
    with np.errstate(all="ignore"):
        return float(np.float64(a) / np.float64(b))


# ---- Fourier transforms ------------------------------------------------------------------------


def stage_count(n):
    """Exponent of the largest power of two that is not above n."""
    m = 0
    while 2 << m <= n:
        m += 1
    return m


def reverse_bits(i, m):
    r = 0
    for _ in range(m):
        r = 2 * r + (i & 1)
        i >>= 1
    return r


@functools.lru_cache(256)
def twiddles(n):
    """e^(-2 pi i k / n) for k below n / 2: real parts, imaginary parts."""
    real, imag = [], []
    for k in range(n // 2):
        t = -k
        theta = (float(t) + float(t)) * PI / float(n)
        real.append(cos(theta))
        imag.append(sin(theta))
    return real, imag


def fft(real, imag):
    """Decimation in frequency with a copy per stage and a permutation at the end.

    The output starts cleared and keeps what the stages don't write, which matters when the length is
    not a power of two.
    """
    n = len(real)
    if n == 0:
        return [], []
    m = stage_count(n)
    workReal, workImag = list(real), list(imag)
    outReal, outImag = [0.0] * n, [0.0] * n
    twReal, twImag = twiddles(n)
    for s in range(m):
        G = 1 << s
        L = 1 << (m - s)
        H = L // 2
        for g in range(G):
            for k in range(H):
                p = g * L + k
                q = p + H
                aRe, aIm = workReal[p], workImag[p]
                dRe, dIm = workReal[q], workImag[q]
                outReal[p] = aRe + dRe
                outImag[p] = aIm + dIm
                eRe = aRe - dRe
                eIm = aIm - dIm
                wRe, wIm = twReal[G * k], twImag[G * k]
                outReal[q] = eRe * wRe - eIm * wIm
                outImag[q] = eRe * wIm + eIm * wRe
        workReal, workImag = list(outReal), list(outImag)
    for i in range(n):
        r = reverse_bits(i, m)
        outReal[r] = workReal[i]
        outImag[r] = workImag[i]
    return outReal, outImag


def fft_by_arrays(real, imag):
    """fft for long inputs: the same operations on the same values, one NumPy operation per rounding.

    Sums, differences and products act on whole stages at once; no butterfly depends on another one of
    its stage, so nothing but speed changes.
    """
    n = len(real)
    m = stage_count(n)
    workReal, workImag = np.array(real, dtype=np.float64), np.array(imag, dtype=np.float64)
    outReal, outImag = np.zeros(n), np.zeros(n)
    twReal, twImag = (np.array(part) for part in twiddles(n))
    with np.errstate(all="ignore"):
        for s in range(m):
            G = 1 << s
            H = 1 << (m - s - 1)
            blocks = (G, 2, H)
            inRe, inIm = (a[: 1 << m].reshape(blocks) for a in (workReal, workImag))
            toRe, toIm = (a[: 1 << m].reshape(blocks) for a in (outReal, outImag))
            wRe, wIm = twReal[: G * H : G], twImag[: G * H : G]
            toRe[:, 0] = inRe[:, 0] + inRe[:, 1]
            toIm[:, 0] = inIm[:, 0] + inIm[:, 1]
            eRe = inRe[:, 0] - inRe[:, 1]
            eIm = inIm[:, 0] - inIm[:, 1]
            toRe[:, 1] = eRe * wRe - eIm * wIm
            toIm[:, 1] = eRe * wIm + eIm * wRe
            workReal, workImag = outReal.copy(), outImag.copy()
    reversed_ = np.zeros(n, dtype=np.int64)
    for bit in range(m):
        reversed_ = 2 * reversed_ + (np.arange(n) >> bit & 1)
    for first in range(0, n, 1 << m):  # The positions beyond 2^m come second and overwrite.
        some = slice(first, first + (1 << m))
        outReal[reversed_[some]] = workReal[some]
        outImag[reversed_[some]] = workImag[some]
    return outReal, outImag


def ifft(real, imag, transform=fft):
    n = len(real)
    outReal, outImag = transform(real, [-v for v in imag])
    return [v / float(n) for v in outReal], [v / float(n) for v in outImag]


def fft_of_real(x, xCount, n):
    """FFText: a negative count counts as a very large one."""
    count = xCount if xCount >= 0 else xCount + (1 << 64)
    real = [x[j] if j < count else 0.0 for j in range(n)]
    return fft(real, [0.0] * n)


# ---- Filtering ---------------------------------------------------------------------------------


def fir_filter(signal, h):
    """Circular delay line; tap N - 1 weights the newest sample. Without taps the sum is empty."""
    N = len(h)
    if N == 0:
        return [0.0] * len(signal)
    buf = [0.0] * N
    output = []
    for n, x in enumerate(signal):
        buf[n % N] = x
        y = 0.0
        for k in range(N):
            y += buf[(n + 1 + k) % N] * h[k]
        output.append(y)
    return output


def iir_filter(signal, b, a):
    """Direct form I with histories that are shifted. Without coefficients the sum is empty."""
    M = len(b)
    if M == 0:
        return [0.0] * len(signal)
    xh = [0.0] * M
    yh = [0.0] * M
    output = []
    for x in signal:
        xh[0] = x
        yh[0] = 0.0
        acc = 0.0
        for k in range(M):
            acc += xh[k] * b[k]
        for k in range(1, M):
            acc -= yh[k] * a[k]
        yh[0] = acc
        for k in range(M - 1, 0, -1):
            xh[k] = xh[k - 1]
            yh[k] = yh[k - 1]
        output.append(yh[0])
    return output


# ---- Windows -----------------------------------------------------------------------------------


def real_factorial(k):
    return 1.0 if k < 2 else real_factorial(k - 1) * float(k)


def bessel_i0(x):
    total = 0.0
    for k in range(25):
        term = power(x, float(2 * k)) / power(4.0, float(k)) / power(real_factorial(k), 2.0)
        total += term
    return total


def angles(N):
    return [float(n) * TWO_PI / float(N - 1) for n in range(N)]


def rectangle(N):
    return [1.0] * N


def hann(N):
    return [0.5 - 0.5 * cos(x) for x in angles(N)]


def hamming(N):
    return [0.54 - 0.46 * cos(x) for x in angles(N)]


def blackman(N):
    return [(0.42 - 0.5 * cos(x)) + 0.08 * cos(2.0 * x) for x in angles(N)]


def flattop(N):
    w = []
    for x in angles(N):
        value = 0.215578995 - 0.41663158 * cos(x)
        value = value + 0.277263158 * cos(2.0 * x)
        value = value - 0.083578947 * cos(3.0 * x)
        value = value + 0.006947368 * cos(4.0 * x)
        w.append(value)
    return w


def kaiser(N):
    D1 = float(N - 1)
    B = bessel_i0(7.0)
    w = []
    for i in range(N):
        n = float(i)
        u = 1.0 - (n + n) / D1
        r = power(u, 2.0)
        s = sqrt(1.0 - r)
        w.append(bessel_i0(s * 7.0) / B)
    return w


def gaussian(N):
    h = (float(N) - 1.0) * 0.5
    return [exp(power((float(n) - h) * 2.5 / h, 2.0) * -0.5) for n in range(N)]


def triang(N):
    w = [0.0] * N
    for i in range(1, N + 1):
        if N % 2 == 1:
            rising = 2.0 * i / (N + 1.0)
            w[i - 1] = rising if i <= (N + 1) // 2 else 2.0 - rising
        else:
            rising = (2.0 * i - 1.0) / N
            w[i - 1] = rising if i <= N // 2 else 2.0 - rising
    return w


def bartlett(N):
    D1 = float(N - 1)
    M = (N - 1) // 2
    return [2.0 * n / D1 if n <= M else 2.0 - 2.0 * n / D1 for n in range(N)]


def bartlett_hann(N):
    w = []
    for n in range(N):
        t = float(n) / (float(N) - 1.0) - 0.5
        w.append(0.38 * cos(t * TWO_PI) + (0.62 - 0.48 * abs(t)))
    return w


def four_terms(N, D, a0, a1, a2, a3):
    w = []
    for i in range(N):
        n = float(i)
        value = a0 - a1 * cos(n * TWO_PI / D)
        value = value + a2 * cos(n * FOUR_PI / D)
        value = value - a3 * cos(n * SIX_PI / D)
        w.append(value)
    return w


BLACKMAN_HARRIS = (0.35875, 0.48829, 0.14128, 0.01168)
NUTTALL = (0.3635819, 0.4891775, 0.1365995, 0.0106411)


def parzen(N):
    """Offsets from the centre: an even length leaves the last slot zero."""
    w = [0.0] * N
    h = (N - 1) // 2
    q = (N - 1) // 4
    D = N * 0.5
    slot = 0
    for m in range(-h, h + 1):
        r = float(abs(m)) / D
        if abs(m) <= q:
            w[slot] = (1.0 - power(r, 2.0) * 6.0) + power(r, 3.0) * 6.0
        else:
            cube = power(1.0 - r, 3.0)
            w[slot] = cube + cube
        slot += 1
    return w


WINDOWS = (
    rectangle,
    hann,
    hamming,
    blackman,
    flattop,
    kaiser,
    gaussian,
    triang,
    bartlett,
    bartlett_hann,
    lambda N: four_terms(N, N - 1.0, *BLACKMAN_HARRIS),
    lambda N: four_terms(N, float(N), *BLACKMAN_HARRIS),
    parzen,
    lambda N: four_terms(N, N - 1.0, *NUTTALL),
    lambda N: four_terms(N, float(N), *NUTTALL),
)


# ---- Windowed design ---------------------------------------------------------------------------


def ideal_response(N, filterType, w1, w2):
    M = float(N - 1) * 0.5
    h = []
    for i in range(N):
        n = float(i)
        t = n - M
        centre = n == M
        if filterType == 0:
            value = w1 / PI if centre else sin(t * w1) / (t * PI)
        elif filterType == 1:
            value = 1.0 - w1 / PI if centre else (sin(t * PI) - sin(t * w1)) / (t * PI)
        elif filterType == 2:
            value = (w2 - w1) / PI if centre else (sin(t * w2) - sin(t * w1)) / (t * PI)
        elif centre:
            value = 1.0 - (w2 - w1) / PI
        else:
            value = (sin(t * PI) - sin(t * w2) + sin(t * w1)) / (t * PI)
        h.append(value)
    return h


def gain_at(h, f):
    """Modulus of the response at f, a fraction of the Nyquist frequency."""
    real, imag = 0.0, 0.0
    for n, tap in enumerate(h):
        theta = float(n) * -TWO_PI * (f * 0.5)
        real += tap * cos(theta)
        imag += tap * sin(theta)
    return hypot(real, imag)


def create_fir_by_window(order, filterType, windowType, wc1, wc2):
    N = order + 1
    h = ideal_response(N, filterType, wc1 * PI, wc2 * PI)
    w = WINDOWS[windowType](N)
    taps = [w[n] * h[n] for n in range(N)]
    if filterType in (0, 3):
        gain = 0.0
        for tap in taps:
            gain += tap
    else:
        gain = gain_at(taps, 1.0 if filterType == 1 else (wc1 + wc2) * 0.5)
    return [quotient(tap, gain) for tap in taps]
