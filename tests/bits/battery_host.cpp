// Calls the twenty functions with fixed requests, ordinary and hostile, and prints one digest of the
// answers for each function. Builds that compute the same print the same.
//   trelvanix_battery                          FUNCTION, number of calls, digest
//   trelvanix_battery --every STEP             the same of every STEPth request, for slow emulations; with a
//                                              prime number all codes come up
//   trelvanix_battery --list FUNCTION          each request: index, digest, arguments, how it ended
//   trelvanix_battery --values FUNCTION INDEX  every argument and result of one request
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

#include "bits/digest.h"
#include "bits/subjects.h"

namespace trelvanix::bits
{
namespace
{

std::vector<Subject> AllSubjects()
{
    std::vector<Subject> all;
    for (const auto subjects : {TransformSubjects, FilterSubjects, RootsSubjects, FirSubjects,
                                IirSubjects, OrderSubjects, ReleaseSubjects}) {
        for (const Subject& subject : subjects())
            all.push_back(subject);
    }
    return all;
}

// Every request has a seed of its own, so that it can be made without the ones before it.
Call Answered(const Subject& subject, int index)
{
    Digest seed;
    seed.AddText(subject.function);
    seed.AddWord(static_cast<std::uint64_t>(index));
    Call call(seed.Value());
    subject.answer(index, call);
    return call;
}

void PrintDigest(const Subject& subject, int step)
{
    Digest digest;
    int calls = 0;
    for (int index = 0; index < subject.requestCount; index += step) {
        digest.AddWord(Answered(subject, index).DigestValue());
        ++calls;
    }
    std::printf("%s %d %016" PRIx64 "\n", subject.function, calls, digest.Value());
}

void PrintList(const Subject& subject)
{
    for (int index = 0; index < subject.requestCount; ++index) {
        const Call call = Answered(subject, index);
        std::printf("%d %016" PRIx64 " %s\n", index, call.DigestValue(),
                    call.Line(subject.function).c_str());
    }
}

void PrintValues(const Subject& subject, int index)
{
    std::fputs(Answered(subject, index).Values(subject.function).c_str(), stdout);
}

int Answer(int argc, char** argv)
{
    const std::vector<Subject> subjects = AllSubjects();
    const std::string_view option = argc > 1 ? argv[1] : "";
    const int step = argc == 1 ? 1 : argc == 3 && option == "--every" ? std::stoi(argv[2]) : 0;
    if (step > 0) {
        for (const Subject& subject : subjects)
            PrintDigest(subject, step);
        return EXIT_SUCCESS;
    }
    for (const Subject& subject : subjects) {
        if (argc < 3 || std::string_view(argv[2]) != subject.function)
            continue;
        if (option == "--list" && argc == 3) {
            PrintList(subject);
            return EXIT_SUCCESS;
        }
        if (option == "--values" && argc == 4) {
            const int index = std::stoi(argv[3]);
            if (index >= 0 && index < subject.requestCount) {
                PrintValues(subject, index);
                return EXIT_SUCCESS;
            }
        }
    }
    std::fputs("usage: trelvanix_battery [--every STEP | --list FUNCTION | --values FUNCTION INDEX]\n",
               stderr);
    return EXIT_FAILURE;
}

} // namespace
} // namespace trelvanix::bits

int main(int argc, char** argv)
{
    try {
        return trelvanix::bits::Answer(argc, argv);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "trelvanix_battery: %s\n", e.what());
        return EXIT_FAILURE;
    }
}
