#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace qrvapi {

/// Fills a text field of a record: cut to fit, always NUL-terminated.
template <std::size_t Size>
void copyText(char (&field)[Size], std::string_view text) {
    const auto length = std::min(text.size(), Size - 1);
    std::copy_n(text.data(), length, field);
    field[length] = '\0';
}

/// The text of a record's field, which the caller may have left without its NUL.
template <std::size_t Size>
std::string_view fieldText(const char (&field)[Size]) {
    return {field, static_cast<std::size_t>(std::find(field, field + Size, '\0') - field)};
}

/// The number in an enumeration's field, to which a caller in C may have given any.
template <class Enumeration>
int numberIn(const Enumeration& field) {
    int number = 0;
    static_assert(sizeof field == sizeof number);
    std::memcpy(&number, &field, sizeof number);
    return number;
}

/// A C string that may be null, as text.
inline std::string_view orEmpty(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace qrvapi
