/* A host in C: every function has the signature that it should have, and a filter is designed, applied
 * and released. */
#include <math.h>
#include <stddef.h>
#include <stdio.h>

#include "trelvanix.h"

/* The whole interface, as a host's function pointers see it; an incompatible signature does not
 * compile. */
struct Interface {
    double* (*transforms[3])(const double*, int, int);
    void (*ffText)(const double*, int, int, double*, double*);
    double* (*filter)(const double*, const double*, const double*, int, int);
    double* (*firFilter)(const double*, const double*, int, int);
    double* (*iirFilter)(const double*, const double*, const double*, int, int);
    double* (*roots)(const double*, int);
    double* (*firDesigns[2])(int, int, int, double, double);
    double* (*remez)(int, int, double, double);
    double* (*remezord)(int, double, double, double, double, double*, int, int*);
    void (*butterworth)(int, double*, unsigned int, int, double*, double*);
    void (*rippleDesigns[2])(int, double, double*, unsigned int, int, double*, double*);
    void (*bessel)(int, double*, int, double*, double*);
    void (*elliptic)(int, double, double, double*, unsigned int, int, double*, double*);
    void (*minimumOrder)(int, const double*, int, double, double, int*, double*);
    int (*releases[2])(void*);
};

static const struct Interface library = {{DFT, FFT, IFFT},
                                         FFText,
                                         Filter,
                                         FirFilterToSignal,
                                         IirFilterToSignal,
                                         Roots,
                                         {CreateFirByWindow, CreateFirByFS},
                                         CreateFirByRemez,
                                         CreateFirByRemezord,
                                         Butterworth,
                                         {Chebyshv1, Chebyshv2},
                                         Bessel,
                                         Elliptic,
                                         FilterMinimumOrder,
                                         {ReleaseDoubleArray, ReleaseComplexDoubleArray}};

int main(void)
{
    double signal[32];
    double* taps;
    double* filtered;
    double sum = 0.0;
    int i;

    for (i = 0; i < 32; ++i)
        signal[i] = 1.0;
    taps = library.firDesigns[0](10, 0, 2, 0.3, 0.5);
    for (i = 0; i <= 10; ++i)
        sum += taps[i];
    filtered = library.filter(signal, taps, NULL, 32, 11);
    if (fabs(sum - 1.0) > 1e-14 || fabs(filtered[31] - 1.0) > 1e-14) {
        printf("a lowpass of unit gain: taps add up to %.17g, a constant comes out as %.17g\n", sum,
               filtered[31]);
        return 1;
    }
    if (library.releases[0](taps) != 1 || library.releases[1](filtered) != 1 ||
        library.releases[0](NULL) != 0) {
        printf("a release did not answer 1 for an array or 0 for null\n");
        return 1;
    }
    return 0;
}
