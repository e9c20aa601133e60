// A recorded signal and the CSV file it comes from.
#pragma once

#include <filesystem>
#include <vector>

struct Recording {
    std::vector<double> times;    // seconds
    std::vector<double> voltages; // millivolts, as many as times
};

// Reads a CSV file: one header line, then one line a sample with at least two columns, time in seconds
// and voltage in millivolts; further columns are not looked at. Line ends may be LF or CRLF.
//
//   rate   sampling rate in Hz; each time has to lie within half a sample of its place, counted from
//          the first sample, so that a gap in the recording or a wrong rate does not go unnoticed
//
// Errors: std::runtime_error that names the file, and the line where one is to blame, for a file that
// cannot be read, has no samples, or holds too few columns, anything but numbers up to 1e9, or a
// time out of place.
Recording ReadRecording(const std::filesystem::path& path, double rate);
