#include <stdio.h>

#include "trelvanix.h"

int main(void)
{
    const double step[12] = {0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    double* taps = CreateFirByWindow(8, 0, 2, 0.3, 0.5); /* order 8, lowpass, Hamming, edge 0.3 */
    double* smooth = Filter(step, taps, NULL, 12, 9);    /* no denominator: nine FIR taps */
    for (int n = 0; n < 12; ++n)
        printf("%.6f\n", smooth[n]);
    ReleaseDoubleArray(smooth);
    ReleaseDoubleArray(taps);
    return 0;
}
