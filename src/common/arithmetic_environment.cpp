#include "common/arithmetic_environment.h"

#if defined(__x86_64__) || defined(__i386__) || defined(_M_X64) || defined(_M_IX86)
#include <xmmintrin.h>
#endif

namespace trelvanix
{
namespace
{

// The control register of floating-point arithmetic: the bits that change results or trap, and what they are by
// default. WebAssembly has none; on a processor not listed the host's environment stays.
#if defined(__x86_64__) || defined(__i386__) || defined(_M_X64) || defined(_M_IX86)
constexpr std::uint64_t flushToZero = 0x8000, rounding = 0x6000, masks = 0x1f80,
                        denormalsAreZero = 0x0040;
constexpr std::uint64_t controlBits = flushToZero | rounding | masks | denormalsAreZero;
constexpr std::uint64_t defaultControl = masks;

std::uint64_t ReadControl()
{
    return _mm_getcsr();
}

void WriteControl(std::uint64_t control)
{
    _mm_setcsr(static_cast<unsigned int>(control));
}
#elif defined(__aarch64__) && defined(__GNUC__)
constexpr std::uint64_t rounding = 0x00c00000, flushToZero = 0x01080000, defaultNaN = 0x02000000,
                        traps = 0x00009f00;
constexpr std::uint64_t controlBits = rounding | flushToZero | defaultNaN | traps;
constexpr std::uint64_t defaultControl = 0;

std::uint64_t ReadControl()
{
    std::uint64_t control = 0;
    __asm__ volatile("mrs %0, fpcr" : "=r"(control));
    return control;
}

void WriteControl(std::uint64_t control)
{
    __asm__ volatile("msr fpcr, %0" : : "r"(control) : "memory");
}
#elif defined(__riscv) && defined(__riscv_flen) && defined(__GNUC__)
constexpr std::uint64_t controlBits = 0x7; // rounding
constexpr std::uint64_t defaultControl = 0;

std::uint64_t ReadControl()
{
    unsigned long control = 0;
    __asm__ volatile("frrm %0" : "=r"(control));
    return control;
}

void WriteControl(std::uint64_t control)
{
    __asm__ volatile("fsrm %0" : : "r"(static_cast<unsigned long>(control)) : "memory");
}
#elif defined(__s390x__) && defined(__GNUC__)
constexpr std::uint64_t rounding = 0x7, traps = 0xf8000000;
constexpr std::uint64_t controlBits = rounding | traps;
constexpr std::uint64_t defaultControl = 0;

std::uint64_t ReadControl()
{
    std::uint32_t control = 0;
    __asm__ volatile("efpc %0" : "=d"(control));
    return control;
}

void WriteControl(std::uint64_t control)
{
    __asm__ volatile("sfpc %0" : : "d"(static_cast<std::uint32_t>(control)) : "memory");
}
#else
constexpr std::uint64_t controlBits = 0;
constexpr std::uint64_t defaultControl = 0;

std::uint64_t ReadControl()
{
    return defaultControl;
}

void WriteControl(std::uint64_t /*control*/)
{
}
#endif

} // namespace

DefaultArithmetic::DefaultArithmetic()
    : hostControl(ReadControl()), differs((hostControl & controlBits) != defaultControl)
{
    if (differs)
        WriteControl((hostControl & ~controlBits) | defaultControl);
}

DefaultArithmetic::~DefaultArithmetic()
{
    if (differs)
        WriteControl(hostControl);
}

} // namespace trelvanix
