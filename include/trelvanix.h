/* Trelvanix: numerical signal processing behind twenty C functions.
 *
 * Conventions that hold for every function
 *
 * Numbers      Arrays are contiguous 64-bit IEEE doubles; their count travels as a separate 32-bit int.
 *              A complex array of n elements is 2n doubles: real part, imaginary part, real part, ...
 * Ownership    A function that returns double* hands over a new result array; give it back once, with
 *              ReleaseDoubleArray or ReleaseComplexDoubleArray (the two are interchangeable), from any
 *              thread and in any order. Every other array belongs to the caller and is not kept.
 * Frequencies  1.0 is the Nyquist frequency, half the sampling rate: 50 Hz at 360 Hz sampling is
 *              50 / 180. Analog IIR designs (analog != 0, and Bessel) take their edges as they are.
 * Filter types 0 lowpass, 1 highpass, 2 bandpass, 3 bandstop.
 * Windows      0 Rectangle, 1 Hann, 2 Hamming, 3 Blackman, 4 Flattop, 5 Kaiser (beta = 7),
 *              6 Gaussian (alpha = 2.5), 7 Triang, 8 Bartlett, 9 Bartlett-Hann,
 *              10 Blackman-Harris (symmetric), 11 Blackman-Harris (periodic), 12 Parzen,
 *              13 Nuttall (symmetric), 14 Nuttall (periodic).
 * Errors       C++ exceptions leave the functions; each comment lists them in the order in which the
 *              checks are made. A host that can't catch C++ exceptions checks its arguments first.
 *              Where a comment lists no check, bad numbers give not-a-number results. Every function
 *              that allocates may throw std::bad_alloc; a negative count (or one too large for the
 *              address space) throws std::bad_array_new_length. Pointers are not checked: where a
 *              comment does not allow null, null is undefined.
 *              After an exception arrays of the caller may have been written already: the edges wn of a
 *              band type and the denominator a of an IIR design, *order of CreateFirByRemezord and of
 *              FilterMinimumOrder. No result array is left behind.
 * Concurrency  No state is kept between calls. Calls may run at the same time on any threads as long
 *              as they do not share an array that one of them writes.
 */
#ifndef TRELVANIX_H
#define TRELVANIX_H

#define TRELVANIX_VERSION_MAJOR 1
#define TRELVANIX_VERSION_MINOR 0
#define TRELVANIX_VERSION_PATCH 0

/* On Windows the names are exported by a module-definition file and need no mark here. */
#if defined(__GNUC__) && !defined(_WIN32)
#define TRELVANIX_API __attribute__((visibility("default")))
#else
#define TRELVANIX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Fourier transforms ---------------------------------------------------------------------- */

/* Computes the discrete Fourier transform X[k] = sum over j of x[j] e^(-2 pi i j k / n), unscaled.
 *
 *   input    n complex elements, read only
 *   ignored  accepted and not used
 *   n        number of elements, a power of two; 0 gives an empty result array
 *
 * Returns a new complex array of n elements.
 *
 * A length that is not a power of two does not give the n-point transform: with 2^m the largest power
 * of two below n, the butterflies of the 2^m-point transform run on the first 2^m elements with twiddle
 * factors of angle -2 pi k / n, and the elements at 2^m and beyond as well as those at
 * bitreverse(0) .. bitreverse(n - 2^m - 1) (m bits) are zero. Pad with zeros (FFText does) to get a
 * spectrum.
 *
 * Errors: std::bad_array_new_length for n < 0; std::bad_alloc. Numbers are not checked.
 * Source: Gentleman & Sande 1966 (radix-2 decimation in frequency). */
TRELVANIX_API double* DFT(const double* input, int ignored, int n);

/* The same as DFT, bit for bit. */
TRELVANIX_API double* FFT(const double* input, int ignored, int n);

