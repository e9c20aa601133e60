// Times of the exported functions as a host sees them, result arrays allocated and released in each
// call, beside the peers that have a C interface and the limits of the machine. The peers in Python are
// in python_peers.py; report.py joins both.
#include <benchmark/benchmark.h>
#include <fftw3.h>
#include <gsl/gsl_version.h>
#include <liquid/liquid.h>

#include "families.h"

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    benchmark::AddCustomContext("compiler", COMPILER);
    benchmark::AddCustomContext("FFTW", fftw_version);
    benchmark::AddCustomContext("GSL", gsl_version);
    benchmark::AddCustomContext("KissFFT", KISSFFT_VERSION);
    benchmark::AddCustomContext("liquid-dsp", liquid_libversion());

    trelvanix::bench::AddTransforms();
    trelvanix::bench::AddFilters();
    trelvanix::bench::AddDesigns();
    trelvanix::bench::AddPolynomials();
    trelvanix::bench::AddLimits();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
