/* The smallest host: designs a low-pass filter, filters a step that comes back down, prints both.
 *
 * C cannot catch the exceptions that leave the library for bad arguments, so a C host passes only
 * arguments that it knows to be in range; trelvanix.h lists the ranges. */
#include <stdio.h>

#include "trelvanix.h"

enum { order = 8, sampleCount = 20 };

int main(void)
{
    const double signal[sampleCount] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    const int lowPass = 0, hamming = 2;
    const double edge = 0.3;   /* of the Nyquist frequency */
    const double unused = 0.5; /* a low-pass has one edge, but the second one is range-checked too */

    double* taps = CreateFirByWindow(order, lowPass, hamming, edge, unused);
    double* filtered = Filter(signal, taps, NULL, sampleCount, order + 1);

    for (int n = 0; n < sampleCount; ++n)
        printf("%2d %4.1f %9.6f\n", n, signal[n], filtered[n]);

    ReleaseDoubleArray(filtered);
    ReleaseDoubleArray(taps);
    return 0;
}