/* Computes the complex conjugate of the inverse discrete Fourier transform, scaled by 1/n: the forward
 * transform of the conjugated input, divided by n and not conjugated again. For the spectrum of a real
 * signal that is the signal, with imaginary parts of rounding size; of a complex signal the imaginary
 * parts come out with the opposite sign.
 *
 *   input    n complex elements, read only
 *   ignored  accepted and not used
 *   n        number of elements, a power of two; other lengths as for DFT; 0 gives an empty array
 *
 * Returns a new complex array of n elements.
 *
 * Errors: std::bad_array_new_length for n < 0; std::bad_alloc. Numbers are not checked.
 * Source: Gentleman & Sande 1966. */
TRELVANIX_API double* IFFT(const double* input, int ignored, int n);

/* Transforms a real signal at a length of the caller's choice: the signal is cut, or padded with zeros,
 * to n samples.
 *
 *   x        xCount samples, read only; may be null when no sample is read
 *   xCount   number of samples; 0 reads none, a negative count reads n samples
 *   n        transform length, a power of two; other lengths as for DFT; 0 writes nothing
 *   outReal  n doubles, written: real parts of the spectrum, unscaled
 *   outImag  n doubles, written: imaginary parts; must not overlap outReal
 *
 * Errors: std::bad_array_new_length for n < 0; std::bad_alloc. Nothing is written before an error.
 * Numbers are not checked.
 * Source: Gentleman & Sande 1966. */
TRELVANIX_API void FFText(const double* x, int xCount, int n, double* outReal, double* outImag);

/* ---- Filtering --------------------------------------------------------------------------------- */

/* Applies FIR or IIR coefficients to a signal: FirFilterToSignal(signal, b, signalLength, coefCount)
 * when a is null, IirFilterToSignal(signal, b, a, signalLength, coefCount) otherwise. Arguments, result
 * and errors are those of the function chosen. */
TRELVANIX_API double* Filter(const double* signal, const double* b, const double* a, int signalLength,
                             int coefCount);

/* Filters a signal with FIR taps, starting from rest:
 * y[n] = sum over k of h[k] x[n - (tapCount - 1 - k)], k increasing, samples before the signal being 0.
 *
 *   signal        signalLength samples, read only
 *   h             tapCount taps, read only: h[tapCount - 1] weights the newest sample, h[0] the oldest.
 *                 Symmetric taps give the usual convolution; reverse others first if you want that.
 *   signalLength  number of samples; 0 gives an empty result array
 *   tapCount      number of taps; 0 gives zeros
 *
 * Returns a new array of signalLength samples. The products with the samples before the signal take
 * place, so that an infinite tap gives not-a-number there.
 *
 * Errors: std::bad_array_new_length for signalLength < 0 or tapCount < 0; std::bad_alloc. Numbers are
 * not checked.
 * Source: Oppenheim & Schafer, Discrete-Time Signal Processing. */
TRELVANIX_API double* FirFilterToSignal(const double* signal, const double* h, int signalLength,
                                        int tapCount);

/* Filters a signal with an IIR filter in direct form I, starting from rest:
 * y[n] = sum over k of b[k] x[n - k]  -  sum over k >= 1 of a[k] y[n - k], k increasing in both sums.
 *
 *   signal        signalLength samples, read only
 *   b             coefCount numerator coefficients, read only
 *   a             coefCount denominator coefficients, read only; a[0] is taken to be 1 and never read,
 *                 so divide b and a by a[0] first if it is not
 *   signalLength  number of samples; 0 gives an empty result array
 *   coefCount     length of b and of a; 0 gives zeros
 *
 * Returns a new array of signalLength samples. The products with the zeros before the signal take
 * place, as in FirFilterToSignal.
 *
 * Errors: std::bad_array_new_length for signalLength < 0 or coefCount < 0; std::bad_alloc. Numbers are
 * not checked.
 * Source: Oppenheim & Schafer, Discrete-Time Signal Processing. */
TRELVANIX_API double* IirFilterToSignal(const double* signal, const double* b, const double* a,
                                        int signalLength, int coefCount);

/* ---- Polynomial roots ---------------------------------------------------------------------------- */

