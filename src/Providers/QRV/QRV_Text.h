// Texts in the fixed fields of the array's records.
#pragma once

#include <cstddef>
#include <cstring>

namespace Pegasus {

/// Copies what fits of a text, or clears the field for a null one; the last character is always
/// NUL.
template <std::size_t SIZE>
void copyText(char (&field)[SIZE], const char* text) {
    const std::size_t length = text == nullptr ? 0 : strnlen(text, SIZE - 1);
    std::memcpy(field, text == nullptr ? "" : text, length);
    field[length] = '\0';
}

}  // namespace Pegasus
