// The numbers of MOF.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace cimserver {

/// The value of a hexadecimal digit, or -1.
int hexDigit(char c);

/// Whether the text has the form of a real number: [+-] digits "." digits [exponent].
bool isReal(std::string_view text);

/// Whether the text has the form of an integer: decimal, 0octal, 0xhexadecimal or binaryB, with or
/// without a sign.
bool isInteger(std::string_view text);

struct MofInteger {
    bool isNegative = false;
    std::uint64_t magnitude = 0;
};

/// The value of a text that isInteger(); nothing when it takes more than 64 bits.
std::optional<MofInteger> parseInteger(std::string_view text);

}  // namespace cimserver
