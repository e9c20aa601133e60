#ifndef TRELVANIX_TESTS_BITS_SUBJECTS_H
#define TRELVANIX_TESTS_BITS_SUBJECTS_H

#include <vector>

#include "bits/call.h"

namespace trelvanix::bits
{

// One exported function and the requests that it gets. answer(index, call) draws the arguments of request
// number index from the call's generator, makes the call and records both; the index itself runs through
// the codes, so that none is left to chance.
struct Subject {
    const char* function;
    int requestCount;
    void (*answer)(int index, Call& call);
};

std::vector<Subject> TransformSubjects();
std::vector<Subject> FilterSubjects();
std::vector<Subject> RootsSubjects();
std::vector<Subject> FirSubjects();
std::vector<Subject> IirSubjects();
std::vector<Subject> OrderSubjects();
std::vector<Subject> ReleaseSubjects();

} // namespace trelvanix::bits

#endif
