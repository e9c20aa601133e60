"""Frequency sampling and equiripple designs written out step by step in Python floats.

The companion of literal.py: one rounding per operation, sums from the first term to the last, no value
kept that could be computed again. Positions on grids and in sets of extrema are counted from 1, as
McClellan, Parks & Rabiner 1973 count them; lists are read at [position - 1].

Filter types and windows are numbered as in trelvanix.h. A design that the library refuses raises
Refused with the library's message.
"""
import math

from exact_functions import NAN, cos, log, log10, power, sin
from literal import PI, TWO_PI, WINDOWS, fft_by_arrays, ifft, quotient

LARGEST_GRID = 1 << 24
LARGEST_ORDER = 65536
SMALLEST_INT = -(1 << 31)


class Refused(Exception):
    pass


# ---- Breakpoints -------------------------------------------------------------------------------


def band_edges_to_breakpoints(filterType, wc1, wc2):
    if filterType == 3:
        return [0.0, wc1, wc1, wc2, wc2, 1.0], [1.0, 1.0, 0.0, 0.0, 1.0, 1.0]
    if filterType == 2:
        return [0.0, wc1, wc1, wc2, wc2, 1.0], [0.0, 0.0, 1.0, 1.0, 0.0, 0.0]
    A = [0.0, 0.0, 1.0, 1.0] if filterType == 1 else [1.0, 1.0, 0.0, 0.0]
    if wc1 == 0.0:
        return [0.0, wc2, wc2, 1.0], A
    if wc2 != 0.0:
        return [0.0, wc1, wc2, 1.0], A
    raise Refused("wc2 should not be '0' when wc1 is not '0'")


def all_finite(values):
    return all(math.isfinite(v) for v in values)


# ---- Frequency sampling ------------------------------------------------------------------------


def grid_size(nn):
    if nn < 1024:
        return 512
    return int(power(2.0, math.ceil(log(float(nn)) / log(2.0))))


def sampled_amplitude(F, A, npt):
    """The real response at positions 1 .. npt + 1."""
    lap = npt // 25
    P = npt + 1
    H = [0.0] * P
    H[0] = A[0]
    K = len(F)
    d = [F[k + 1] - F[k] for k in range(K - 1)] + [0.0]
    nb = 1.0
    for k in range(K - 1):
        if d[k] == 0.0:
            nb = float(math.ceil(nb - lap * 0.5))
            ne = lap + nb
        else:
            ne = float(math.floor(P * F[k + 1]))
        j = max(int(nb), 1)
        while j <= ne and j <= P:
            inc = 0.0 if nb == ne else (j - nb) / (ne - nb)
            H[j - 1] = inc * A[k + 1] + (1.0 - inc) * A[k]
            j += 1
        nb = ne + 1.0
    return H


def create_fir_by_fs(order, filterType, windowType, wc1, wc2):
    F, A = band_edges_to_breakpoints(filterType, wc1, wc2)
    nn = order + 1
    if not all_finite(F):
        return [NAN] * nn
    npt = grid_size(nn)
    P = npt + 1
    L = 2 * P - 2
    dt = order * 0.5
    real, imag = [0.0] * L, [0.0] * L
    real[:P] = sampled_amplitude(F, A, npt)
    for i in range(P):
        theta = i * (-dt * PI) / (P - 1)
        c, s = cos(theta), sin(theta)
        a, b = real[i], imag[i]
        real[i], imag[i] = a * c - b * s, a * s + b * c
    for i in range(P, L):
        real[i] = real[2 * P - 2 - i]
        imag[i] = -imag[2 * P - 2 - i]
    samples, _ = ifft(real, imag, fft_by_arrays)
    w = WINDOWS[windowType](nn)
    return [samples[i] * w[i] for i in range(nn)]


# ---- Dense grid --------------------------------------------------------------------------------


