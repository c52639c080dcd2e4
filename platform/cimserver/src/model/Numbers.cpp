#include "model/Numbers.h"

#include <charconv>
#include <limits>
#include <string>

using namespace Pegasus;

namespace cimserver {

namespace {

/// The text if all of it is ASCII, otherwise nothing.
std::string asciiOf(const String& text) {
    std::string ascii;
    for (Uint32 i = 0; i < text.size(); ++i) {
        if (text[i] >= 0x80) return {};
        ascii += char(text[i]);
    }
    return ascii;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isSign(char c) {
    return c == '+' || c == '-';
}

std::optional<std::uint64_t> readMagnitude(std::string_view digits) {
    int base = 10;
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] | 0x20) == 'x') {
        base = 16;
        digits.remove_prefix(2);
    } else if (digits.size() > 1 && digits[0] == '0') {
        return std::nullopt;
    }
    std::uint64_t magnitude = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, magnitude, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return magnitude;
}

const char* skipDigits(const char* p) {
    while (isDigit(*p)) ++p;
    return p;
}

bool isExponent(const char* p) {
    if ((*p++ | 0x20) != 'e') return false;
    if (isSign(*p)) ++p;
    return isDigit(*p) && *skipDigits(p) == '\0';
}

bool isReal(const char* p) {
    if (isSign(*p)) ++p;
    p = skipDigits(p);
    if (*p++ != '.' || !isDigit(*p)) return false;
    p = skipDigits(p);
    return *p == '\0' || isExponent(p);
}

}  // namespace

std::optional<Integer> readInteger(const String& text) noexcept {
    constexpr std::size_t longest = 20;  // a sign and 19 digits, or 0x and 16 digits, or 20 digits
    if (text.size() == 0 || text.size() > longest) return std::nullopt;
    char units[longest];
    for (Uint32 i = 0; i < text.size(); ++i) {
        if (text[i] >= 0x80) return std::nullopt;
        units[i] = char(text[i]);
    }
    std::string_view digits(units, text.size());
    const char sign = isSign(digits[0]) ? digits[0] : ' ';
    if (sign != ' ') digits.remove_prefix(1);
    const auto magnitude = readMagnitude(digits);
    const auto most = sign == ' '   ? std::numeric_limits<std::uint64_t>::max()
                      : sign == '-' ? std::uint64_t(1) << 63
                                    : (std::uint64_t(1) << 63) - 1;
    if (!magnitude || *magnitude > most) return std::nullopt;
    return Integer{sign == '-' && *magnitude != 0, *magnitude};
}

std::optional<double> readReal(const String& text) {
    const std::string ascii = asciiOf(text);
    if (!isReal(ascii.c_str())) return std::nullopt;
    const char* begin = ascii.data() + (ascii[0] == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(begin, ascii.data() + ascii.size(), value);
    if (error != std::errc()) return std::nullopt;
    return value;
}

}  // namespace cimserver
