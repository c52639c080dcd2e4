// UTF-8 and UTF-16.
#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>

#include <cstddef>

namespace cimserver {

/// Whether all units are below 0x80.
PEGASUS_EXPORT bool isAscii(const char* text, std::size_t n) noexcept;
PEGASUS_EXPORT bool isAscii(const Pegasus::Char16* text, std::size_t n) noexcept;

/// Copies text of which isAscii() is true.
PEGASUS_EXPORT void widenAscii(const char* from, std::size_t n, Pegasus::Char16* to) noexcept;
PEGASUS_EXPORT void narrowAscii(const Pegasus::Char16* from, std::size_t n, char* to) noexcept;

/// How many bytes writeUtf8() writes.
PEGASUS_EXPORT std::size_t utf8Size(const Pegasus::Char16* text, std::size_t n) noexcept;

/// Writes the text as UTF-8 and returns the end of what it wrote. A surrogate without its partner
/// becomes U+FFFD.
PEGASUS_EXPORT char* writeUtf8(const Pegasus::Char16* text, std::size_t n, char* to) noexcept;

/// Whether the bytes are UTF-8, strictly: no overlong forms, no surrogates, nothing beyond
/// U+10FFFF.
PEGASUS_EXPORT bool isUtf8(const char* text, std::size_t n) noexcept;

/// What became of decoding UTF-8.
struct Utf16Result {
    std::size_t read;     ///< bytes decoded; fewer than given when a bad sequence begins there
    std::size_t written;  ///< units written
};

/// Decodes UTF-8, as strictly, up to the end or the first bad sequence. `to` has room for as many
/// units as there are bytes.
PEGASUS_EXPORT Utf16Result readUtf8(const char* from, std::size_t n, Pegasus::Char16* to) noexcept;

}  // namespace cimserver
