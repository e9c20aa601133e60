/* The smallest host: designs a low-pass filter, filters a step that comes back down, prints both.
 *
 * usage: first_filter [EDGE]
 *
 * EDGE is a fraction of the Nyquist frequency, 0.3 unless given.
 *
 * C cannot catch the exceptions with which the library answers bad arguments: they end the process. So a
 * C host checks its arguments first; trelvanix.h lists the ranges. */
#include <stdio.h>
#include <stdlib.h>

#include "trelvanix.h"

enum { order = 8, sampleCount = 20 };

int main(int argc, char** argv)
{
    const double signal[sampleCount] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    const int lowPass = 0, hamming = 2;
    const double edge = argc > 1 ? strtod(argv[1], NULL) : 0.3;
    const double unused = 0.5; /* a low-pass has one edge, but the second one is range-checked too */

    if (!(edge > 0.0 && edge < 1.0)) { /* said so that not-a-number is refused too */
        fputs("first_filter: the edge has to lie between 0 and 1, the Nyquist frequency\n", stderr);
        return 1;
    }

    double* taps = CreateFirByWindow(order, lowPass, hamming, edge, unused);
    double* filtered = Filter(signal, taps, NULL, sampleCount, order + 1);

    for (int n = 0; n < sampleCount; ++n)
        printf("%2d %4.1f %9.6f\n", n, signal[n], filtered[n]);

    ReleaseDoubleArray(filtered);
    ReleaseDoubleArray(taps);
    return 0;
}
