#include <Pegasus/Common/CIMName.h>

#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <array>

#include "model/ArrayImpl.h"
#include "model/Names.h"

PEGASUS_NAMESPACE_BEGIN
namespace {

enum NamePlace : Uint8 { nowhere = 0, behindFirst = 1, anywhere = 3 };

constexpr bool isLetter(int unit) {
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z') || unit == '_';
}
constexpr bool isDigit(int unit) {
    return unit >= '0' && unit <= '9';
}

constexpr std::array<NamePlace, 0x80> makeAsciiPlaces() {
    std::array<NamePlace, 0x80> places{};
    for (int unit = 0; unit < 0x80; ++unit) {
        places[std::size_t(unit)] = isLetter(unit)  ? anywhere
                                    : isDigit(unit) ? behindFirst
                                                    : nowhere;
    }
    return places;
}

constexpr std::array<NamePlace, 0x80> asciiPlaces = makeAsciiPlaces();

NamePlace placeOf(Uint16 unit) {
    return unit < 0x80 ? asciiPlaces[unit] : unit <= 0xFFEF ? anywhere : nowhere;
}

/// The text itself, once it is known to be a name.
String checkedName(String name) {
    if (!CIMName::legal(name)) {
        throw InvalidNameException(name);
    }
    return name;
}

String checkedNamespace(const String& name) {
    if (!CIMNamespaceName::legal(name)) {
        throw InvalidNamespaceNameException(name);
    }
    return name[0] == '/' ? name.subString(1) : name;
}

}  // namespace
PEGASUS_NAMESPACE_END

bool cimserver::isName(const Pegasus::Char16* begin, const Pegasus::Char16* end) noexcept {
    using namespace Pegasus;
    return begin != end && placeOf(*begin) == anywhere &&
           std::all_of(begin + 1, end, [](Uint16 unit) { return placeOf(unit) != nowhere; });
}

PEGASUS_NAMESPACE_BEGIN

using cimserver::isName;

CIMName::CIMName(const String& name) : _name(checkedName(name)) {}

CIMName::CIMName(String&& name) : _name(checkedName(std::move(name))) {}

CIMName::CIMName(const char* name) : _name(checkedName(String(name))) {}

Boolean CIMName::legal(const String& name) noexcept {
    return isName(name.getChar16Data(), name.getChar16Data() + name.size());
}

CIMNamespaceName::CIMNamespaceName(const String& name) : _name(checkedNamespace(name)) {}

CIMNamespaceName::CIMNamespaceName(const char* name) : _name(checkedNamespace(String(name))) {}

Boolean CIMNamespaceName::legal(const String& name) {
    const Char16* at = name.getChar16Data();
    const Char16* const end = at + name.size();
    at += at != end && *at == '/';
    for (;;) {
        const Char16* const slash = std::find(at, end, Char16('/'));
        if (!isName(at, slash)) {
            return false;
        }
        if (slash == end) {
            return true;
        }
        at = slash + 1;
    }
}

template class Array<CIMName>;
template class Array<CIMNamespaceName>;

PEGASUS_NAMESPACE_END
