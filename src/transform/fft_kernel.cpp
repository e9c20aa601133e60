// What it computes: the radix-2 transform by decimation in frequency of fourier.h. Stage by stage, in
// blocks of half the length of the stage before, the butterfly
//
//     x[k], x[k + half]  <-  x[k] + x[k + half],  (x[k] - x[k + half]) e^(-2 pi i k groups / period)
//
// and in the end the bit-reversal permutation.
//
// Why the bits are those of the plain loop: each butterfly is computed once, by the same additions and
// products of the same values, none left out, not even the product with 1 + 0i, which turns an infinity
// into not-a-number and may change the sign of a zero. Only which butterflies run side by side in the
// lanes of a vector, and when, is different.
//
// How it is blocked:
//
//   - The data stay in one array from the first stage to the last. A pass takes 2, 4 or 8 vectors that
//     are `distance` elements apart through 1, 2 or 3 stages in registers. Between the passes the array
//     is kept in groups of laneCount elements: their real parts, then their imaginary parts. The first
//     pass reads the input into this order, the last one writes the output from it.
//   - Blocks that exceed the cache are finished one after the other, not stage by stage.
//   - In the last log2(laneCount) stages partners are in the same vector. The last pass transposes
//     tiles of laneCount x laneCount elements, so that they get into different vectors at the same
//     lane. The rows of a tile are size / laneCount elements apart in the array: these are the elements
//     that the permutation makes neighbours, so that the results are stored as whole vectors. The
//     permutation swaps tiles t and reverse(t); both are loaded before either is stored.
//   - The twiddles of a stage are copied to be contiguous, those of `half` butterflies a block at
//     twiddles[half .. 2 half - 1], in the same order of groups. This makes the twiddle at index p that
//     at 2p. The first stage uses each of its twiddles once: they are made by the way, a chunk at a
//     time, and only every other is kept, for the second stage.
#include "transform/fft_kernel.h"

#include <algorithm>

