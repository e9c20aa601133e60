// A host that has functions of its own with the names of all twenty exports, as programs may well have an FFT. On
// ELF the library's calls to an exported name would end up here. Loads the library, calls all twenty through
// their addresses there and fails when one of its own functions was called.
//
// usage: namesake_host LIBRARY
#include <dlfcn.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace
{

int failures = 0;

// What every function of the host does.
void NamesakeCalled(const char* name)
{
    std::printf("the library called the host's %s\n", name);
    ++failures;
}

void Expect(bool holds, const char* what)
{
    if (holds)
        return;
    std::printf("not so: %s\n", what);
    ++failures;
}

} // namespace

#define NAMESAKE(name)                                                                                 \
    extern "C" void name()                                                                             \
    {                                                                                                  \
        NamesakeCalled(#name);                                                                         \
    }
NAMESAKE(Bessel)
NAMESAKE(Butterworth)
NAMESAKE(Chebyshv1)
NAMESAKE(Chebyshv2)
NAMESAKE(CreateFirByFS)
NAMESAKE(CreateFirByRemez)
NAMESAKE(CreateFirByRemezord)
NAMESAKE(CreateFirByWindow)
NAMESAKE(DFT)
NAMESAKE(Elliptic)
NAMESAKE(FFT)
NAMESAKE(FFText)
NAMESAKE(Filter)
NAMESAKE(FilterMinimumOrder)
NAMESAKE(FirFilterToSignal)
NAMESAKE(IFFT)
NAMESAKE(IirFilterToSignal)
NAMESAKE(ReleaseComplexDoubleArray)
NAMESAKE(ReleaseDoubleArray)
NAMESAKE(Roots)
#undef NAMESAKE

int main(int argc, char** argv)
{
    void* const library = argc == 2 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (library == nullptr) {
        std::fputs("usage: namesake_host LIBRARY\n", stderr);
        return EXIT_FAILURE;
    }
    const auto find = [library]<class Function>(const char* name, Function*& function) {
        function = reinterpret_cast<Function*>(dlsym(library, name));
        if (function == nullptr) {
            std::printf("%s is missing\n", name);
            std::exit(EXIT_FAILURE);
        }
    };

    int (*release)(void*) = nullptr;
    int (*releaseComplex)(void*) = nullptr;
    find("ReleaseDoubleArray", release);
    find("ReleaseComplexDoubleArray", releaseComplex);
    const auto take = [&](double* array) {
        const double first = array != nullptr ? array[0] : NAN;
        Expect(release(array) == 1, "a result is released");
        return first;
    };

    const double ones[] = {1, 1, 1, 1, 1, 1, 1, 1};
    double* (*transform)(const double*, int, int) = nullptr;
    for (const char* name : {"DFT", "FFT", "IFFT"}) {
        find(name, transform);
        double* const spectrum = transform(ones, 0, 4);
        Expect(spectrum[0] == (name[0] == 'I' ? 1.0 : 4.0), name);
        Expect(releaseComplex(spectrum) == 1, "a complex result is released");
    }
    void (*transformReal)(const double*, int, int, double*, double*) = nullptr;
    find("FFText", transformReal);
    double re[4] = {};
    double im[4] = {};
    transformReal(ones, 4, 4, re, im);
    Expect(re[0] == 4.0, "FFText");

    double* (*filter)(const double*, const double*, const double*, int, int) = nullptr;
    const double b[] = {2.0, 0.0};
    const double a[] = {1.0, 0.5};
    find("Filter", filter);
    Expect(take(filter(ones, b, nullptr, 8, 2)) == 0.0, "Filter with taps");
    Expect(take(filter(ones, b, a, 8, 2)) == 2.0, "Filter with coefficients");
    find("IirFilterToSignal", filter);
    Expect(take(filter(ones, b, a, 8, 2)) == 2.0, "IirFilterToSignal");
    double* (*filterFir)(const double*, const double*, int, int) = nullptr;
    find("FirFilterToSignal", filterFir);
    Expect(take(filterFir(ones, b, 8, 2)) == 0.0, "FirFilterToSignal");

    double* (*designByWindow)(int, int, int, double, double) = nullptr;
    for (const char* name : {"CreateFirByWindow", "CreateFirByFS"}) {
        find(name, designByWindow);
        Expect(std::isfinite(take(designByWindow(8, 0, 2, 0.3, 0.5))), name);
    }
    double* (*designEquiripple)(int, int, double, double) = nullptr;
    find("CreateFirByRemez", designEquiripple);
    Expect(std::isfinite(take(designEquiripple(8, 0, 0.3, 0.5))), "CreateFirByRemez");
    double* (*designByDeviations)(int, double, double, double, double, double*, int, int*) = nullptr;
    find("CreateFirByRemezord", designByDeviations);
    double deviations[] = {0.01, 0.01};
    int order = 0;
    Expect(std::isfinite(take(designByDeviations(0, 0.3, 0.5, 0, 0, deviations, 2, &order))) &&
               order > 0,
           "CreateFirByRemezord");
    double* (*roots)(const double*, int) = nullptr;
    find("Roots", roots);
    const double polynomial[] = {1.0, -3.0, 1.0};
    Expect(std::isfinite(take(roots(polynomial, 2))), "Roots");

    double denominator[3] = {};
    double numerator[3] = {};
    double edge[2] = {0.3, 0.0};
    void (*butterworth)(int, double*, unsigned int, int, double*, double*) = nullptr;
    find("Butterworth", butterworth);
    butterworth(2, edge, 0, 0, denominator, numerator);
    Expect(denominator[0] == 1.0, "Butterworth");
    void (*chebyshev)(int, double, double*, unsigned int, int, double*, double*) = nullptr;
    for (const char* name : {"Chebyshv1", "Chebyshv2"}) {
        find(name, chebyshev);
        denominator[0] = 0.0;
        chebyshev(2, 1.0, edge, 0, 0, denominator, numerator);
        Expect(denominator[0] == 1.0, name);
    }
    void (*elliptic)(int, double, double, double*, unsigned int, int, double*, double*) = nullptr;
    find("Elliptic", elliptic);
    denominator[0] = 0.0;
    elliptic(2, 1.0, 40.0, edge, 0, 0, denominator, numerator);
    Expect(denominator[0] == 1.0, "Elliptic");
    void (*bessel)(int, double*, int, double*, double*) = nullptr;
    find("Bessel", bessel);
    denominator[0] = 0.0;
    bessel(2, edge, 0, denominator, numerator);
    Expect(denominator[0] == 1.0, "Bessel");
    void (*minimumOrder)(int, const double*, int, double, double, int*, double*) = nullptr;
    find("FilterMinimumOrder", minimumOrder);
    const double edges[] = {0.3, 0.5};
    minimumOrder(0, edges, 2, 1.0, 40.0, &order, edge);
    Expect(order > 1, "FilterMinimumOrder");

    dlclose(library);
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
