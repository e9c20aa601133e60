#include "trelvanix.h"

#include "api/not_in_this_version.h"

void Butterworth(int /*order*/, double* /*wn*/, unsigned int /*filterType*/, int /*analog*/,
                 double* /*a*/, double* /*b*/)
{
    trelvanix::ThrowNotInThisVersion("Butterworth");
}

void Chebyshv1(int /*order*/, double /*rp*/, double* /*wn*/, unsigned int /*filterType*/,
               int /*analog*/, double* /*a*/, double* /*b*/)
{
    trelvanix::ThrowNotInThisVersion("Chebyshv1");
}

void Chebyshv2(int /*order*/, double /*rs*/, double* /*wn*/, unsigned int /*filterType*/,
               int /*analog*/, double* /*a*/, double* /*b*/)
{
    trelvanix::ThrowNotInThisVersion("Chebyshv2");
}

void Bessel(int /*order*/, double* /*wn*/, int /*filterType*/, double* /*a*/, double* /*b*/)
{
    trelvanix::ThrowNotInThisVersion("Bessel");
}

void Elliptic(int /*order*/, double /*Rp*/, double /*Rs*/, double* /*wn*/, unsigned int /*filterType*/,
              int /*analog*/, double* /*a*/, double* /*b*/)
{
    trelvanix::ThrowNotInThisVersion("Elliptic");
}