def build_grid(tapCount, lgrid, edges):
    parity = tapCount & 1
    nfcns = tapCount // 2
    if parity == 1:
        nfcns += 1
    delf = quotient(1.0, nfcns * lgrid)
    grid = [edges[0]]
    edgeCount = len(edges)
    j = 1
    l = 0
    while l + 1 < edgeCount:
        fup = edges[l + 1]
        g0 = grid[-1]
        points = quotient(abs(fup - g0), delf) + 1.0
        if not len(grid) + points <= LARGEST_GRID:
            raise Refused("vector too long")
        n = int(points)
        formed = [g0 + i * delf for i in range(1, n + 1)]
        if len(formed) < 11:
            formed = []
            d = ((fup + delf) - (g0 + delf)) / 10.0
            p = g0 + d
            while p <= fup + d:
                formed.append(p)
                if not p + d > p:  # A band without width: one point is all it gets.
                    break
                p = p + d
        grid.extend(formed)
        j = len(grid)
        if j > 1:
            grid[j - 2] = fup
        else:
            j += 1
            grid.append(0.0)
        if l + 2 < edgeCount:
            grid[j - 1] = edges[l + 2]
        l += 2
    count = j - 1
    if parity == 0 and grid[count - 1] > 1.0 - delf:
        if 1.0 - delf > edges[edgeCount - 2]:
            count -= 1
        else:
            grid[count - 1] = edges[edgeCount - 2]
    return grid[:count]


def dense_grid(tapCount, edges):
    lgrid = 16.0
    grid = build_grid(tapCount, lgrid, edges)
    while len(grid) <= tapCount:
        lgrid *= 4.0
        grid = build_grid(tapCount, lgrid, edges)
    return grid


def design_grid(order, edges, amplitudes, bandWeights):
    tapCount = order + 1
    bandCount = (len(edges) + 1) // 2
    if bandWeights is None or len(bandWeights) != bandCount:
        bandWeights = [1.0] * bandCount
    grid = dense_grid(tapCount, edges)
    desired = [0.0] * len(grid)
    weight = [0.0] * len(grid)
    for b in range(bandCount):
        k = 2 * b
        for i, g in enumerate(grid):
            if not edges[k] <= g <= edges[k + 1]:
                continue
            if edges[k + 1] != edges[k]:
                slope = (amplitudes[k + 1] - amplitudes[k]) / (edges[k + 1] - edges[k])
                desired[i] = (amplitudes[k] - slope * edges[k]) + slope * g
            else:
                after = amplitudes[k + 2] if k + 2 < len(amplitudes) else amplitudes[k + 1]
                desired[i] = (amplitudes[k + 1] + after) * 0.5
            weight[i] = bandWeights[b] / (1.0 + 0.0 * (g * 0.5 - 1.0))
    return grid, desired, weight


# ---- Exchange ----------------------------------------------------------------------------------


def lagrange_weight(k, n, m, x):
    q = 1.0
    xk = x[k - 1]
    for l in range(m):
        product = 1.0
        for j in range(l, n, m):
            factor = 2.0 * (xk - x[j])
            if factor != 0.0:
                product = product * factor
        q = q * product
    return quotient(1.0, q)


