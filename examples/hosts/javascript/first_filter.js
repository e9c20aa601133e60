// The smallest host in JavaScript: designs a low-pass filter, filters a step that comes back down, prints
// both.
//
// usage: npm ci && node first_filter.js LIBRARY [EDGE]
//
// LIBRARY is the built shared library, libTrelvanix.so or Trelvanix.dll;
// EDGE is a fraction of the Nyquist frequency, 0.3 unless given.
"use strict";

const koffi = require("koffi");

const lowPass = 0, hamming = 2;
const highestOrder = 10000; // our own limit, far above what a filter needs

function load(path) {
  const library = koffi.load(path);
  return {
    CreateFirByWindow: library.func(
      "double* CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2)"),
    Filter: library.func(
      "double* Filter(const double* signal, const double* b, const double* a, int signalLength, int coefCount)"),
    ReleaseDoubleArray: library.func("int ReleaseDoubleArray(void* p)"),
  };
}

// Copies a result array into a Float64Array and gives it back to the library.
function taken(library, array, count) {
  try {
    return koffi.decode(array, koffi.array("double", count, "Typed"));
  } finally {
    library.ReleaseDoubleArray(array);
  }
}

function designLowPass(library, order, edge) {
  // The library answers bad arguments with C++ exceptions, and those end the process: check first.
  if (!(Number.isInteger(order) && order >= 1 && order <= highestOrder))
    throw new RangeError(`the order has to lie between 1 and ${highestOrder}`);
  if (!(edge > 0 && edge < 1)) // said so that not-a-number is refused too
    throw new RangeError("the edge has to lie between 0 and 1, the Nyquist frequency");
  // A low-pass has one edge, but the second one is range-checked too.
  return taken(library, library.CreateFirByWindow(order, lowPass, hamming, edge, 0.5), order + 1);
}

function applyFir(library, signal, taps) {
  return taken(library, library.Filter(signal, taps, null, signal.length, taps.length), signal.length);
}

function main([path, edge = "0.3"]) {
  const library = load(path);
  const signal = new Float64Array(20).fill(1, 0, 10);
  const filtered = applyFir(library, signal, designLowPass(library, 8, Number(edge)));
  for (let n = 0; n < signal.length; ++n)
    console.log(
      `${String(n).padStart(2)} ${signal[n].toFixed(1).padStart(4)} ${filtered[n].toFixed(6).padStart(9)}`);
}

try {
  main(process.argv.slice(2));
} catch (error) {
  if (!(error instanceof RangeError))
    throw error;
  console.error(`first_filter: ${error.message}`);
  process.exitCode = 1;
}
