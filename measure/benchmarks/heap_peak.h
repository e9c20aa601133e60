#ifndef TRELVANIX_BENCH_HEAP_PEAK_H
#define TRELVANIX_BENCH_HEAP_PEAK_H

#include <cstdint>
#include <functional>

namespace trelvanix::bench
{

// The bytes by which the heap exceeds its present size at the highest point of a call, results that the
// call releases included. Single thread.
std::int64_t HeapPeak(const std::function<void()>& call);

} // namespace trelvanix::bench

#endif
