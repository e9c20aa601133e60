#ifndef TRELVANIX_CLASSIC_ELLIPTIC_DEGREE_H
#define TRELVANIX_CLASSIC_ELLIPTIC_DEGREE_H

namespace trelvanix
{

// The selectivity modulus of the designs: EllipticDegree down to k1 = 1e-6, below it by the nome.
double SelectivityModulus(int N, double k1);

// The branch of tiny k1: seven terms of the theta series at the nome exp(-pi K1'/K1)^N. The degree equation
// calls for the N-th root of the nome; the N-th power is what released filters were designed with, and it is
// kept: beyond some 104 to 120 dB of attenuation elliptic designs are wrong. k1 = 0 gives not-a-number.
double SelectivityByNome(int N, double k1);

} // namespace trelvanix

#endif
