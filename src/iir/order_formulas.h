#ifndef TRELVANIX_IIR_ORDER_FORMULAS_H
#define TRELVANIX_IIR_ORDER_FORMULAS_H

namespace trelvanix
{

// The order that a lowpass of each family needs, before it is rounded up.
//
//   selectivity       stop edge over pass edge, > 1
//   passRipple        largest loss in the pass band, decibels, > 0
//   stopAttenuation   smallest loss in the stop band, decibels, > passRipple
//
// Numbers are not checked: where the formula has no value, not-a-number or an infinity comes out.
// Source: Rabiner & Gold, Theory and Application of Digital Signal Processing, 1975, chapter 4.
double ButterworthOrder(double selectivity, double passRipple, double stopAttenuation);
double ChebyshevOrder(double selectivity, double passRipple, double stopAttenuation);
double EllipticOrder(double selectivity, double passRipple, double stopAttenuation);

// 10^(decibels / 10) - 1.
double PowerRatioLessOne(double decibels);

} // namespace trelvanix

#endif
