#include "trelvanix.h"

#include "api/not_in_this_version.h"
#include "fir/windowed_design.h"

double* CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2)
{
    return trelvanix::CreateFirByWindow(order, filterType, windowType, wc1, wc2).release();
}

double* CreateFirByFS(int /*order*/, int /*filterType*/, int /*windowType*/, double /*wc1*/,
                      double /*wc2*/)
{
    trelvanix::ThrowNotInThisVersion("CreateFirByFS");
}

double* CreateFirByRemez(int /*order*/, int /*filterType*/, double /*wc1*/, double /*wc2*/)
{
    trelvanix::ThrowNotInThisVersion("CreateFirByRemez");
}

double* CreateFirByRemezord(int /*filterType*/, double /*f1*/, double /*f2*/, double /*f3*/,
                            double /*f4*/, double* /*dev*/, int /*ndev*/, int* /*order*/)
{
    trelvanix::ThrowNotInThisVersion("CreateFirByRemezord");
}