/* Finds the n roots of c[0] z^n + c[1] z^(n-1) + ... + c[n-1] z + c[0]: the constant term is always
 * taken equal to the leading coefficient, as palindromic polynomials have it. The roots of a polynomial
 * with another constant term cannot be had from this function.
 *
 *   c   coefficients, highest power first; c[0] .. c[n-1] are read (none for n = 1), c[0] must not be
 *       zero
 *   n   number of roots; 0 gives an empty result array
 *
 * Returns a new complex array of n roots, in the order in which they are found; conjugate pairs are
 * neighbours, negative imaginary part first. n = 1 gives -1 for every c. A root that the iteration does
 * not find, which no finite polynomial is known to have, is not-a-number in both parts.
 *
 * Errors: std::bad_array_new_length for n < 0 or n > 46340; std::bad_alloc. Numbers are not checked;
 * c[0] = 0 gives roots that are infinite or not-a-number.
 * Source: eigenvalues of the companion matrix, Francis 1961, Golub & Van Loan. */
TRELVANIX_API double* Roots(const double* c, int n);

/* ---- FIR design ---------------------------------------------------------------------------------- */

/* Designs a linear-phase FIR filter: ideal impulse response times a window.
 *
 *   order       filter order, >= 1; the filter has order + 1 taps. Choose an even order for highpass
 *               and bandstop: an odd one cannot pass the Nyquist frequency, and a highpass is then
 *               divided by a gain that is rounding noise.
 *   filterType  0 lowpass, 1 highpass, 2 bandpass, 3 bandstop
 *   windowType  0 .. 14, see "Windows" above
 *   wc1, wc2    edges, fractions of the Nyquist frequency, in (0, 1); lowpass and highpass use wc1
 *               alone; wc1 < wc2 is not demanded
 *
 * Returns a new array of order + 1 taps. The gain is one at zero frequency (lowpass, bandstop), at
 * Nyquist (highpass) or midway between the edges (bandpass).
 *
 * Errors, first failure wins, nothing is returned: std::invalid_argument for windowType outside
 * 0 .. 14, filterType outside 0 .. 3, order below 1, wc1 outside (0, 1), wc2 outside (0, 1) (tested for
 * every type but highpass, so a lowpass needs a valid wc2 too); std::bad_array_new_length for an order
 * whose tap count does not fit an int; std::bad_alloc. A not-a-number edge passes the checks and gives
 * not-a-number taps if the type uses it; so does a window that is zero everywhere (order 1 with Hann,
 * Bartlett or Bartlett-Hann).
 * Source: window method, Oppenheim & Schafer, Discrete-Time Signal Processing; windows, Harris 1978. */
TRELVANIX_API double* CreateFirByWindow(int order, int filterType, int windowType, double wc1,
                                        double wc2);

/* Designs a linear-phase FIR filter by frequency sampling: a piecewise linear amplitude on a dense
 * grid, inverse transform, window. The gain is not normalised.
 *
 *   order       filter order, >= 1; the filter has order + 1 taps. Choose an even order for highpass
 *               and bandstop: an odd one cannot pass the Nyquist frequency.
 *   filterType  0 lowpass, 1 highpass, 2 bandpass, 3 bandstop; any other value acts as lowpass
 *   windowType  0 .. 14, see "Windows" above
 *   wc1, wc2    fractions of the Nyquist frequency. Lowpass and highpass: end of the first band and
 *               start of the second, linear in between; wc1 = 0 makes a jump at wc2. Band types:
 *               the two edges, each a jump. A jump becomes a ramp of 0.04 around it. What lies
 *               outside [0, 1] is cut off; the order of the edges is not checked.
 *
 * Returns a new array of order + 1 taps, symmetric to rounding.
 *
 * Errors, first failure wins: std::invalid_argument for order below 1, for windowType outside 0 .. 14,
 * for a lowpass or highpass with wc2 = 0 and wc1 not 0; std::bad_array_new_length for an order whose
 * taps, or the two to four times as many grid points, do not fit an int; std::bad_alloc. An edge that
 * is infinite or not a number makes every tap not-a-number.
 * Source: frequency sampling, Oppenheim & Schafer, Discrete-Time Signal Processing. */
