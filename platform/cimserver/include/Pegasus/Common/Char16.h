// One UTF-16 code unit.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// A UTF-16 code unit; converts to and from its number. Zero when default constructed.
class PEGASUS_COMMON_LINKAGE Char16 {
  public:
    constexpr Char16() noexcept = default;
    constexpr Char16(Uint16 code) noexcept : _code(code) {}
    constexpr Char16(const Char16&) noexcept = default;
    Char16& operator=(const Char16&) & noexcept = default;

    constexpr operator Uint16() const noexcept { return _code; }

  private:
    Uint16 _code = 0;
};

constexpr Boolean operator==(const Char16& x, const Char16& y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator==(const Char16& x, char y) noexcept {
    return Uint16(x) == Uint16(y);
}
constexpr Boolean operator==(char x, const Char16& y) noexcept {
    return y == x;
}
constexpr Boolean operator!=(const Char16& x, const Char16& y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(const Char16& x, char y) noexcept {
    return !(x == y);
}
constexpr Boolean operator!=(char x, const Char16& y) noexcept {
    return !(y == x);
}

PEGASUS_NAMESPACE_END
