#include "model/Utf.h"

#include <algorithm>
#include <array>

namespace cimserver {
namespace {

using Pegasus::Char16;
using Pegasus::Uint16;
using Pegasus::Uint32;
using Pegasus::Uint8;

constexpr Uint32 replacement = 0xFFFD;

constexpr bool isHighSurrogate(Uint32 unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(Uint32 unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr bool isSurrogate(Uint32 unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// Takes one character off the text.
Uint32 nextCharacter(const Char16*& at, const Char16* end) noexcept {
    const Uint32 unit = *at++;
    if (!isSurrogate(unit)) {
        return unit;
    }
    if (isHighSurrogate(unit) && at != end && isLowSurrogate(*at)) {
        return 0x10000 + ((unit - 0xD800) << 10) + (Uint32(*at++) - 0xDC00);
    }
    return replacement;
}

constexpr std::size_t bytesOf(Uint32 character) {
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

char* writeCharacter(Uint32 character, char* to) noexcept {
    constexpr std::array<Uint8, 5> leads{0, 0, 0xC0, 0xE0, 0xF0};
    const std::size_t size = bytesOf(character);
    for (std::size_t i = size; i-- > 1; character >>= 6) {
        to[i] = char(0x80 | (character & 0x3F));
    }
    to[0] = char(leads[size] | character);
    return to + size;
}

/// The number of bytes that a lead byte announces; 0 for a byte that cannot lead.
constexpr std::size_t announcedBy(Uint8 lead) {
    return lead < 0x80   ? 1
           : lead < 0xC2 ? 0
           : lead < 0xE0 ? 2
           : lead < 0xF0 ? 3
           : lead < 0xF5 ? 4
                         : 0;
}

struct Decoded {
    Uint32 character;
    std::size_t size;  ///< 0: no valid sequence
};

/// Reads the character that begins at `from`.
Decoded readCharacter(const char* from, std::size_t n) noexcept {
    constexpr Decoded bad{0, 0};
    constexpr std::array<Uint8, 5> masks{0, 0x7F, 0x1F, 0x0F, 0x07};
    const std::size_t size = announcedBy(Uint8(*from));
    if (size == 0 || size > n) {
        return bad;
    }
    Uint32 character = Uint8(*from) & masks[size];
    for (std::size_t i = 1; i < size; ++i) {
        if ((Uint8(from[i]) & 0xC0) != 0x80) {
            return bad;
        }
        character = character << 6 | (Uint8(from[i]) & 0x3F);
    }
    const bool legal =
        bytesOf(character) == size && !isSurrogate(character) && character <= 0x10FFFF;
    return legal ? Decoded{character, size} : bad;
}

Char16* writeUnits(Uint32 character, Char16* to) noexcept {
    if (character < 0x10000) {
        *to = Char16(Uint16(character));
        return to + 1;
    }
    to[0] = Char16(Uint16(0xD800 + ((character - 0x10000) >> 10)));
    to[1] = Char16(Uint16(0xDC00 + (character & 0x3FF)));
    return to + 2;
}

}  // namespace

bool isAscii(const char* text, std::size_t n) noexcept {
    Uint8 bits = 0;
    for (std::size_t i = 0; i < n; ++i) {
        bits = Uint8(bits | Uint8(text[i]));
    }
    return bits < 0x80;
}

bool isAscii(const Char16* text, std::size_t n) noexcept {
    Uint16 bits = 0;
    for (std::size_t i = 0; i < n; ++i) {
        bits = Uint16(bits | Uint16(text[i]));
    }
    return bits < 0x80;
}

void widenAscii(const char* from, std::size_t n, Char16* to) noexcept {
    std::transform(from, from + n, to, [](char c) { return Char16(Uint8(c)); });
}

void narrowAscii(const Char16* from, std::size_t n, char* to) noexcept {
    std::transform(from, from + n, to, [](Char16 unit) { return char(Uint16(unit)); });
}

std::size_t utf8Size(const Char16* text, std::size_t n) noexcept {
    std::size_t size = 0;
    for (const Char16* const end = text + n; text != end;) {
        size += bytesOf(nextCharacter(text, end));
    }
    return size;
}

char* writeUtf8(const Char16* text, std::size_t n, char* to) noexcept {
    for (const Char16* const end = text + n; text != end;) {
        to = writeCharacter(nextCharacter(text, end), to);
    }
    return to;
}

bool isUtf8(const char* text, std::size_t n) noexcept {
    if (isAscii(text, n)) return true;
    for (const char* const end = text + n; text != end;) {
        const std::size_t size = readCharacter(text, std::size_t(end - text)).size;
        if (size == 0) return false;
        text += size;
    }
    return true;
}

Utf16Result readUtf8(const char* from, std::size_t n, Char16* to) noexcept {
    Char16* const begin = to;
    std::size_t read = 0;
    while (read < n) {
        const Decoded next = readCharacter(from + read, n - read);
        if (next.size == 0) {
            break;
        }
        to = writeUnits(next.character, to);
        read += next.size;
    }
    return {read, std::size_t(to - begin)};
}

}  // namespace cimserver