TRELVANIX_API double* CreateFirByFS(int order, int filterType, int windowType, double wc1, double wc2);

/* Designs an equiripple linear-phase FIR filter with equal weights in all bands.
 *
 *   order       filter order; the filter has order + 1 taps. Choose an even order for highpass and
 *               bandstop: an odd one cannot pass the Nyquist frequency. Order 1 gives taps of half the
 *               size that they should have; order -1 gives an empty array.
 *   filterType  0 lowpass, 1 highpass, 2 bandpass, 3 bandstop; any other value acts as lowpass
 *   wc1, wc2    fractions of the Nyquist frequency, as for CreateFirByFS: lowpass and highpass have
 *               their transition between wc1 and wc2, or bands that touch at wc2 when wc1 = 0; band
 *               types have bands that touch at wc1 and at wc2. Where bands touch, the ripple is about
 *               a half whatever the order. Edges outside [0, 1] or out of order are taken as they are.
 *
 * Returns a new array of order + 1 symmetric taps. The exchange ends when it has found the best
 * filter or after 250 sweeps, and does not tell which. It finds the best one down to ripples of about
 * 1e-9; an order too high for its transition, with a ripple below that, gives a worse filter than a
 * lower order does, so check the response. The time grows with the square of the order.
 *
 * Errors, first failure wins: std::invalid_argument for a lowpass or highpass with wc2 = 0 and wc1
 * not 0; std::bad_array_new_length for order below -1 or one whose tap count does not fit an int;
 * std::length_error for a frequency grid of more than 2^24 points (about 8 per tap and unit of band
 * width); std::bad_alloc. An edge that is infinite or not a number makes every tap not-a-number.
 * Source: Parks & McClellan 1972; McClellan, Parks & Rabiner 1973. */
TRELVANIX_API double* CreateFirByRemez(int order, int filterType, double wc1, double wc2);

/* Estimates the order of an equiripple FIR filter from its edges and deviations, and designs it.
 *
 *   filterType   0 lowpass, 1 highpass, 2 bandpass, 3 bandstop (designed as bandpass)
 *   f1, f2       lowpass, highpass: the transition band; band types: the first transition band;
 *                fractions of the Nyquist frequency
 *   f3, f4       band types: the second transition band; not used for lowpass and highpass. Make the
 *                two equally wide: in a much wider one the gain can rise far above 1.
 *   dev          ndev largest deviations, linear, > 0, in band order; normalised in place
 *   ndev         2 for lowpass and highpass, 3 for the band types
 *   order        written: the order estimated, before the design runs
 *
 * Returns a new array of *order + 1 symmetric taps. The estimate is good to one or two taps for common
 * requests, so the deviations may be missed by some percent; for wide transitions and high attenuations
 * it can be five taps short (edges 0.03 and 0.3, 90 dB: missed by 10 dB). It is made even for a highpass. Bands are weighted by the
 * reciprocals of their deviations; what is said of the exchange at CreateFirByRemez holds here too.
 *
 * Errors, first failure wins: std::invalid_argument for filterType outside 0 .. 3, for an ndev that
 * does not suit it (dev and *order are then untouched), for an estimate that is not finite or above
 * 65,536 (*order is then untouched); std::bad_array_new_length for an order below -1 or one whose
 * tap count does not fit an int; std::length_error for a frequency grid of more than 2^24 points;
 * std::bad_alloc. A deviation of zero or below has no finite estimate.
 * Source: order, Herrmann, Rabiner & Chan 1973; design, McClellan, Parks & Rabiner 1973. */
TRELVANIX_API double* CreateFirByRemezord(int filterType, double f1, double f2, double f3, double f4,
                                          double* dev, int ndev, int* order);

/* ---- IIR design ---------------------------------------------------------------------------------- */

