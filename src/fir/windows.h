#ifndef TRELVANIX_FIR_WINDOWS_H
#define TRELVANIX_FIR_WINDOWS_H

namespace trelvanix
{

// The windows: each routine writes the N samples w[0] .. w[N - 1]. Symmetric windows divide by N - 1, periodic
// ones by N. Those that take angles read x[n] = 2 pi n / (N - 1) for every sample, which several can share.
// None checks or throws anything.
// Source: Harris 1978; Nuttall 1981 for the Nuttall and Blackman-Harris coefficients; Kaiser 1974.
void RectangleWindow(int N, double* w);
void HannWindow(const double* angles, int N, double* w);
void HammingWindow(const double* angles, int N, double* w);
void BlackmanWindow(const double* angles, int N, double* w);
void FlattopWindow(const double* angles, int N, double* w);
// Shape parameter beta = 7.
void KaiserWindow(int N, double* w);
// Width parameter alpha = 2.5: the ends are exp(-3.125).
void GaussianWindow(int N, double* w);
// A triangle that does not reach zero at its ends.
void TriangWindow(int N, double* w);
// A triangle whose ends are zero.
void BartlettWindow(int N, double* w);
void BartlettHannWindow(int N, double* w);
void BlackmanHarrisSymmetricWindow(int N, double* w);
void BlackmanHarrisPeriodicWindow(int N, double* w);
void ParzenWindow(int N, double* w);
// Its value at a distance from the middle, in samples.
double ParzenSample(double offset, int N);
void NuttallSymmetricWindow(int N, double* w);
void NuttallPeriodicWindow(int N, double* w);

} // namespace trelvanix

#endif
