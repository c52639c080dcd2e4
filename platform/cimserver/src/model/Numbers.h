// Numbers as CIM texts write them.
#pragma once

#include <Pegasus/Common/String.h>

#include <cstdint>
#include <optional>

namespace cimserver {

/// Zero is not negative.
struct Integer {
    bool negative = false;
    std::uint64_t magnitude = 0;

    bool operator==(const Integer& other) const noexcept {
        return negative == other.negative && magnitude == other.magnitude;
    }
};

/// Reads a decimal integer without leading zeros or a hexadecimal one (`0x1F`), with `+` or `-` in
/// front or nothing. With a sign the number must fit 64 bits signed, without one 64 bits unsigned.
PEGASUS_EXPORT std::optional<Integer> readInteger(const Pegasus::String& text) noexcept;

/// Reads `[+-]digits.digits[e[+-]digits]`, the digits before the dot optional, if a double can hold
/// it.
PEGASUS_EXPORT std::optional<double> readReal(const Pegasus::String& text);

}  // namespace cimserver
