#ifndef TRELVANIX_COMMON_LANES_H
#define TRELVANIX_COMMON_LANES_H

// For kernel sources alone: the widest vector of doubles of the instruction set that this translation
// unit is compiled for. An operation on Lanes does in every lane what the operation on doubles does,
// rounding included; kernels put different outputs into different lanes and keep the order of operations
// within a lane, so every instruction set gives the bits of the plain loop.
//
// Everything here is static and inlined. An inline function with external linkage would exist once for
// the whole library, perhaps in its AVX-512 form, and stop a processor that lacks it; kernel sources
// therefore use no templates or inline functions shared with other files (no standard containers), which
// the test "kernels" watches.
//
// Compilers with vector types (GCC, Clang) use these; others, and builds with TRELVANIX_PLAIN_LANES, a record
// of doubles.

#include <cstdint>
#include <cstring>
#include <utility>

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{

#if defined(__AVX512F__)
constexpr int laneCount = 8;
#elif defined(__AVX2__)
constexpr int laneCount = 4;
#else
constexpr int laneCount = 2;
#endif

#if defined(__GNUC__) && !defined(TRELVANIX_PLAIN_LANES)
#define TRELVANIX_INLINE static inline __attribute__((always_inline))
#define TRELVANIX_PREFETCH(p) __builtin_prefetch(p)

using Lanes = double __attribute__((vector_size(laneCount * sizeof(double))));

TRELVANIX_INLINE Lanes Broadcast(double value)
{
    return value - Lanes{}; // value - 0 is value, the sign of a zero included
}

template <class Pick, int... lane>
TRELVANIX_INLINE Lanes PickLanes(Lanes x, Lanes y, std::integer_sequence<int, lane...> /*lanes*/)
{
    return __builtin_shufflevector(x, y, Pick{}(lane)...);
}

// Lane i of the result is lane pick(i) of x and y taken together, x first. pick captures nothing.
template <class Pick>
TRELVANIX_INLINE Lanes PickLanes(Lanes x, Lanes y, Pick /*pick*/)
{
    return PickLanes<Pick>(x, y, std::make_integer_sequence<int, laneCount>{});
}

TRELVANIX_INLINE double GetLane(Lanes lanes, int i)
{
    return lanes[i];
}

TRELVANIX_INLINE void SetLane(Lanes& lanes, int i, double value)
{
    lanes[i] = value;
}

// The lanes of x, those of replacement where x is zero of either sign.
TRELVANIX_INLINE Lanes ReplaceZeros(Lanes x, Lanes replacement)
{
    return x == Lanes{} ? replacement : x;
}
#else
#define TRELVANIX_INLINE static inline
#define TRELVANIX_PREFETCH(p) static_cast<void>(p)

struct Lanes {
    double lane[laneCount];
};

#define TRELVANIX_LANES_OPERATOR(op)                                                                   \
    TRELVANIX_INLINE Lanes operator op(Lanes x, Lanes y)                                               \
    {                                                                                                  \
        for (int i = 0; i < laneCount; ++i)                                                            \
            x.lane[i] = x.lane[i] op y.lane[i];                                                        \
        return x;                                                                                      \
    }
TRELVANIX_LANES_OPERATOR(+)
TRELVANIX_LANES_OPERATOR(-)
TRELVANIX_LANES_OPERATOR(*)
TRELVANIX_LANES_OPERATOR(/)
#undef TRELVANIX_LANES_OPERATOR

TRELVANIX_INLINE Lanes operator-(Lanes x)
{
    for (double& lane : x.lane)
        lane = -lane;
    return x;
}

TRELVANIX_INLINE Lanes Broadcast(double value)
{
    Lanes lanes;
    for (double& lane : lanes.lane)
        lane = value;
    return lanes;
}

template <class Pick>
TRELVANIX_INLINE Lanes PickLanes(Lanes x, Lanes y, Pick pick)
{
    Lanes lanes;
    for (int i = 0; i < laneCount; ++i)
        lanes.lane[i] = pick(i) < laneCount ? x.lane[pick(i)] : y.lane[pick(i) - laneCount];
    return lanes;
}

TRELVANIX_INLINE double GetLane(const Lanes& lanes, int i)
{
    return lanes.lane[i];
}

TRELVANIX_INLINE void SetLane(Lanes& lanes, int i, double value)
{
    lanes.lane[i] = value;
}

TRELVANIX_INLINE Lanes ReplaceZeros(Lanes x, Lanes replacement)
{
    for (int i = 0; i < laneCount; ++i)
        x.lane[i] = x.lane[i] == 0.0 ? replacement.lane[i] : x.lane[i];
    return x;
}
#endif

// Tells the processor that the cache line of p is wanted soon.
TRELVANIX_INLINE void Prefetch(const double* p)
{
    TRELVANIX_PREFETCH(p);
}
#undef TRELVANIX_PREFETCH

TRELVANIX_INLINE Lanes Load(const double* p)
{
    Lanes lanes;
    std::memcpy(&lanes, p, sizeof lanes);
    return lanes;
}

TRELVANIX_INLINE void Store(double* p, Lanes lanes)
{
    std::memcpy(p, &lanes, sizeof lanes);
}

// One binary digit of the row numbers changes places with the same digit of the lane numbers.
template <int digit>
TRELVANIX_INLINE void TransposeDigit(Lanes (&square)[laneCount])
{
    for (int row = 0; row < laneCount; ++row) {
        if ((row & digit) == 0) {
            const Lanes x = square[row];
            const Lanes y = square[row + digit];
            square[row] = PickLanes(
                x, y, [](int lane) { return (lane & digit) == 0 ? lane : laneCount + lane - digit; });
            square[row + digit] = PickLanes(
                x, y, [](int lane) { return (lane & digit) == 0 ? lane + digit : laneCount + lane; });
        }
    }
}

// Lane j of row i changes places with lane i of row j.
TRELVANIX_INLINE void Transpose(Lanes (&square)[laneCount])
{
    TransposeDigit<1>(square);
    if constexpr (laneCount > 2)
        TransposeDigit<2>(square);
    if constexpr (laneCount > 4)
        TransposeDigit<4>(square);
}

// Elements stride apart, as those of a column of a row-major matrix.
TRELVANIX_INLINE Lanes LoadStrided(const double* p, std::int64_t stride)
{
    Lanes lanes = Broadcast(0.0);
    for (int i = 0; i < laneCount; ++i)
        SetLane(lanes, i, p[i * stride]);
    return lanes;
}

TRELVANIX_INLINE void StoreStrided(double* p, std::int64_t stride, Lanes lanes)
{
    for (int i = 0; i < laneCount; ++i)
        p[i * stride] = GetLane(lanes, i);
}

// The first count elements at p, or laneCount if that is less; the other lanes are zero.
TRELVANIX_INLINE Lanes LoadFirst(const double* p, int count)
{
    if (count >= laneCount)
        return Load(p);
    double padded[laneCount] = {};
    for (int i = 0; i < count; ++i)
        padded[i] = p[i];
    return Load(padded);
}

// The first count lanes, or all of them if that is less.
TRELVANIX_INLINE void StoreFirst(double* p, int count, Lanes lanes)
{
    if (count >= laneCount)
        return Store(p, lanes);
    double padded[laneCount];
    Store(padded, lanes);
    for (int i = 0; i < count; ++i)
        p[i] = padded[i];
}

} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

#endif