/* Designs a Butterworth filter: no ripple, half power (-3.01 dB) at the edges.
 *
 *   order       order n of the lowpass prototype, >= 1; the filter has N = n poles (lowpass, highpass)
 *               or N = 2n (band types); 0 gives a gain
 *   wn          lowpass, highpass: wn[0], the edge; band types: wn[0] < wn[1], the two edges. Fractions
 *               of the Nyquist frequency, in (0, 1). The band types overwrite wn with the prewarped
 *               centre frequency and 0.0, so fill it anew before each call.
 *   filterType  0 lowpass, 1 highpass, 2 bandpass, 3 bandstop; any other value takes the lowpass
 *               transformation with wn[0] as it is, not prewarped, and a numerator of zeros
 *   analog      0 for a digital design. Otherwise prewarping and bilinear transform are left out, but
 *               the lower edge counts as 0 and is never read, and b is still that of a digital filter:
 *               lowpass and highpass then have all poles at 0, the band types (which take wn[1] as
 *               their bandwidth) not-a-number coefficients. There is no useful analog design. A
 *               filterType that is none of the four reads wn[0] here too, as the edge in rad/s, and
 *               has the denominator of the analog lowpass.
 *   a           N + 1 doubles, written: denominator, a[0] = 1, descending powers of z; null is allowed
 *   b           N + 1 doubles, written: numerator; null is allowed
 *
 * The gain is one at zero frequency (lowpass, bandstop), at Nyquist (highpass) or at the centre
 * (bandpass). Coefficients of high orders lose their meaning in double precision, the sooner the
 * narrower the band: up to order 12 for an edge at 0.05 and order 4 for a band from 0.02 to 0.03 the
 * response is that of the exact filter within 0.01 dB, soon after it is useless.
 *
 * Errors: std::bad_array_new_length for an order below 0, above 46340 (lowpass, highpass) or above
 * 23170 (band types), before anything is written; std::bad_alloc. If the model of a bandpass cannot
 * grow, "Memory allocation failed for 'a' or 'b' or 'c'." goes to standard error and the process ends
 * with status 1. Numbers are not checked; edges outside (0, 1) give filters without meaning or
 * not-a-number coefficients.
 * Source: Parks & Burrus, Digital Filter Design, 1987. */
TRELVANIX_API void Butterworth(int order, double* wn, unsigned int filterType, int analog, double* a,
                               double* b);

/* Designs a Chebyshev type I filter: equal ripple in the pass band, monotonic stop band.
 *
 *   rp   peak-to-peak ripple of the pass band in decibels, > 0
 *
 * The other parameters and the errors are those of Butterworth; wn holds the edge or edges of the pass
 * band, where the response leaves the ripple, rp below its peak. The peak is one; for an even order the
 * response at the reference frequency (see Butterworth) is at the bottom of the ripple. A filterType
 * that is none of the four has a numerator of zeros but for b[0], which comes from the gain of the
 * prototype, g = 1 / (2^(n - 1) sqrt(10^(rp/10) - 1)): it is -g for an odd order n, and g times the bottom
 * of the ripple, 10^(-rp/20), for an even one.
 * rp = 0 gives not-a-number coefficients.
 * Source: Parks & Burrus, Digital Filter Design, 1987. */
TRELVANIX_API void Chebyshv1(int order, double rp, double* wn, unsigned int filterType, int analog,
                             double* a, double* b);

