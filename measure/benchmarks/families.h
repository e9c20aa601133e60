#ifndef TRELVANIX_BENCH_FAMILIES_H
#define TRELVANIX_BENCH_FAMILIES_H

// Each adds the rows of its subject.
namespace trelvanix::bench
{

void AddTransforms();
void AddFilters();
void AddDesigns();
void AddPolynomials();
// What the machine can do at best, in the operations of which the library's inner loops are made.
void AddLimits();

} // namespace trelvanix::bench

#endif
