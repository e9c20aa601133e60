//! The smallest host in Rust: designs a low-pass filter, filters a step that comes back down, prints both.
//!
//! usage: first_filter [EDGE]
//!
//! EDGE is a fraction of the Nyquist frequency, 0.3 unless given.

use std::ops::Deref;
use std::os::raw::{c_int, c_void};

const LOW_PASS: c_int = 0;
const HAMMING: c_int = 2;
const HIGHEST_ORDER: usize = 10000; // our own limit, far above what a filter needs

#[link(name = "Trelvanix")]
extern "C" {
    fn CreateFirByWindow(
        order: c_int,
        filter_type: c_int,
        window_type: c_int,
        wc1: f64,
        wc2: f64,
    ) -> *mut f64;
    fn Filter(
        signal: *const f64,
        b: *const f64,
        a: *const f64,
        signal_length: c_int,
        coef_count: c_int,
    ) -> *mut f64;
    fn ReleaseDoubleArray(p: *mut c_void) -> c_int;
}

/// An array of the library, used as a slice and given back when it is dropped.
struct LibraryArray {
    first: *mut f64,
    count: usize,
}

impl Deref for LibraryArray {
    type Target = [f64];

    fn deref(&self) -> &[f64] {
        unsafe { std::slice::from_raw_parts(self.first, self.count) }
    }
}

impl Drop for LibraryArray {
    fn drop(&mut self) {
        unsafe { ReleaseDoubleArray(self.first.cast()) };
    }
}

fn design_low_pass(order: usize, edge: f64) -> Result<LibraryArray, String> {
    // The library answers bad arguments with C++ exceptions, and those end the process: check first.
    if !(1..=HIGHEST_ORDER).contains(&order) {
        return Err(format!(
            "the order has to lie between 1 and {}",
            HIGHEST_ORDER
        ));
    }
    // Said so that not-a-number is refused too.
    if !(edge > 0.0 && edge < 1.0) {
        return Err("the edge has to lie between 0 and 1, the Nyquist frequency".to_string());
    }
    // A low-pass has one edge, but the second one is range-checked too.
    let first = unsafe { CreateFirByWindow(order as c_int, LOW_PASS, HAMMING, edge, 0.5) };
    Ok(LibraryArray {
        first,
        count: order + 1,
    })
}

fn apply_fir(signal: &[f64], taps: &[f64]) -> Result<LibraryArray, String> {
    let signal_length = c_int::try_from(signal.len()).map_err(|_| "the signal is too long")?;
    let tap_count = c_int::try_from(taps.len()).map_err(|_| "there are too many taps")?;
    let no_denominator = std::ptr::null();
    let first = unsafe {
        Filter(
            signal.as_ptr(),
            taps.as_ptr(),
            no_denominator,
            signal_length,
            tap_count,
        )
    };
    Ok(LibraryArray {
        first,
        count: signal.len(),
    })
}

fn run() -> Result<(), String> {
    let edge = match std::env::args().nth(1) {
        Some(text) => text
            .parse()
            .map_err(|error| format!("{}: {}", text, error))?,
        None => 0.3,
    };
    let mut signal = [0.0; 20];
    signal[..10].fill(1.0);
    let taps = design_low_pass(8, edge)?;
    let filtered = apply_fir(&signal, &taps)?;
    for (n, (before, after)) in signal.iter().zip(filtered.iter()).enumerate() {
        println!("{:2} {:4.1} {:9.6}", n, before, after);
    }
    Ok(())
}

fn main() {
    if let Err(message) = run() {
        eprintln!("first_filter: {}", message);
        std::process::exit(1);
    }
}
