#include "trelvanix.h"

#include "classic/bessel.h"
#include "classic/butterworth.h"
#include "classic/chebyshev1.h"
#include "classic/chebyshev2.h"
#include "classic/elliptic.h"

void Butterworth(int order, double* wn, unsigned int filterType, int analog, double* a, double* b)
{
    trelvanix::Butterworth(order, wn, filterType, analog, a, b);
}

void Chebyshv1(int order, double rp, double* wn, unsigned int filterType, int analog, double* a,
               double* b)
{
    trelvanix::Chebyshv1(order, rp, wn, filterType, analog, a, b);
}

void Chebyshv2(int order, double rs, double* wn, unsigned int filterType, int analog, double* a,
               double* b)
{
    trelvanix::Chebyshv2(order, rs, wn, filterType, analog, a, b);
}

void Bessel(int order, double* wn, int filterType, double* a, double* b)
{
    trelvanix::Bessel(order, wn, filterType, a, b);
}

void Elliptic(int order, double Rp, double Rs, double* wn, unsigned int filterType, int analog,
              double* a, double* b)
{
    trelvanix::Elliptic(order, Rp, Rs, wn, filterType, analog, a, b);
}