/* Designs a Chebyshev type II filter: monotonic pass band, equal ripple in the stop band.
 *
 *   rs   attenuation of the stop band in decibels, > 0
 *
 * The other parameters and the errors are those of Butterworth; wn holds the edge or edges of the stop
 * band, where the response is rs below one for the first time.
 *
 * The numerator is read back from the model, and comes out right when the filter
 *   - has an even order, if it is a highpass or a bandpass (of an odd order they have zeros at z = 1,
 *     which the read-back cannot find: b is not the filter's), and
 *   - has a leading numerator coefficient above 0.0001 (a smaller one is taken for zero and b is scaled
 *     by the first coefficient that is larger). Up to order 12 that is so for attenuations up to 80 dB
 *     with edges from 0.3 and up to 70 dB with edges from 0.05 on.
 * The denominator is right in any case. rs = 0 gives not-a-number coefficients.
 *
 * The numerator is read back for other filter types and with analog set too, where Butterworth has a
 * fixed one:
 *   - a filterType that is none of the four gives the digital lowpass whose stop band begins at wn[0]
 *     rad/s before the bilinear transform (sampling rate 2), with a numerator as good as a lowpass has;
 *   - the same with analog set: the denominator of the analog lowpass; in b the first coefficient
 *     is right and the last one equals it, which is wrong (even orders), or all but the first are infinite
 *     or not-a-number (odd orders);
 *   - analog lowpass: b is 10^(-rs/20) at both ends and rounding noise between them (even orders), or 0
 *     followed by not-a-numbers (odd orders);
 *   - analog highpass: b is 1 at both ends and rounding noise between them;
 *   - analog band types: not-a-number, but perhaps for b[0].
 * Source: Parks & Burrus, Digital Filter Design, 1987. */
TRELVANIX_API void Chebyshv2(int order, double rs, double* wn, unsigned int filterType, int analog,
                             double* a, double* b);

/* Designs an analog Bessel filter: maximally flat group delay.
 *
 *   order       order n of the lowpass prototype, 1 .. 25; N = n poles, or 2n for the band types. Other
 *               orders have all prototype poles at 0.
 *   wn          edge or edges in rad/s, never prewarped: where the prototype's unit frequency goes, the
 *               product of its pole moduli being one. The band types overwrite wn with the centre
 *               frequency and 0.0.
 *   filterType  0 lowpass, 1 highpass, 2 bandpass, 3 bandstop; any other value acts as lowpass
 *   a           N + 1 doubles, written: denominator in descending powers of s, a[0] = 1; null is
 *               allowed
 *   b           N + 1 doubles, written: all zero but the last, for every type; null is allowed
 *
 * Only a lowpass has a numerator of this form; of the other types use a and supply the zeros: s^N for
 * a highpass, Bw^n s^n for a bandpass, (s^2 + Wo^2)^n for a bandstop. b[N] is read back from the model
 * and is rounding noise for a lowpass above order 3 with an edge of 600 rad/s, or above order 9 with
 * one of 6; it should equal a[N], so take that, or design for an edge of 1 rad/s and scale.
 * Orders 4 and 17 do not hold a Bessel filter: of order 4 two poles are not a pair, and order 17 has
 * its real pole at 0; their coefficients are kept for hosts that rely on them.
 *
 * Errors: as for Butterworth.
 * Source: Thomson 1949; Parks & Burrus, Digital Filter Design, 1987. */
TRELVANIX_API void Bessel(int order, double* wn, int filterType, double* a, double* b);

/* Designs an elliptic filter: equal ripple in the pass band and in the stop band, the steepest transition
 * for its order.
 *
 *   Rp   peak-to-peak ripple of the pass band in decibels, > 0
 *   Rs   attenuation of the stop band in decibels, > Rp
 *
 * The other parameters and the errors are those of Butterworth; wn holds the edge or edges of the pass
 * band, where the response leaves the ripple. The peak is one; for an even order the response at the
 * reference frequency (see Butterworth) is at the bottom of the ripple. Where the stop band begins
 * follows from order, Rp and Rs.
 *
 * Zeros, poles and gain are read back from the model's polynomials. The filter comes out right when
 *   - it has an even order, if it is a highpass or a bandpass (of an odd order they have zeros at z = 1,
 *     which the read-back cannot find: b is not the filter's),
 *   - its leading numerator coefficient is above 0.0001 (a smaller one is taken for zero and b is scaled
 *     by the first coefficient that is larger),
 *   - Rs is at most some 104 to 120 dB, the less the smaller Rp: beyond, (10^(Rp/10) - 1) over
 *     (10^(Rs/10) - 1) is below 1e-12, and the transition band comes out far too wide, or b is
 *     not-a-number, and
 *   - the band is not so narrow, nor the order so high, that the polynomials lose their meaning in
 *     double precision.
 * Where all this holds, 90 to 100 % of random designs up to order 9 kept their mask (docs/NUMERICS.md has
 * the tables, for narrow bands and low edges too). Rp = 0 gives not-a-number coefficients.
 *
 * What Chebyshv2 says of other filter types and of analog holds here too, with Rs for rs and wn[0] as the
 * end of the pass band; the ends of b of an analog highpass of even order are 10^(-Rp/20).
 * Source: Orfanidis, Lecture Notes on Elliptic Filter Design, 2006. */
