#include "classic/window_types.h"

#include <stdexcept>

#include "common/constants.h"
#include "common/work_array.h"
#include "fir/windows.h"

namespace trelvanix
{
namespace
{

// Only whole offsets -h .. h from the middle, which fill an odd number of samples: an even N leaves the last
// one 0. Hosts have always got it so.
void ParzenFromOffsets(int N, double* w)
{
    const int h = (N - 1) / 2;
    for (int m = 0; m <= h; ++m)
        w[h - m] = w[h + m] = ParzenSample(m, N);
    if (N % 2 == 0)
        w[N - 1] = 0.0;
}

} // namespace

void CheckWindowType(int windowType)
{
    if (static_cast<std::uint32_t>(windowType) > 14)
        throw std::invalid_argument(
            "windowType should be '0-14'.(Rectangle 0,Hann 1,Hamming 2,Blackman 3,Flattop 4,Kaiser 5,"
            "Gaussian 6,Triang 7,Bartlett 8,Bartlett-Hann 9,Blackman-Harris(Symmetric) 10,"
            "Blackman-Harris(Periodic) 11,Parzen 12,Nuttall(Symmetric) 13,Nuttall(Periodic) 14)");
}

ResultArray GenerateWindow(WindowType windowType, const double* angles, int N)
{
    ResultArray window = NewResultArray(N);
    double* w = window.get();
    switch (windowType) {
    case WindowType::Rectangle:
        RectangleWindow(N, w);
        return window;
    case WindowType::Hann:
        HannWindow(angles, N, w);
        return window;
    case WindowType::Hamming:
        HammingWindow(angles, N, w);
        return window;
    case WindowType::Blackman:
        BlackmanWindow(angles, N, w);
        return window;
    case WindowType::Flattop:
        FlattopWindow(angles, N, w);
        return window;
    case WindowType::Kaiser:
        KaiserWindow(N, w);
        return window;
    case WindowType::Gaussian:
        GaussianWindow(N, w);
        return window;
    case WindowType::Triang:
        TriangWindow(N, w);
        return window;
    case WindowType::Bartlett:
        BartlettWindow(N, w);
        return window;
    case WindowType::BartlettHann:
        BartlettHannWindow(N, w);
        return window;
    case WindowType::BlackmanHarrisSymmetric:
        BlackmanHarrisSymmetricWindow(N, w);
        return window;
    case WindowType::BlackmanHarrisPeriodic:
        BlackmanHarrisPeriodicWindow(N, w);
        return window;
    case WindowType::Parzen:
        ParzenFromOffsets(N, w);
        return window;
    case WindowType::NuttallSymmetric:
        NuttallSymmetricWindow(N, w);
        return window;
    case WindowType::NuttallPeriodic:
        NuttallPeriodicWindow(N, w);
        return window;
    }
    return nullptr;
}

ResultArray CreateWindow(WindowType windowType, int N)
{
    auto angles = NewWorkArray<double>(N);
    for (int n = 0; n < N; ++n)
        angles.data()[n] = n * twoPi / (N - 1);
    return GenerateWindow(windowType, angles.data(), N);
}

} // namespace trelvanix