class Exchange:
    def __init__(self, tapCount, grid, desired, weight):
        self.parity = tapCount % 2
        self.nfcns = tapCount // 2 + self.parity
        self.nz = self.nfcns + 1
        self.gridCount = len(grid)
        self.desired, self.weight = list(desired), list(weight)
        if self.parity == 0:
            for i, f in enumerate(grid):
                scale = cos(PI * f)
                self.desired[i] = quotient(self.desired[i], scale)
                self.weight[i] = self.weight[i] * scale
        self.xf = [cos(TWO_PI * f) for f in grid]
        self.iterations = 0

    def value_at(self, xf):
        top, bottom = 0.0, 0.0
        ad, x, y = self.ad, self.x, self.y
        try:
            for j in range(self.nz):
                c = ad[j] / (xf - x[j])
                top += c * y[j]
                bottom += c
        except ZeroDivisionError:
            top, bottom = 0.0, 0.0
            for j in range(self.nz):
                c = quotient(ad[j], xf - x[j])
                top += c * y[j]
                bottom += c
        return quotient(top, bottom)

    def test(self, l):
        """The test value at grid point l; remembers nut * err."""
        A = self.value_at(self.xf[l - 1])
        self.size = self.nut * ((A - self.desired[l - 1]) * self.weight[l - 1])
        return self.size - self.comp

    def interpolate(self):
        iext, nz = self.iext, self.nz
        jet = (self.nfcns - 1) // 15 + 1
        self.x = [self.xf[iext[j] - 1] for j in range(nz)]
        self.ad = [lagrange_weight(j + 1, nz, jet, self.x) for j in range(nz)]
        dnum, dden = 0.0, 0.0
        for j in range(nz):
            s = 1.0 if j % 2 == 0 else -1.0
            dnum += self.ad[j] * self.desired[iext[j] - 1]
            dden += quotient(self.ad[j] * s, self.weight[iext[j] - 1])
        dev = quotient(dnum, dden)
        self.nu = -1.0 if dev > 0.0 else 1.0
        self.dev = -self.nu * dev
        self.y = []
        for j in range(nz):
            s = 1.0 if j % 2 == 0 else -1.0
            step = quotient(self.nu * self.dev * s, self.weight[iext[j] - 1])
            self.y.append(self.desired[iext[j] - 1] + step)

    def search(self):
        """One sweep and the end points, as the labels of the 1973 program go. True when a point moved."""
        iext, nfcns, gridCount = self.iext, self.nfcns, self.gridCount
        before = (iext[0], iext[nfcns])
        klow, changes, y1 = 0, 0, None
        self.nut = -self.nu
        self.comp = NAN
        for j in range(nfcns + 1):
            kup = iext[j + 1]
            l = iext[j] + 1
            self.nut = -self.nut
            if j == 1:
                y1 = self.comp
            self.comp = self.dev
            label = "down"
            if l < kup and self.test(l) > 0.0:
                self.comp = self.size
                label = "climb"
            if label == "down":
                l = iext[j] - 1
                while True:
                    if l <= klow:
                        label = "bottom"
                        break
                    if self.test(l) > 0.0:
                        self.comp = self.size
                        l -= 1
                        while l > klow and self.test(l) > 0.0:
                            self.comp = self.size
                            l -= 1
                        klow = iext[j]
                        iext[j] = l + 1
                        changes += 1
                        label = "done"
                        break
                    if changes > 0:
                        label = "stay"
                        break
                    l -= 1
            if label == "bottom":
                l = iext[j] + 1
                if changes > 0:
                    label = "record"
                else:
                    label = "stay"
                    l += 1
                    while l < kup:
                        if self.test(l) > 0.0:
                            self.comp = self.size
                            label = "climb"
                            break
                        l += 1
            if label == "climb":
                l += 1
                while l < kup and self.test(l) > 0.0:
                    self.comp = self.size
                    l += 1
                label = "record"
            if label == "record":
                iext[j] = l - 1
                klow = l - 1
                changes += 1
            if label == "stay":
                klow = iext[j]
        ynz = self.comp
        k1 = min(iext[0], before[0])
        knz = max(iext[nfcns], before[1])
        nut1 = self.nut

        low = None
        if k1 > 1:
            self.nut = -self.nu
            self.comp = ynz * 1.00001
            l = 1
            while l < k1:
                if self.test(l) > 0.0:
                    self.comp = self.size
                    low = l
                    l += 1
                    while l < k1 and self.test(l) > 0.0:
                        self.comp = self.size
                        low = l
                        l += 1
                    changes += 1
                    if self.comp > y1:
                        y1 = self.comp
                    break
                l += 1

        high = None
        self.nut = -nut1
        self.comp = y1 * 1.00001
        l = gridCount
        while l > knz:
            if self.test(l) > 0.0:
                self.comp = self.size
                high = l
                l -= 1
                while l > knz and self.test(l) > 0.0:
                    self.comp = self.size
                    high = l
                    l -= 1
                break
            l -= 1

        if high is not None:
            iext[0:nfcns] = iext[1 : nfcns + 1]
            iext[nfcns] = high
            changes += 1
        elif low is not None:
            iext[1 : nfcns + 1] = iext[0:nfcns]
            iext[0] = low
            changes += 1
        return changes > 0

    def run(self):
        nfcns = self.nfcns
        temp = (self.gridCount - 1) / nfcns
        self.iext = [int(math.floor(j * temp + 1.0)) for j in range(nfcns)]
        self.iext += [self.gridCount, None]
        while True:
            self.iext[nfcns + 1] = self.gridCount + 1
            self.iterations += 1
            if self.iterations > 250:
                break
            self.interpolate()
            if not self.search():
                break
        return self.half_response(self.coefficients())

    def coefficients(self):
        nfcns = self.nfcns
        x = self.x + [-2.0]
        cn = 2 * nfcns - 1
        delf = 1.0 / cn
        l = 1
        a = []
        for j in range(nfcns):
            ft = j * delf
            xt = cos(TWO_PI * ft)
            while xt <= x[l - 1] and x[l - 1] - xt >= 1e-6:
                l += 1
            if abs(xt - x[l - 1]) < 1e-6:
                a.append(self.y[l - 1])
            else:
                a.append(self.value_at(cos(TWO_PI * ft)))
            l = max(1, l - 1)
        alpha = []
        for j in range(nfcns):
            total = a[0]
            for k in range(1, nfcns):
                total += 2.0 * cos(float(k) * float(j) * TWO_PI / cn) * a[k]
            alpha.append(total)
        alpha[0] = alpha[0] / cn
        for j in range(1, nfcns):
            alpha[j] = 2.0 * alpha[j] / cn
        if nfcns < 4:
            alpha += [0.0] * (nfcns + 2 - len(alpha))
        return alpha

    def half_response(self, alpha):
        nfcns = self.nfcns
        if self.parity == 1:
            return [0.5 * alpha[j] for j in range(nfcns - 1, 0, -1)] + [alpha[0]]
        h = [0.25 * alpha[nfcns - 1]]
        for j in range(nfcns - 1, 1, -1):
            h.append(0.25 * (alpha[j - 1] + alpha[j]))
        h.append(0.25 * (2.0 * alpha[0] + alpha[1]))
        return h