TRELVANIX_API void Elliptic(int order, double Rp, double Rs, double* wn, unsigned int filterType,
                            int analog, double* a, double* b);

/* ---- Order estimation ---------------------------------------------------------------------------- */

/* Estimates the smallest order of a digital IIR filter that meets its requirements, and the edge or edges
 * to hand to the design function of its family.
 *
 *   designType       0 Butterworth, 1 Chebyshev I, 2 Chebyshev II, 3 elliptic, 4 Bessel (a fixed
 *                    answer: order 1, wn[0] = 0.1 when edgeCount is 2); any other value writes nothing
 *   edges            edgeCount edges, fractions of the Nyquist frequency, in (0, 1), read only: the
 *                    pass-band edge or edges, then the stop-band edge or edges, each pair ascending
 *   edgeCount        2 (lowpass, highpass) or 4 (bandpass, bandstop); the type follows from the edges:
 *                    lowpass or bandstop when the first stop-band edge is above the first pass-band edge
 *   passRipple       largest attenuation in the pass band, decibels, > 0
 *   stopAttenuation  smallest attenuation in the stop band, decibels, > passRipple. Of both the sign is
 *                    ignored, but for designType 3.
 *   order            written: the order of the prototype, as the design functions take it
 *   wn               edgeCount / 2 doubles, written: Butterworth, the half-power edges that meet the
 *                    stop band exactly; Chebyshev I and elliptic, the pass-band edges as given;
 *                    Chebyshev II, the stop-band edges as given
 *
 * In three cases the order may be too low for the edges returned, by one or two mostly: Chebyshev I and
 * elliptic bandstop (the estimate moves the pass edges inwards to save order) and Chebyshev II bandpass,
 * unless the edges are symmetric about their centre. Measure these designs and raise the order until
 * they meet the requirements. The order may also be one with which the family's design has a wrong
 * numerator (odd orders of Chebyshev II and elliptic highpass and bandpass filters): take the next even
 * one then.
 *
 * Errors: std::bad_alloc. Numbers are not checked: an order that is infinite or not a number (equal
 * edges, no ripple) is written as the most negative int, and edges out of order may give a negative
 * order. A transition with a not-a-number edge is passed over, and so, being infinitely wide, is one
 * from or to 0 (an edge of a lowpass or highpass, a stop-band edge of a bandpass): the order is that of
 * the other transition of a band type, and 0 where none is left, so look for such edges first. A
 * bandstop whose first stop-band edge is not a number counts as bandpass. Any other edgeCount counts as
 * lowpass or highpass and touches nothing outside arrays of that length.
 * Source: Rabiner & Gold 1975; elliptic integrals, Abramowitz & Stegun 1964; minimiser, Brent 1973. */
TRELVANIX_API void FilterMinimumOrder(int designType, const double* edges, int edgeCount,
                                      double passRipple, double stopAttenuation, int* order,
                                      double* wn);

/* ---- Release ------------------------------------------------------------------------------------- */

/* Releases a result array.
 *
 *   p   a result array of this library that was not released before, or null
 *
 * Returns 1, or 0 when p is null. Throws nothing. */
TRELVANIX_API int ReleaseDoubleArray(void* p);

/* The same as ReleaseDoubleArray. */
TRELVANIX_API int ReleaseComplexDoubleArray(void* p);

#ifdef __cplusplus
}
#endif

#endif
