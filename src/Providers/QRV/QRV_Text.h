// Texts in the fixed fields of the array's records, and the numbers in texts.
#pragma once

#include <Pegasus/Common/String.h>
#include <qrvapi.h>

#include <cstddef>
#include <cstring>
#include <optional>

namespace Pegasus {

/// Copies what fits of a text in UTF-8, without the first part of a character, or clears the field
/// for a null one; the last character is always NUL.
template <std::size_t SIZE>
void copyText(char (&field)[SIZE], const char* text) {
    const auto isInCharacter = [&](std::size_t at) { return (text[at] & 0xC0) == 0x80; };
    std::size_t length = text == nullptr ? 0 : strnlen(text, SIZE - 1);
    while (length > 0 && isInCharacter(length)) --length;
    std::memcpy(field, text == nullptr ? "" : text, length);
    field[length] = '\0';
}

/// A text that the array gives. What isn't UTF-8 in it, as when a field has cut a character, is
/// shown as question marks.
String arrayText(const char* text);

/// The number that a text begins with; nothing when it begins with none, or with one that is
/// negative or too large.
std::optional<Uint32> leadingNumber(const String& text);

/// Reads the up to 16 hexadecimal digits that a text begins with. Returns false, and leaves `wwn`,
/// without any.
bool readWwn(const String& text, qrv_u64& wwn);

}  // namespace Pegasus