def design_equiripple(order, edges, amplitudes, bandWeights=None):
    tapCount = order + 1
    half = math.ceil(tapCount * 0.5)
    if tapCount == 0:
        return []
    if not all_finite(edges):
        return [NAN] * tapCount
    grid, desired, weight = design_grid(order, edges, amplitudes, bandWeights)
    grid = [g * 0.5 for g in grid]
    h = Exchange(tapCount, grid, desired, weight).run()
    parity = tapCount % 2
    work = [0.0] * tapCount
    work[:half] = h[:half]
    for i in range(half - parity):
        work[half + i] = h[half - parity - 1 - i]
    return [work[order - i] for i in range(order + 1)]


def create_fir_by_remez(order, filterType, wc1, wc2):
    edges, amplitudes = band_edges_to_breakpoints(filterType, wc1, wc2)
    return design_equiripple(order, edges, amplitudes)


# ---- Order -------------------------------------------------------------------------------------


def lowpass_order_estimate(fa, fb, delta1, delta2):
    L1, L2 = log10(delta1), log10(delta2)
    D = (-0.4278 - 0.4761 * L2) + L1 * (-0.5941 + 0.07114 * L2)
    D = D + power(L1, 2.0) * (-0.00266 + 0.005309 * L2)
    fK = 11.01217 + 0.51244 * (L1 - L2)
    df = abs(fb - fa)
    return quotient(D, df) - fK * df + 1.0


def remezord(filterType, f1, f2, f3, f4, dev):
    """Order, edges, amplitudes, weights; dev is normalised in place."""
    if filterType in (0, 1):
        fcuts = [f1 * 0.5, f2 * 0.5]
        mag = [1.0, 0.0] if filterType == 0 else [0.0, 1.0]
    else:
        fcuts = [f1 * 0.5, f2 * 0.5, f3 * 0.5, f4 * 0.5]
        mag = [0.0, 1.0, 0.0]
    for i, m in enumerate(mag):
        dev[i] = dev[i] / (m + (1.0 if m == 0.0 else 0.0))
    lower, upper = fcuts[0::2], fcuts[1::2]
    if len(mag) == 2:
        estimates = [lowpass_order_estimate(upper[0], lower[0], dev[0], dev[1])]
        L = estimates[0]
    else:
        estimates = [
            lowpass_order_estimate(upper[0], lower[0], dev[1], dev[0]),
            lowpass_order_estimate(upper[1], lower[1], dev[1], dev[2]),
        ]
        L = max(0.0, *estimates)
    refusal = Refused(
        "Remezord Parameter Error: the transition edges and deviations give no finite order "
    )
    if any(math.isnan(e) for e in estimates) or not math.isfinite(L):
        raise refusal
    order = int(math.ceil(L) - 1.0)
    if not SMALLEST_INT <= order <= LARGEST_ORDER:
        raise refusal
    edges = [0.0] + [2.0 * f for f in fcuts] + [1.0]
    t = []
    for m in mag:
        t += [m, 0.0]
    amplitudes = [t[0]] + [t[i] + t[i + 1] for i in range(len(t) - 1)]
    largest = dev[0]
    for v in dev:
        if v > largest:
            largest = v
    weights = [largest / v for v in dev]
    if amplitudes[-1] != 0.0 and order % 2 == 1:
        order += 1
    return order, edges, amplitudes, weights


def create_fir_by_remezord(filterType, f1, f2, f3, f4, dev):
    order, edges, amplitudes, weights = remezord(filterType, f1, f2, f3, f4, dev)
    if order < -1:
        raise Refused("bad_array_new_length")
    return order, design_equiripple(order, edges, amplitudes, weights)
