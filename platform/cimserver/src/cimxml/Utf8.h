// Between the bytes on the wire and the texts of the object model.
#pragma once

#include <Pegasus/Common/String.h>

#include <string>
#include <string_view>

namespace cimserver {

/// UTF-8 as a String; the bytes must be valid.
inline Pegasus::String toString(std::string_view utf8) {
    return utf8.empty() ? Pegasus::String()
                        : Pegasus::String(utf8.data(), static_cast<Pegasus::Uint32>(utf8.size()));
}

/// A String as UTF-8.
inline std::string toUtf8(const Pegasus::String& text) {
    return std::string(text.getCString());
}

/// Whether two texts are equal but for the case of ASCII letters.
bool equalIgnoringCase(std::string_view, std::string_view);

/// Whether the bytes are UTF-8: no overlong forms, no surrogates, nothing beyond U+10FFFF.
bool isUtf8(std::string_view bytes);

}  // namespace cimserver
