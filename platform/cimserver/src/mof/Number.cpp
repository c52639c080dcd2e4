#include "mof/Number.h"

#include <charconv>

namespace cimserver {
namespace {

bool isDigit(char c, int base) {
    const int digit = hexDigit(c);
    return digit >= 0 && digit < base;
}

/// Takes the digits at the front off the text and tells how many there were.
std::size_t takeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count], 10)) ++count;
    text.remove_prefix(count);
    return count;
}

bool takeSign(std::string_view& text) {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
    return isNegative;
}

struct Digits {
    std::string_view text;
    int base;
};

/// What is left of an unsigned integer without the marks of its base.
Digits digitsOf(std::string_view text) {
    const bool isPrefixed = text.size() > 1 && text.front() == '0';
    if (isPrefixed && (text[1] == 'x' || text[1] == 'X')) return {text.substr(2), 16};
    if (!text.empty() && (text.back() == 'b' || text.back() == 'B'))
        return {text.substr(0, text.size() - 1), 2};
    return {text, isPrefixed ? 8 : 10};
}

}  // namespace

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool isReal(std::string_view text) {
    takeSign(text);
    takeDigits(text);
    if (text.empty() || text.front() != '.') return false;
    text.remove_prefix(1);
    if (takeDigits(text) == 0) return false;
    if (text.empty()) return true;
    if (text.front() != 'e' && text.front() != 'E') return false;
    text.remove_prefix(1);
    takeSign(text);
    return takeDigits(text) > 0 && text.empty();
}

bool isInteger(std::string_view text) {
    takeSign(text);
    const Digits digits = digitsOf(text);
    for (const char c : digits.text)
        if (!isDigit(c, digits.base)) return false;
    return !digits.text.empty();
}

std::optional<MofInteger> parseInteger(std::string_view text) {
    MofInteger result;
    result.isNegative = takeSign(text);
    const Digits digits = digitsOf(text);
    const char* end = digits.text.data() + digits.text.size();
    const auto status = std::from_chars(digits.text.data(), end, result.magnitude, digits.base);
    if (status.ec != std::errc() || status.ptr != end) return std::nullopt;
    return result;
}

}  // namespace cimserver
