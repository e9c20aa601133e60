// The frequencies that the cleaning filters are designed for. The FIR and the IIR filters have them in
// common, so that a comparison shows what the kind of filter does and not another choice of edges.
#pragma once

// Baseline wander lies below 0.5 Hz. 0.67 Hz, 40 beats a minute, is the highest edge that the American
// Heart Association recommends for filters without phase distortion (Kligfield et al. 2007).
inline constexpr double highPassEdge = 0.67; // Hz

// Half the width of the notch around the mains: narrow enough to leave the beats alone, wide enough for
// a window design of bearable length.
inline constexpr double notchHalfWidth = 2.0; // Hz

// Muscle noise reaches up to several hundred hertz; most of a QRS complex lies below 40 Hz. The recorder
// itself passed 0.1 to 100 Hz (Moody & Mark 2001), so that little of the heart is there above 100 Hz; a
// transition from 70 Hz on leaves the QRS complex alone with almost an octave to spare.
inline constexpr double lowPassPassEdge = 70.0, lowPassStopEdge = 100.0; // Hz

// Deviations of the low-pass in the pass band and in the stop band, linear: 0.09 dB and 40 dB. Nothing
// in the recording above 100 Hz is large enough to need more.
inline constexpr double lowPassRipple = 0.01, lowPassStopGain = 0.01;
