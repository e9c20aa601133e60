#include "trelvanix.h"

#include "classic/equiripple_design.h"
#include "classic/equiripple_order.h"
#include "classic/frequency_sampling.h"
#include "classic/windowed_design.h"

double* CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2)
{
    return trelvanix::CreateFirByWindow(order, filterType, windowType, wc1, wc2).release();
}

double* CreateFirByFS(int order, int filterType, int windowType, double wc1, double wc2)
{
    return trelvanix::CreateFirByFS(order, filterType, windowType, wc1, wc2).release();
}

double* CreateFirByRemez(int order, int filterType, double wc1, double wc2)
{
    return trelvanix::CreateFirByRemez(order, filterType, wc1, wc2).release();
}

double* CreateFirByRemezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                            int ndev, int* order)
{
    return trelvanix::CreateFirByRemezord(filterType, f1, f2, f3, f4, dev, ndev, order).release();
}
