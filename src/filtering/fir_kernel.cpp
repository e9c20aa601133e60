#include "filtering/fir_kernel.h"

#include <cstddef>
#include <cstring>

#include "common/instruction_set.h"
#include "common/lanes.h"

// The outputs are cut into blocks, and each block into laneCount runs of length outputs, one for each
// lane. Vector i of a block holds sample i of every run, so sum i of every run takes tap k on vector
// i + k: all loads are aligned, and a vector serves all sums that it belongs to while it is in its
// register. Each lane sums one output with the taps in increasing order from 0.0, multiply then add, as
// the plain loop does. Long filters take their taps in chunks, for which the samples of a block stay in
// the first-level cache; the sums wait in memory between two chunks, which changes nothing in them.

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{

// Sums that are in registers at a time, and the taps that a vector meets before the next is loaded.
constexpr int tileLength = laneCount == 8 ? 16 : 8;
constexpr int tileTaps = 4;

constexpr int maxLength = 128; // of a run: a multiple of tileLength
constexpr int maxTaps = 256;   // of a chunk

constexpr int UpToMultiple(int count, int factor)
{
    return (count + factor - 1) / factor * factor;
}

constexpr int maxVectors = UpToMultiple(maxLength + maxTaps - 1, laneCount);

// The index of the first sample behind those that a block reads for a chunk.
constexpr int Extent(int length, int vectorCount)
{
    return (laneCount - 1) * length + vectorCount;
}

// What a chunk of taps adds to the sums of a block: the first chunk starts them, the last one writes them
// to the output.
struct Chunk {
    const double* h;
    int tapCount;
    bool isFirst;
    bool isLast;
};

// copy[i] = signal[first + i] for count elements: before the signal what ends at pastEnd, behind it zeros.
TRELVANIX_INLINE void CopyAround(const double* pastEnd, const double* signal, std::int64_t signalLength,
                                 std::int64_t first, int count, double* copy)
{
    int i = 0;
    for (; i < count && first + i < 0; ++i)
        copy[i] = pastEnd[first + i];
    for (; i < count && first + i < signalLength; ++i)
        copy[i] = signal[first + i];
    for (; i < count; ++i)
        copy[i] = 0.0;
}

// vectors[i] = samples i, length + i, 2 length + i, ...; count is a multiple of laneCount.
TRELVANIX_INLINE void LoadRuns(const double* samples, int length, int count, Lanes* vectors)
{
    for (int i = 0; i < count; i += laneCount) {
        Lanes square[laneCount];
        for (int run = 0; run < laneCount; ++run)
            square[run] = Load(samples + std::ptrdiff_t{run} * length + i);
        Transpose(square);
        for (int j = 0; j < laneCount; ++j)
            vectors[i + j] = square[j];
    }
}

// The reverse, for the vectors of one tile.
TRELVANIX_INLINE void StoreRuns(const Lanes (&vectors)[tileLength], int length, double* output)
{
    for (int i = 0; i < tileLength; i += laneCount) {
        Lanes square[laneCount];
        for (int j = 0; j < laneCount; ++j)
            square[j] = vectors[i + j];
        Transpose(square);
        for (int run = 0; run < laneCount; ++run)
            Store(output + std::ptrdiff_t{run} * length + i, square[run]);
    }
}

// sums[i] takes samples[i + k] h[k] for the first tapCount taps, k increasing.
template <int tapCount>
TRELVANIX_INLINE void AddProducts(const Lanes* samples, const double* h, Lanes (&sums)[tileLength])
{
    Lanes taps[tapCount];
    for (int k = 0; k < tapCount; ++k)
        taps[k] = Broadcast(h[k]);
#pragma GCC unroll 32
    for (int v = 0; v < tileLength + tapCount - 1; ++v) {
        const Lanes sample = samples[v];
#pragma GCC unroll 32
        for (int k = 0; k < tapCount; ++k) {
            if (v - k >= 0 && v - k < tileLength)
                sums[v - k] = sums[v - k] + sample * taps[k];
        }
    }
}

// sums[i] takes the products of a chunk; the last chunk writes the sums to their places in the output.
TRELVANIX_INLINE void AddChunk(const Chunk& chunk, const Lanes* samples, int length, Lanes* sums,
                               double* output)
{
    for (int i = 0; i < length; i += tileLength) {
        Lanes tile[tileLength];
        for (int j = 0; j < tileLength; ++j)
            tile[j] = chunk.isFirst ? Broadcast(0.0) : sums[i + j];
        int k = 0;
        for (; k + tileTaps <= chunk.tapCount; k += tileTaps)
            AddProducts<tileTaps>(samples + i + k, chunk.h + k, tile);
        for (; k < chunk.tapCount; ++k)
            AddProducts<1>(samples + i + k, chunk.h + k, tile);
        if (chunk.isLast) {
            StoreRuns(tile, length, output + i);
        } else {
            for (int j = 0; j < tileLength; ++j)
                sums[i + j] = tile[j];
        }
    }
}

void Correlate(const double* past, const double* signal, const double* h, std::int64_t signalLength,
               std::int64_t tapCount, double* output)
{
    const double* const pastEnd = tapCount > 1 ? past + tapCount - 1 : past;
    Lanes vectors[maxVectors];
    Lanes sums[maxLength];
    double edge[Extent(maxLength, maxVectors)]; // the block where it reaches beyond the signal

    for (std::int64_t n = 0; n < signalLength;) {
        const std::int64_t rest = signalLength - n;
        const int length =
            rest >= std::int64_t{laneCount} * maxLength
                ? maxLength
                : UpToMultiple((static_cast<int>(rest) + laneCount - 1) / laneCount, tileLength);
        const std::int64_t outputCount = std::int64_t{laneCount} * length;
        const bool isWhole = rest >= outputCount;

        std::int64_t k = 0;
        do {
            const int taps = tapCount - k < maxTaps ? static_cast<int>(tapCount - k) : maxTaps;
            const int vectorCount = UpToMultiple(length + taps - 1, laneCount);
            const int extent = Extent(length, vectorCount);
            const std::int64_t first = n - tapCount + 1 + k;
            if (first >= 0 && first + extent <= signalLength) {
                LoadRuns(signal + first, length, vectorCount, vectors);
            } else {
                CopyAround(pastEnd, signal, signalLength, first, extent, edge);
                LoadRuns(edge, length, vectorCount, vectors);
            }
            const Chunk chunk = {h + k, taps, k == 0, k + taps == tapCount};
            AddChunk(chunk, vectors, length, sums, isWhole ? output + n : edge);
            k += taps;
        } while (k < tapCount);

        if (!isWhole)
            std::memcpy(output + n, edge, static_cast<std::size_t>(rest) * sizeof(double));
        n += outputCount;
    }
}

} // namespace
} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

template <>
trelvanix::FirKernels trelvanix::CompiledKernels<trelvanix::FirKernels,
                                                 trelvanix::InstructionSet::TRELVANIX_INSTRUCTION_SET>()
{
    return {trelvanix::TRELVANIX_INSTRUCTION_SET::Correlate};
}
