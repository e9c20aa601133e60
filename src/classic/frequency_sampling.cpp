#include "classic/frequency_sampling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "classic/transforms.h"
#include "classic/window_types.h"
#include "classic/windowed_design.h"
#include "common/complex_arithmetic.h"
#include "common/constants.h"
#include "common/numbers.h"
#include "common/work_array.h"
#include "math/complex_functions.h"
#include "math/exponential.h"

namespace trelvanix
{
namespace
{

// One section of the piecewise linear amplitude, in grid positions that count from 1 as the whole
// conversion from frequencies does. They are whole numbers, kept as doubles because an edge outside
// [0, 1] puts them anywhere.
struct Section {
    double first, last;    // positions nb and ne
    double fromAmp, toAmp; // amplitudes at its ends
};

// Writes the section to the positions 1 .. P that it covers; amplitude[0] is position 1.
void FillSection(const Section& s, int P, double* amplitude)
{
    const int begin = ToInt(std::clamp(s.first, 1.0, P + 1.0));
    const int end = ToInt(std::min(s.last, static_cast<double>(P)));
    for (int j = begin; j <= end; ++j) {
        const double inc = s.first == s.last ? 0.0 : (j - s.first) / (s.last - s.first);
        amplitude[j - 1] = inc * s.toAmp + (1.0 - inc) * s.fromAmp;
    }
}

// The spectrum of 2 * npt points: the amplitude with the phase of a delay of order / 2 samples on the
// upper half of the unit circle, its conjugate mirrored on the lower half.
VectorMemory LinearPhaseSpectrum(const double* amplitude, int npt, int order)
{
    const int L = 2 * npt;
    VectorMemory spectrum = NewVectorMemory(2 * std::int64_t{L});
    double* H = spectrum.get();
    const double dt = order * 0.5;
    for (int i = 0; i <= npt; ++i) {
        const double theta = i * (-dt * pi) / npt;
        StoreComplex(H, i, Multiply(amplitude[i], UnitPhasor(theta)));
    }
    for (int i = npt + 1; i < L; ++i)
        StoreComplex(H, i, std::conj(LoadComplex(H, L - i)));
    return spectrum;
}

} // namespace

void CheckFirByFSArguments(int order, int windowType)
{
    CheckFirOrder(order);
    CheckWindowType(windowType);
}

int FrequencyGridSize(int tapCount)
{
    if (tapCount < 1024)
        return 512;
    // The quotient is rounded, so that some powers of two above 2^28 land on the next one.
    const double npt = Pow(2.0, std::ceil(Log(tapCount) / Log(2.0)));
    if (2.0 * npt > std::numeric_limits<int>::max())
        throw std::bad_array_new_length();
    return ToInt(npt);
}

std::vector<double> SampleBreakpoints(const Breakpoints& breakpoints, int npt)
{
    const std::vector<double>& F = breakpoints.frequencies;
    const std::vector<double>& A = breakpoints.amplitudes;
    const std::vector<double> d = BreakpointSteps(F);
    const int lap = npt / 25;
    const int P = npt + 1;

    auto amplitude = NewWorkArray<double>(P);
    amplitude[0] = A[0];
    double nb = 1.0;
    for (std::size_t k = 0; k + 1 < F.size(); ++k) {
        double ne = 0.0;
        if (d[k] == 0.0) {
            // The ramp starts half its width before the jump and overwrites what is there.
            nb = std::ceil(nb - lap * 0.5);
            ne = lap + nb;
        } else {
            ne = std::floor(P * F[k + 1]);
        }
        FillSection({nb, ne, A[k], A[k + 1]}, P, amplitude.data());
        nb = ne + 1.0;
    }
    return amplitude;
}

ResultArray CreateFirByFS(int order, int filterType, int windowType, double wc1, double wc2)
{
    CheckFirByFSArguments(order, windowType);
    const Breakpoints breakpoints =
        BandEdgesToBreakpoints(static_cast<FilterType>(filterType), wc1, wc2);
    const int tapCount = TapCount(order);
    const int npt = FrequencyGridSize(tapCount);
    ResultArray taps = NewResultArray(tapCount);
    double* b = taps.get();

    // Without a place for every breakpoint there is no response to sample.
    if (!AreFinite(breakpoints.frequencies.data(), static_cast<int>(breakpoints.frequencies.size()))) {
        std::fill_n(b, tapCount, std::numeric_limits<double>::quiet_NaN());
        return taps;
    }

    const VectorMemory spectrum =
        LinearPhaseSpectrum(SampleBreakpoints(breakpoints, npt).data(), npt, order);
    const ResultArray samples = IFFT(spectrum.get(), 2 * npt);
    const ResultArray window = CreateWindow(static_cast<WindowType>(windowType), tapCount);
    for (int i = 0; i < tapCount; ++i)
        b[i] = LoadComplex(samples.get(), i).real() * window[static_cast<std::size_t>(i)];
    return taps;
}

} // namespace trelvanix
