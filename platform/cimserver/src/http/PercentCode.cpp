#include "http/PercentCode.h"

#include <stdexcept>

namespace cimserver {

namespace {

bool isUnreserved(char c) {
    const bool alphanumeric =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return alphanumeric || std::string_view("-_.!~*'()").find(c) != std::string_view::npos;
}

unsigned hexDigit(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
    throw std::invalid_argument("malformed % encoding");
}

}  // namespace

std::string percentEncoded(std::string_view text) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        if (isUnreserved(c)) {
            out += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return out;
}

std::string percentDecoded(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            out += text[i];
            continue;
        }
        if (text.size() - i < 3) throw std::invalid_argument("malformed % encoding");
        out += static_cast<char>(hexDigit(text[i + 1]) << 4 | hexDigit(text[i + 2]));
        i += 2;
    }
    return out;
}

}  // namespace cimserver
