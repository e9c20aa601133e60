#include "support/plain_kernels.h"

#include <cstddef>

#include "math/trigonometric.h"

namespace trelvanix::testing
{
namespace
{

struct Pair {
    double re = 0.0;
    double im = 0.0;
};

} // namespace

std::vector<double> PlainForwardTransform(const std::vector<double>& input)
{
    const std::size_t n = input.size() / 2;
    std::vector<Pair> work(n), output(n), twiddles(n / 2);
    for (std::size_t j = 0; j < n; ++j)
        work[j] = {input[2 * j], input[2 * j + 1]};
    for (std::size_t k = 0; k < n / 2; ++k) {
        const int t = -static_cast<int>(k);
        const double theta = (static_cast<double>(t) + static_cast<double>(t)) * 3.141592653589793 /
                             static_cast<double>(n);
        twiddles[k] = {Cos(theta), Sin(theta)};
    }

    int stages = 0;
    while (n >> (stages + 1) > 0)
        ++stages;
    for (int s = 0; s < stages; ++s) {
        const std::size_t groups = std::size_t{1} << s;
        const std::size_t length = std::size_t{1} << (stages - s);
        const std::size_t half = length / 2;
        for (std::size_t g = 0; g < groups; ++g) {
            for (std::size_t k = 0; k < half; ++k) {
                const std::size_t p = g * length + k;
                const std::size_t q = p + half;
                const Pair a = work[p];
                const Pair d = work[q];
                const Pair w = twiddles[groups * k];
                const Pair e = {a.re - d.re, a.im - d.im};
                output[p] = {a.re + d.re, a.im + d.im};
                output[q] = {e.re * w.re - e.im * w.im, e.re * w.im + e.im * w.re};
            }
        }
        work = output;
    }

    for (std::size_t i = 0; i < n; ++i) {
        std::size_t reversed = 0;
        std::size_t rest = i;
        for (int bit = 0; bit < stages; ++bit) {
            reversed = 2 * reversed + (rest & 1);
            rest >>= 1;
        }
        output[reversed] = work[i];
    }

    std::vector<double> result;
    for (const Pair& element : output) {
        result.push_back(element.re);
        result.push_back(element.im);
    }
    return result;
}

std::vector<double> PlainFirFilter(const std::vector<double>& signal, const std::vector<double>& h)
{
    const std::size_t tapCount = h.size();
    std::vector<double> output(signal.size());
    std::vector<double> delayLine(tapCount, 0.0);
    for (std::size_t n = 0; n < signal.size(); ++n) {
        double y = 0.0;
        if (tapCount > 0)
            delayLine[n % tapCount] = signal[n];
        for (std::size_t k = 0; k < tapCount; ++k)
            y += delayLine[(n + 1 + k) % tapCount] * h[k];
        output[n] = y;
    }
    return output;
}

std::vector<double> PlainIirFilter(const std::vector<double>& signal, const std::vector<double>& b,
                                   const std::vector<double>& a)
{
    const std::size_t count = b.size();
    std::vector<double> output(signal.size());
    // One more than needed, so that a filter without coefficients has a newest sample too.
    std::vector<double> xh(count + 1, 0.0), yh(count + 1, 0.0);
    for (std::size_t n = 0; n < signal.size(); ++n) {
        xh[0] = signal[n];
        yh[0] = 0.0;
        double sum = 0.0;
        for (std::size_t k = 0; k < count; ++k)
            sum += xh[k] * b[k];
        for (std::size_t k = 1; k < count; ++k)
            sum -= yh[k] * a[k];
        yh[0] = sum;
        for (std::size_t k = count; k-- > 1;) {
            xh[k] = xh[k - 1];
            yh[k] = yh[k - 1];
        }
        output[n] = yh[0];
    }
    return output;
}

double PlainInterpolation(const std::vector<double>& x, const std::vector<double>& weights,
                          const std::vector<double>& y, double xf)
{
    double numerator = 0.0;
    double denominator = 0.0;
    for (std::size_t j = 0; j < x.size(); ++j) {
        const double c = weights[j] / (xf - x[j]);
        numerator += c * y[j];
        denominator += c;
    }
    return numerator / denominator;
}

double PlainLagrangeWeight(std::size_t k, std::size_t groupCount, const std::vector<double>& x)
{
    double q = 1.0;
    for (std::size_t l = 0; l < groupCount; ++l) {
        double product = 1.0;
        for (std::size_t j = l; j < x.size(); j += groupCount) {
            const double factor = 2.0 * (x[k] - x[j]);
            if (factor != 0.0)
                product *= factor;
        }
        q *= product;
    }
    return 1.0 / q;
}

} // namespace trelvanix::testing
