// A sweep of reflections, each of three rows and then of three columns.
//
// The rows: one column to a lane.
//
// The columns: one row to a lane. A row that lies above all three rows of the coming reflections takes
// part in nothing but column reflections any more, one after another, so these can wait. They are done
// blockLength reflections at a time, with the elements of a row in registers from one to the next; the
// rows that the reflections of the block still work with don't wait. Every element sees the reflections
// in the order of the plain sweep, so the bits are the same.
#include "linalg/sweep_kernel.h"

#include <cmath>
#include <cstdint>

#include "common/instruction_set.h"
#include "common/lanes.h"

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{

// A multiple of every laneCount, so that the rows that wait fill whole vectors.
constexpr int blockLength = 8;
static_assert(blockLength % laneCount == 0);

// The symmetric reflector that maps (p, q, r) onto (-s, 0, 0).
struct Reflector {
    double h00, h01, h02, h11, h12, h22;
};

// One reflection of a sweep; one with too short a vector doesn't take place.
struct Reflection {
    bool takesPlace;
    Reflector h;
};

// Row i of a row-major matrix with n columns.
TRELVANIX_INLINE double* Row(double* a, int n, int i)
{
    return a + std::int64_t{n} * i;
}

TRELVANIX_INLINE Reflector ReflectorOf(double p, double q, double r, double s)
{
    return {-(p / s),
            -(q / s),
            -(r / s),
            p / s + r / s * r / (s + p),
            -(q / s) * r / (s + p),
            p / s + q / s * q / (s + p)};
}

// Replaces three (two) elements by the reflector's image.
TRELVANIX_INLINE void Apply(const Reflector& h, double& x0, double& x1, double& x2)
{
    const double y0 = h.h00 * x0 + h.h01 * x1 + h.h02 * x2;
    const double y1 = h.h01 * x0 + h.h11 * x1 + h.h12 * x2;
    const double y2 = h.h02 * x0 + h.h12 * x1 + h.h22 * x2;
    x0 = y0;
    x1 = y1;
    x2 = y2;
}

TRELVANIX_INLINE void Apply(const Reflector& h, double& x0, double& x1)
{
    const double y0 = h.h00 * x0 + h.h01 * x1;
    const double y1 = h.h01 * x0 + h.h11 * x1;
    x0 = y0;
    x1 = y1;
}

// The same in every lane.
TRELVANIX_INLINE void ApplyToLanes(const Reflector& h, Lanes& x0, Lanes& x1, Lanes& x2)
{
    const Lanes h01 = Broadcast(h.h01), h02 = Broadcast(h.h02), h12 = Broadcast(h.h12);
    const Lanes y0 = Broadcast(h.h00) * x0 + h01 * x1 + h02 * x2;
    const Lanes y1 = h01 * x0 + Broadcast(h.h11) * x1 + h12 * x2;
    const Lanes y2 = h02 * x0 + h12 * x1 + Broadcast(h.h22) * x2;
    x0 = y0;
    x1 = y1;
    x2 = y2;
}

// Reflects count columns of three rows. What doesn't fill a vector goes first, so that the vectors of one
// reflection are those of the one before.
TRELVANIX_INLINE void ReflectRows(const Reflector& h, double* r0, double* r1, double* r2, int count)
{
    int j = 0;
    for (; j < count % laneCount; ++j)
        Apply(h, r0[j], r1[j], r2[j]);
    for (; j < count; j += laneCount) {
        Lanes x0 = Load(r0 + j), x1 = Load(r1 + j), x2 = Load(r2 + j);
        ApplyToLanes(h, x0, x1, x2);
        Store(r0 + j, x0);
        Store(r1 + j, x1);
        Store(r2 + j, x2);
    }
}

// The reflection of the vector (p, q, r); s becomes the element that p turns into, negated.
TRELVANIX_INLINE Reflection ReflectionOf(double p, double q, double r, double negligible, double& s)
{
    if (std::fabs(p) + std::fabs(q) + std::fabs(r) <= negligible)
        return {false, {}};
    // With the sign of p, that of a zero being positive.
    s = std::copysign(std::sqrt(p * p + q * q + r * r), p + 0.0);
    return {true, ReflectorOf(p, q, r, s)};
}

// Reflects three rows and then four (three, if there are no more) in three columns. below receives what
// comes to stand below the first element.
TRELVANIX_INLINE void ReflectCorner(const Reflection& reflection, double* r0, double* r1, double* r2,
                                    double* r3, double* below)
{
    double x[4][3] = {{r0[0], r0[1], r0[2]}, {r1[0], r1[1], r1[2]}, {r2[0], r2[1], r2[2]}, {}};
    if (r3 != nullptr)
        for (int j = 0; j < 3; ++j)
            x[3][j] = r3[j];
    if (reflection.takesPlace) {
        for (int j = 0; j < 3; ++j)
            Apply(reflection.h, x[0][j], x[1][j], x[2][j]);
        for (double(&row)[3] : x)
            Apply(reflection.h, row[0], row[1], row[2]);
    }
    for (int j = 0; j < 3; ++j) {
        r0[j] = x[0][j];
        r1[j] = x[1][j];
        r2[j] = x[2][j];
        if (r3 != nullptr)
            r3[j] = x[3][j];
        below[j] = x[j + 1][0];
    }
    if (r3 == nullptr)
        below[2] = 0.0;
}

// Reflects columns in rowCount rows, a multiple of laneCount; the first of the reflections takes the
// column at a and the two after it, the next one starts a column later.
TRELVANIX_INLINE void ReflectColumns(const Reflection* reflections, int count, double* a, int n,
                                     int rowCount)
{
    for (int i = 0; i < rowCount; i += laneCount) {
        double* column = Row(a, n, i);
        Lanes x0 = LoadStrided(column, n);
        Lanes x1 = LoadStrided(column + 1, n);
        for (int b = 0; b < count; ++b) {
            Lanes x2 = LoadStrided(column + 2, n);
            if (reflections[b].takesPlace)
                ApplyToLanes(reflections[b].h, x0, x1, x2);
            StoreStrided(column++, n, x0);
            x0 = x1;
            x1 = x2;
        }
        StoreStrided(column, n, x0);
        StoreStrided(column + 1, n, x1);
    }
}

void DoubleShiftSweep(double* a, int n, int l, int nn, Shifts shifts, double negligible)
{
    for (int i = l + 2; i <= nn; ++i)
        Row(a, n, i)[i - 2] = 0.0;
    for (int i = l + 3; i <= nn; ++i)
        Row(a, n, i)[i - 3] = 0.0;

    // The first column of (H - s1)(H - s2), not divided by its common factor.
    const double* first = Row(a, n, l) + l;
    const double* second = first + n;
    const double* third = second + n;
    const double p = first[1] * second[0] + (first[0] - shifts.sum) * first[0] + shifts.product;
    const double q = (first[0] + second[1] - shifts.sum) * second[0];
    const double r = second[0] * third[1];
    double s = 0.0;

    // Three rows at a time; the last two rows have a reflection of their own.
    Reflection next = ReflectionOf(p, q, r, negligible, s);
    Reflection waiting[blockLength];
    int start = l; // first row that doesn't wait
    for (int k = l; k < nn - 1; ++k) {
        const Reflection reflection = next;
        waiting[k - start] = reflection;
        double* r0 = Row(a, n, k);
        double* r1 = r0 + n;
        double* r2 = r1 + n;
        // First what the next reflection depends on: its roots and quotients take long, and the rest
        // can be done in the meantime.
        double below[3];
        ReflectCorner(reflection, r0 + k, r1 + k, r2 + k, k + 3 <= nn ? r2 + n + k : nullptr, below);
        next = ReflectionOf(below[0], below[1], below[2], negligible, s);
        if (next.takesPlace)
            r1[k] = -s;
        if (reflection.takesPlace) {
            ReflectRows(reflection.h, r0 + k + 3, r1 + k + 3, r2 + k + 3, nn - k - 2);
            for (int i = start; i < k; ++i)
                Apply(reflection.h, Row(a, n, i)[k], Row(a, n, i)[k + 1], Row(a, n, i)[k + 2]);
        }
        if (k + 1 == start + blockLength || k == nn - 2) {
            ReflectColumns(waiting, k + 1 - start, Row(a, n, l) + start, n, start - l);
            start += blockLength;
        }
    }
    if (!next.takesPlace)
        return;
    for (int j = nn - 1; j <= nn; ++j)
        Apply(next.h, Row(a, n, nn - 1)[j], Row(a, n, nn)[j]);
    for (int i = l; i <= nn; ++i)
        Apply(next.h, Row(a, n, i)[nn - 1], Row(a, n, i)[nn]);
}

} // namespace
} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET

template <>
trelvanix::SweepKernels
trelvanix::CompiledKernels<trelvanix::SweepKernels,
                           trelvanix::InstructionSet::TRELVANIX_INSTRUCTION_SET>()
{
    return {trelvanix::TRELVANIX_INSTRUCTION_SET::DoubleShiftSweep};
}
