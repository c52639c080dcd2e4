#include "cimxml/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace cimserver {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The length of a sequence by its first byte, and the smallest character it may stand for.
struct Lead {
    std::size_t length;
    unsigned bits;
    unsigned smallest;
};

Lead leadOf(unsigned char c) {
    if (c < 0x80) return {1, c, 0};
    if (c >= 0xC0 && c < 0xE0) return {2, c & 0x1Fu, 0x80};
    if (c >= 0xE0 && c < 0xF0) return {3, c & 0x0Fu, 0x800};
    if (c >= 0xF0 && c < 0xF8) return {4, c & 0x07u, 0x10000};
    return {0, 0, 0};
}

// The length of the sequence at the front of `bytes`, 0 when it is wrong.
std::size_t sequenceLength(std::string_view bytes) {
    const Lead lead = leadOf(static_cast<unsigned char>(bytes.front()));
    if (lead.length > bytes.size()) return 0;
    unsigned character = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if ((c & 0xC0) != 0x80) return 0;
        character = character << 6 | (c & 0x3Fu);
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < lead.smallest || character > 0x10FFFF || surrogate ? 0 : lead.length;
}

}  // namespace

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = sequenceLength(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

}  // namespace cimserver