#include "common/constants.h"
#include "common/instruction_set.h"
#include "common/lanes.h"
#include "math/trigonometric.h"

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{
constexpr int laneBits = laneCount == 8 ? 3 : laneCount == 4 ? 2 : 1;

// As many stages as find room for their data in the registers: 32 with AVX-512, else 16.
constexpr int maxStages = laneCount == 8 ? 3 : 2;

constexpr int tileSize = laneCount * laneCount;

// Transforms up to this size have no whole tile, or not two groups of twiddles.
constexpr int smallSize = (tileSize > 4 * laneCount ? tileSize : 4 * laneCount) / 2;

// Elements of a block that together with its twiddles fits into the second-level cache.
constexpr std::int64_t cachedLength = std::int64_t{1} << 14;

// Twiddles made at a time: few enough to be in the first-level cache when they are used.
constexpr std::int64_t chunkLength = std::int64_t{64} * laneCount;
constexpr std::int64_t maxRun = std::int64_t{128} * laneCount;

struct Number {
    double re, im;
};

// laneCount complex numbers.
struct Numbers {
    Lanes re, im;
};

template <class Value>
TRELVANIX_INLINE void Butterfly(Value& a, Value& d, Value w)
{
    const Value e = {a.re - d.re, a.im - d.im};
    a = {a.re + d.re, a.im + d.im};
    d = {e.re * w.re - e.im * w.im, e.re * w.im + e.im * w.re};
}

// The index whose `bits` bits are those of i in reverse order.
constexpr int Reversed(int i, int bits)
{
    int reversed = 0;
    for (; bits > 0; --bits, i /= 2)
        reversed = 2 * reversed + i % 2;
    return reversed;
}

// The successor of r when the bits of the index are read from the top: index size / 2 comes after 0.
TRELVANIX_INLINE std::int64_t NextReversed(std::int64_t r, std::int64_t size)
{
    std::int64_t bit = size >> 1;
    while ((r & bit) != 0) {
        r ^= bit;
        bit >>= 1;
    }
    return r | bit;
}

// Arrays in groups. k is a multiple of laneCount, except for single numbers.
TRELVANIX_INLINE Numbers LoadGroup(const double* array, std::int64_t k)
{
    return {Load(array + 2 * k), Load(array + 2 * k + laneCount)};
}

TRELVANIX_INLINE void StoreGroup(double* array, std::int64_t k, Numbers x)
{
    Store(array + 2 * k, x.re);
    Store(array + 2 * k + laneCount, x.im);
}

TRELVANIX_INLINE void PrefetchGroup(const double* array, std::int64_t k)
{
    Prefetch(array + 2 * k);
    Prefetch(array + 2 * k + laneCount);
}

TRELVANIX_INLINE std::int64_t RealPart(std::int64_t k)
{
    return k + k / laneCount * laneCount;
}

TRELVANIX_INLINE Number LoadNumber(const double* array, std::int64_t k)
{
    return {array[RealPart(k)], array[RealPart(k) + laneCount]};
}

TRELVANIX_INLINE void StoreNumber(double* array, std::int64_t k, Number x)
{
    array[RealPart(k)] = x.re;
    array[RealPart(k) + laneCount] = x.im;
}

// The lanes of even index of x and y taken together, and those of odd index.
TRELVANIX_INLINE Lanes EvenLanes(Lanes x, Lanes y)
{
    return PickLanes(x, y, [](int lane) { return 2 * lane; });
}

TRELVANIX_INLINE Lanes OddLanes(Lanes x, Lanes y)
{
    return PickLanes(x, y, [](int lane) { return 2 * lane + 1; });
}

// The lanes of x and y in turn: those of the lower and of the upper halves.
TRELVANIX_INLINE Lanes AlternateLow(Lanes x, Lanes y)
{
    return PickLanes(x, y, [](int lane) { return lane / 2 + lane % 2 * laneCount; });
}

TRELVANIX_INLINE Lanes AlternateHigh(Lanes x, Lanes y)
{
    return PickLanes(x, y, [](int lane) { return (laneCount + lane) / 2 + lane % 2 * laneCount; });
}

// Sources of a first pass: Elements reads the laneCount elements from k on, Element a single one.
struct ComplexInput {
    const double* input;

    Numbers Elements(std::int64_t k) const
    {
        const Lanes low = Load(input + 2 * k);
        const Lanes high = Load(input + 2 * k + laneCount);
        return {EvenLanes(low, high), OddLanes(low, high)};
    }

    Number Element(std::int64_t k) const
    {
        return {input[2 * k], input[2 * k + 1]};
    }

    void PrefetchElements(std::int64_t k) const
    {
        PrefetchGroup(input, k);
    }
};

struct ConjugatedInput {
    ComplexInput input;

    Numbers Elements(std::int64_t k) const
    {
        const Numbers x = input.Elements(k);
        return {x.re, -x.im};
    }

    Number Element(std::int64_t k) const
    {
        const Number x = input.Element(k);
        return {x.re, -x.im};
    }

    void PrefetchElements(std::int64_t k) const
    {
        input.PrefetchElements(k);
    }
};

struct RealInput {
    const double* x;
    std::int64_t count;

    Numbers Elements(std::int64_t k) const
    {
        if (k + laneCount <= count)
            return {Load(x + k), Broadcast(0.0)};
        double padded[laneCount] = {};
        for (int i = 0; k + i < count; ++i)
            padded[i] = x[k + i];
        return {Load(padded), Broadcast(0.0)};
    }

    Number Element(std::int64_t k) const
    {
        return {k < count ? x[k] : 0.0, 0.0};
    }

    void PrefetchElements(std::int64_t k) const
    {
        if (k < count)
            Prefetch(x + k);
    }
};

// The source of the other passes.
struct GroupedData {
    const double* data;

    Numbers Elements(std::int64_t k) const
    {
        return LoadGroup(data, k);
    }
};

// Destinations of the last pass.
struct ComplexOutput {
    double* output;

    void PutElements(std::int64_t k, Numbers x) const
    {
        Store(output + 2 * k, AlternateLow(x.re, x.im));
        Store(output + 2 * k + laneCount, AlternateHigh(x.re, x.im));
    }

    void PutElement(std::int64_t k, Number x) const
    {
        output[2 * k] = x.re;
        output[2 * k + 1] = x.im;
    }
};

// Divided, not multiplied by 1 / period, which would round differently.
struct DividedOutput {
    ComplexOutput output;
    double divisor;

    void PutElements(std::int64_t k, Numbers x) const
    {
        output.PutElements(k, {x.re / Broadcast(divisor), x.im / Broadcast(divisor)});
    }

    void PutElement(std::int64_t k, Number x) const
    {
        output.PutElement(k, {x.re / divisor, x.im / divisor});
    }
};

struct SplitOutput {
    double* real;
    double* imag;

    void PutElements(std::int64_t k, Numbers x) const
    {
        Store(real + k, x.re);
        Store(imag + k, x.im);
    }

    void PutElement(std::int64_t k, Number x) const
    {
        real[k] = x.re;
        imag[k] = x.im;
    }
};

// `stages` stages between 2^stages vectors; twiddles(stage, j) are those of the butterflies between
// vectors j and j + half of a block.
template <int stages, int stage = 0, class Twiddles>
TRELVANIX_INLINE void Butterflies(Numbers* x, const Twiddles& twiddles)
{
    if constexpr (stage < stages) {
        constexpr int half = 1 << (stages - stage - 1);
        for (int j = 0; j < half; ++j)
            Butterfly(x[j], x[j + half], twiddles(stage, j));
        Butterflies<stages, stage + 1>(x, twiddles);
        Butterflies<stages, stage + 1>(x + half, twiddles);
    }
}

// The first `stages` stages of a block of `length` elements, for those at distances begin to end - 1
// from multiples of length / 2^stages. The twiddles of the first of them are given apart: those of row j
// stand, from `begin` on, at j * rowLength.
template <int stages, class Source>
TRELVANIX_INLINE void Pass(const Source& source, double* data, std::int64_t length, std::int64_t begin,
                           std::int64_t end, const double* firstTwiddles, std::int64_t rowLength,
                           const double* table)
{
    constexpr int rows = 1 << stages;
    const std::int64_t distance = length >> stages;
    for (std::int64_t k = begin; k < end; k += laneCount) {
        Numbers x[rows];
        for (int j = 0; j < rows; ++j)
            x[j] = source.Elements(j * distance + k);
        Butterflies<stages>(x, [&](int stage, int j) {
            return stage == 0 ? LoadGroup(firstTwiddles, j * rowLength + k - begin)
                              : LoadGroup(table, (length >> (stage + 1)) + j * distance + k);
        });
        for (int j = 0; j < rows; ++j)
            StoreGroup(data, j * distance + k, x[j]);
    }
}

// e^(-2 pi i k / period) for k = first, first + step, ..., count of them, in groups.
TRELVANIX_INLINE void MakeTwiddles(std::int64_t first, int step, std::int64_t count, int period,
                                   double* twiddles)
{
    double steps[laneCount];
    for (int lane = 0; lane < laneCount; ++lane)
        steps[lane] = lane * step;
    for (std::int64_t i = 0; i < count; i += laneCount) {
        // Negated as an integer: the first angle is +0, and so is its sine. (GCC 12 makes -0 of 0.0 less
        // an integer 0.) Add, multiply, divide, in this order: a step 2 pi / period computed once would round
        // differently.
        const Lanes t = Broadcast(static_cast<double>(-(first + i * step))) - Load(steps);
        Store(twiddles + 2 * i, (t + t) * Broadcast(pi) / Broadcast(period));
    }
    for (std::int64_t i = 0; i < count; i += laneCount) {
        for (int lane = 0; lane < laneCount; ++lane) {
            const double angle = twiddles[2 * i + lane];
            const SineAndCosine value = SinAndCos(angle);
            twiddles[2 * i + lane] = value.cosine;
            twiddles[2 * i + laneCount + lane] = value.sine;
        }
    }
}

// Every other of 2 laneCount twiddles.
TRELVANIX_INLINE void HalveTwiddles(double* twiddles, std::int64_t p)
{
    const Numbers low = LoadGroup(twiddles, 2 * p);
    const Numbers high = LoadGroup(twiddles, 2 * p + laneCount);
    StoreGroup(twiddles, p, {EvenLanes(low.re, high.re), EvenLanes(low.im, high.im)});
}

// The twiddles of all stages but the first.
void MakeTwiddleTable(std::int64_t size, int period, double* twiddles)
{
    if (size <= smallSize)
        return;
    const std::int64_t half = size / 4;
    const std::int64_t chunk = std::min(half, chunkLength);
    std::int64_t made = half;
    for (std::int64_t p = half; p < 2 * half; p += chunk) {
        MakeTwiddles(2 * (p - half), 2, chunk, period, twiddles + 2 * p);
        // The stages below while their twiddles are in the cache.
        made = half;
        for (std::int64_t begin = p / 2, count = chunk / 2; count >= laneCount;
             begin /= 2, count /= 2) {
            for (std::int64_t i = begin; i < begin + count; i += laneCount)
                HalveTwiddles(twiddles, i);
            made /= 2;
        }
    }
    for (std::int64_t p = made - laneCount; p >= laneCount; p -= laneCount)
        HalveTwiddles(twiddles, p);
    for (std::int64_t p = laneCount - 1; p > 0; --p)
        StoreNumber(twiddles, p, LoadNumber(twiddles, 2 * p));
}

// The twiddles first .. first + count - 1 of the first stage: those of even index are in the table.
TRELVANIX_INLINE void CompleteTwiddles(std::int64_t first, std::int64_t count, std::int64_t size,
                                       int period, const double* table, double* twiddles)
{
    double odd[maxRun];
    MakeTwiddles(first + 1, 2, count / 2, period, odd);
    for (std::int64_t i = 0; i < count / 2; i += laneCount) {
        const Numbers x = LoadGroup(table, (size / 2 + first) / 2 + i);
        const Numbers y = LoadGroup(odd, i);
        StoreGroup(twiddles, 2 * i, {AlternateLow(x.re, y.re), AlternateLow(x.im, y.im)});
        StoreGroup(twiddles, 2 * i + laneCount, {AlternateHigh(x.re, y.re), AlternateHigh(x.im, y.im)});
    }
}

// The first pass, and with it the twiddles of the first stage.
template <int stages, class Source>
TRELVANIX_INLINE void FirstPass(const Source& source, double* data, std::int64_t size, int period,
                                const double* table)
{
    constexpr int rows = 1 << (stages - 1);
    const std::int64_t distance = size >> stages;
    const std::int64_t chunk = std::min(distance, maxRun / rows);
    const std::int64_t run = chunk == distance ? rows * chunk : chunk;
    double twiddles[2 * maxRun];
    for (std::int64_t begin = 0; begin < distance; begin += chunk) {
        for (std::int64_t row = 0; row < size; row += distance) {
            for (std::int64_t k = row + begin; k < row + begin + chunk; k += laneCount) {
                source.PrefetchElements(k);
                PrefetchGroup(data, k);
            }
        }
        for (std::int64_t i = 0; i < rows * chunk; i += run)
            CompleteTwiddles(i / chunk * distance + begin, run, size, period, table, twiddles + 2 * i);
        Pass<stages>(source, data, size, begin, begin + chunk, twiddles, chunk, table);
    }
}

template <int stages>
void MiddlePass(double* data, std::int64_t size, std::int64_t length, const double* table)
{
    const std::int64_t distance = length >> stages;
    for (double* block = data; block < data + 2 * size; block += 2 * length) {
        Pass<stages>(GroupedData{block}, block, length, 0, distance, table + length, distance, table);
    }
}

// How many stages the next pass takes on blocks of this length.
int StagesOfPass(std::int64_t length)
{
    int left = 0;
    for (; length > laneCount; length /= 2)
        ++left;
    if (left <= maxStages)
        return left;
    return left % maxStages == 0 ? maxStages : 2;
}

// The stages of the blocks of `length` elements in data[0 .. size - 1], but for the last pass.
// NOLINTNEXTLINE(misc-no-recursion): every level divides the length by 2 to 8
void MiddlePasses(double* data, std::int64_t size, std::int64_t length, const double* twiddles)
{
    while (length > laneCount) {
        if (size > cachedLength && length < size) {
            for (std::int64_t block = 0; block < size; block += length)
                MiddlePasses(data + 2 * block, length, length, twiddles);
            return;
        }
        const int stages = StagesOfPass(length);
        if (stages == 3)
            MiddlePass<3>(data, size, length, twiddles);
        else if (stages == 2)
            MiddlePass<2>(data, size, length, twiddles);
        else
            MiddlePass<1>(data, size, length, twiddles);
        length >>= stages;
    }
}

struct Tile {
    Numbers rows[laneCount];
};

// Tile t: the rows that end up side by side, after the last stages.
TRELVANIX_INLINE Tile FinishTile(const double* data, std::int64_t distance, std::int64_t t,
                                 const double* twiddles)
{
    Lanes re[laneCount];
    Lanes im[laneCount];
    for (int i = 0; i < laneCount; ++i) {
        const Numbers row = LoadGroup(data, Reversed(i, laneBits) * distance + t * laneCount);
        re[i] = row.re;
        im[i] = row.im;
    }
    Transpose(re);
    Transpose(im);
    Tile tile;
    for (int i = 0; i < laneCount; ++i)
        tile.rows[i] = {re[i], im[i]};
    Butterflies<laneBits>(tile.rows, [&](int stage, int j) {
        const Number w = LoadNumber(twiddles, (laneCount >> (stage + 1)) + j);
        return Numbers{Broadcast(w.re), Broadcast(w.im)};
    });
    return tile;
}

template <class Output>
TRELVANIX_INLINE void PutTile(const Tile& tile, std::int64_t distance, std::int64_t t,
                              const Output& output)
{
    for (int i = 0; i < laneCount; ++i)
        output.PutElements(Reversed(i, laneBits) * distance + t * laneCount, tile.rows[i]);
}

// The last log2(laneCount) stages and the permutation. The output may be the data.
template <class Output>
TRELVANIX_INLINE void LastPass(const double* data, std::int64_t size, const double* twiddles,
                               const Output& output)
{
    const std::int64_t tiles = size / tileSize;
    const std::int64_t distance = size / laneCount;
    for (std::int64_t t = 0, reversed = 0; t < tiles; ++t, reversed = NextReversed(reversed, tiles)) {
        if (t > reversed)
            continue;
        const Tile tile = FinishTile(data, distance, t, twiddles);
        if (t != reversed)
            PutTile(FinishTile(data, distance, reversed, twiddles), distance, t, output);
        PutTile(tile, distance, reversed, output);
    }
}

// The plain loop, for sizes without a whole tile.
template <class Source, class Output>
TRELVANIX_INLINE void SmallTransform(const Source& source, int size, int period, const Output& output)
{
    Number data[smallSize];
    double twiddles[2 * smallSize];
    for (int k = 0; k < size; ++k)
        data[k] = source.Element(k);
    MakeTwiddles(0, 1, size / 2, period, twiddles);
    for (std::int64_t half = size / 2, groups = 1; half > 0; half /= 2, groups *= 2) {
        for (Number* block = data; block < data + size; block += 2 * half) {
            for (std::int64_t k = 0; k < half; ++k)
                Butterfly(block[k], block[k + half], LoadNumber(twiddles, groups * k));
        }
    }
    for (int k = 0, reversed = 0; k < size; ++k) {
        output.PutElement(reversed, data[k]);
        reversed = static_cast<int>(NextReversed(reversed, size));
    }
}

template <class Source, class Output>
TRELVANIX_INLINE void Transform(const Source& source, double* data, std::int64_t size, int period,
                                const double* twiddles, const Output& output)
{
    if (size <= smallSize) {
        SmallTransform(source, static_cast<int>(size), period, output);
        return;
    }
    const int stages = StagesOfPass(size);
    if (stages == 3)
        FirstPass<3>(source, data, size, period, twiddles);
    else // sizes with a single stage before the tiles are small
        FirstPass<2>(source, data, size, period, twiddles);
    MiddlePasses(data, size, size >> stages, twiddles);
    LastPass(data, size, twiddles, output);
}

void TransformComplex(const double* input, double* output, std::int64_t size, int period,
                      const double* table)
{
    Transform(ComplexInput{input}, output, size, period, table, ComplexOutput{output});
}

void TransformConjugate(const double* input, double* output, std::int64_t size, int period,
                        const double* table)
{
    Transform(ConjugatedInput{{input}}, output, size, period, table,
              DividedOutput{{output}, static_cast<double>(period)});
}

void TransformReal(const double* x, std::int64_t count, double* outReal, double* outImag,
                   std::int64_t size, int period, const double* table, double* work)
{
    Transform(RealInput{x, count}, work, size, period, table, SplitOutput{outReal, outImag});
}

} // namespace
} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

template <>
trelvanix::FftKernels trelvanix::CompiledKernels<trelvanix::FftKernels,
                                                 trelvanix::InstructionSet::TRELVANIX_INSTRUCTION_SET>()
{
    using namespace trelvanix::TRELVANIX_INSTRUCTION_SET;
    return {MakeTwiddleTable, TransformComplex, TransformConjugate, TransformReal};
}
