#include "common/vector_memory.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <ios>
#include <memory>
#include <sstream>
#include <string>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace trelvanix
{
namespace
{

struct Free {
    void operator()(void* memory) const
    {
        std::free(memory);
    }
};

TEST(AllocateForVectors, GivesMemoryForEverySize)
{
    // The whole block can be written: the address sanitizer would tell.
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    for (const std::size_t size :
         {std::size_t{1}, std::size_t{1023}, std::size_t{1024}, std::size_t{1025}, 8 * mebibyte - 1,
          8 * mebibyte, 8 * mebibyte + 1, 9 * mebibyte}) {
        const std::unique_ptr<void, Free> memory(AllocateForVectors(size));
        ASSERT_NE(memory, nullptr) << size;
        std::memset(memory.get(), 0x5a, size);
        EXPECT_EQ(static_cast<unsigned char*>(memory.get())[size - 1], 0x5a) << size;
    }
}

#if !defined(_WIN32)
TEST(AllocateForVectors, BeginsLargeBlocksAtACacheLine)
{
    for (std::size_t size = 1024; size < 100000; size += 1000) {
        const std::unique_ptr<void, Free> memory(AllocateForVectors(size));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.get()) % 64, 0U) << size;
    }
}
#endif

#if defined(__linux__)
// The flags of the mapping that holds this address, as proc(5) abbreviates them.
std::string FlagsOfMapping(const void* address)
{
    const auto sought = reinterpret_cast<std::uintptr_t>(address);
    std::ifstream mappings("/proc/self/smaps");
    bool found = false;
    for (std::string line; std::getline(mappings, line);) {
        std::uintptr_t begin = 0, end = 0;
        char dash = 0;
        if (std::istringstream(line) >> std::hex >> begin >> dash >> end && dash == '-')
            found = begin <= sought && sought < end;
        else if (found && line.rfind("VmFlags:", 0) == 0)
            return line + " ";
    }
    return "";
}

TEST(AllocateForVectors, AsksForLargePagesFromEightMebibytesOn)
{
    if (!std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled"))
        GTEST_SKIP() << "this system has no large pages";
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    const std::unique_ptr<void, Free> large(AllocateForVectors(8 * mebibyte));
    EXPECT_NE(FlagsOfMapping(large.get()).find(" hg "), std::string::npos);
}
#endif

#if defined(__GLIBC__)
TEST(AllocateForVectors, TakesNoMoreThanWholeCacheLines)
{
    for (std::size_t size = 1024; size < 100000; size += 32) {
        const std::unique_ptr<void, Free> memory(AllocateForVectors(size));
        EXPECT_LT(malloc_usable_size(memory.get()), (size + 63) / 64 * 64 + 64) << size;
    }
}
#endif

TEST(NewVectorMemory, OwnsRoomForEveryElement)
{
    const VectorMemory memory = NewVectorMemory(1000);
    for (std::size_t i = 0; i < 1000; ++i)
        memory[i] = 1.0;
    EXPECT_NE(NewVectorMemory(0), nullptr);
}

} // namespace
} // namespace trelvanix
