// Fourier transforms. Trelvanix has nothing but the call: it makes its tables, allocates its result and
// releases both. The peers are given their arrays once and are measured without them.
#include <fftw3.h>
#include <gsl/gsl_fft_complex.h>

#include <algorithm>
#include <complex>
#include <kissfft/kissfft.hh>
#include <memory>
#include <string>
#include <vector>

#include "families.h"
#include "rows.h"
#include "support/plain_kernels.h"
#include "support/samples.h"

namespace trelvanix::bench
{
namespace
{

using Complex = std::complex<double>;

const double* AsDoubles(const Complex* values)
{
    return reinterpret_cast<const double*>(values); // the standard's own promise for std::complex
}

// Input and output of FFTW, aligned as it likes them.
class FftwArrays
{
public:
    explicit FftwArrays(const std::vector<double>& samples)
        : n(static_cast<int>(samples.size() / 2)), input(fftw_alloc_complex(samples.size() / 2)),
          output(fftw_alloc_complex(samples.size() / 2))
    {
        Fill(samples);
    }
    FftwArrays(const FftwArrays&) = delete;
    FftwArrays& operator=(const FftwArrays&) = delete;
    ~FftwArrays()
    {
        fftw_free(input);
        fftw_free(output);
    }

    void Fill(const std::vector<double>& samples)
    {
        std::ranges::copy(samples, &input[0][0]);
    }

    fftw_plan Plan(unsigned int flags) const
    {
        return fftw_plan_dft_1d(n, input, output, FFTW_FORWARD, flags);
    }

    const double* Spectrum() const
    {
        return &output[0][0];
    }

private:
    int n;
    fftw_complex* input;
    fftw_complex* output;
};

class FftwPlanKept
{
public:
    explicit FftwPlanKept(const std::vector<double>& samples) : arrays(samples)
    {
        // Measuring takes FFTW seconds, so what it finds is kept for the next repetition, but not for
        // the plans that are made in each call.
        static std::string found;
        fftw_import_wisdom_from_string(found.c_str());
        plan = arrays.Plan(FFTW_MEASURE);
        arrays.Fill(samples); // measuring overwrote them
        char* wisdom = fftw_export_wisdom_to_string();
        found = wisdom;
        fftw_free(wisdom);
        fftw_forget_wisdom();
    }
    FftwPlanKept(const FftwPlanKept&) = delete;
    FftwPlanKept& operator=(const FftwPlanKept&) = delete;
    ~FftwPlanKept()
    {
        fftw_destroy_plan(plan);
    }

    void Transform()
    {
        fftw_execute(plan);
    }

    const double* Spectrum() const
    {
        return arrays.Spectrum();
    }

private:
    FftwArrays arrays;
    fftw_plan plan;
};

class FftwPlanInCall
{
public:
    explicit FftwPlanInCall(const std::vector<double>& samples) : arrays(samples)
    {
    }

    void Transform()
    {
        fftw_plan plan = arrays.Plan(FFTW_ESTIMATE);
        fftw_execute(plan);
        fftw_destroy_plan(plan);
    }

    const double* Spectrum() const
    {
        return arrays.Spectrum();
    }

private:
    FftwArrays arrays;
};

class KissFft
{
public:
    explicit KissFft(const std::vector<double>& samples)
        : input(samples.size() / 2), output(input.size())
    {
        for (std::size_t i = 0; i < input.size(); ++i)
            input[i] = {samples[2 * i], samples[2 * i + 1]};
    }

    void Transform()
    {
        const kissfft<double> transform(input.size(), false);
        transform.transform(input.data(), output.data());
    }

    const double* Spectrum() const
    {
        return AsDoubles(output.data());
    }

private:
    std::vector<Complex> input, output;
};

// Both transforms of GSL work in place, so the input is copied first.
class GslRadix2
{
public:
    explicit GslRadix2(const std::vector<double>& samples) : input(samples), output(samples.size())
    {
    }

    void Transform()
    {
        std::ranges::copy(input, output.begin());
        gsl_fft_complex_radix2_forward(output.data(), 1, input.size() / 2);
    }

    const double* Spectrum() const
    {
        return output.data();
    }

private:
    std::vector<double> input, output;
};

class GslMixedRadix
{
public:
    explicit GslMixedRadix(const std::vector<double>& samples) : input(samples), output(samples.size())
    {
    }

    void Transform()
    {
        const std::size_t n = input.size() / 2;
        gsl_fft_complex_wavetable* table = gsl_fft_complex_wavetable_alloc(n);
        gsl_fft_complex_workspace* work = gsl_fft_complex_workspace_alloc(n);
        std::ranges::copy(input, output.begin());
        gsl_fft_complex_forward(output.data(), 1, n, table, work);
        gsl_fft_complex_workspace_free(work);
        gsl_fft_complex_wavetable_free(table);
    }

    const double* Spectrum() const
    {
        return output.data();
    }

private:
    std::vector<double> input, output;
};

// Some 22 stages of one rounding each, seen against the largest value.
constexpr double tolerance = 1e-14;
// The factors of GSL's plain radix-2 transform come from a recurrence, whose errors grow with the length.
constexpr double recurrenceTolerance = 1e-12;

std::vector<double> Input(std::size_t n)
{
    return trelvanix::testing::Samples(1).Plain(2 * n);
}

LibraryArray Spectrum(const std::vector<double>& input)
{
    return LibraryArray(FFT(input.data(), 0, static_cast<int>(input.size() / 2)));
}

template <class Peer>
void AddPeer(const std::string& size, const std::string& side, std::size_t n, double within)
{
    AddRow("FFT", size, side, [n, within] {
        const auto peer = std::make_shared<Peer>(Input(n));
        const auto check = [peer, n, within] {
            return Within(within, Spectrum(Input(n)).get(), peer->Spectrum(), 2 * n);
        };
        return Subject{[peer] { peer->Transform(); }, check};
    });
}

void AddOwn(const std::string& size, std::size_t n)
{
    AddRow("FFT", size, ownSide, [n] { return Subject{[input = Input(n)] { Spectrum(input); }}; });
    AddRow("FFT", size, plainSide, [n] {
        const auto plain = std::make_shared<std::vector<double>>();
        const auto transform = [plain, input = Input(n)] {
            *plain = trelvanix::testing::PlainForwardTransform(input);
        };
        const auto check = [plain, n] { return SameBits(Spectrum(Input(n)).get(), *plain); };
        return Subject{transform, check};
    });
}

} // namespace

void AddTransforms()
{
    for (int exponent = 4; exponent <= 22; exponent += 2) {
        const std::size_t n = std::size_t{1} << exponent;
        const std::string size = "2^" + std::to_string(exponent);
        AddOwn(size, n);
        AddPeer<FftwPlanKept>(size, "FFTW, plan kept", n, tolerance);
        AddPeer<FftwPlanInCall>(size, "FFTW, plan in each call", n, tolerance);
        AddPeer<KissFft>(size, "KissFFT", n, tolerance);
        AddPeer<GslRadix2>(size, "GSL radix-2", n, recurrenceTolerance);
        AddPeer<GslMixedRadix>(size, "GSL mixed radix", n, tolerance);
    }
}

} // namespace trelvanix::bench
