#ifndef TRELVANIX_TESTS_BITS_DIGEST_H
#define TRELVANIX_TESTS_BITS_DIGEST_H

#include <cmath>
#include <cstdint>
#include <string_view>

#include "bits/mixing.h"
#include "bits/number_bits.h"

namespace trelvanix::bits
{

// A digest of words in their order. It works on values, not on memory, so that the byte order doesn't
// matter.
class Digest
{
public:
    void AddWord(std::uint64_t word)
    {
        state = Mixed((state ^ word) + goldenStep);
    }

    // The bits of a number. Every not-a-number counts as the same one: sign and payload are the
    // processor's affair.
    void AddNumber(double number)
    {
        constexpr std::uint64_t notANumber = 0x7ff8000000000000;
        AddWord(std::isnan(number) ? notANumber : BitsOf(number));
    }

    void AddText(std::string_view text)
    {
        AddWord(text.size());
        for (const char c : text)
            AddWord(static_cast<unsigned char>(c));
    }

    [[nodiscard]] std::uint64_t Value() const
    {
        return state;
    }

private:
    std::uint64_t state = 0;
};

} // namespace trelvanix::bits

#endif
