#include <Pegasus/Common/String.h>

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/InternalException.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <ostream>
#include <string>

#include "model/Utf.h"

PEGASUS_NAMESPACE_BEGIN
namespace {

constexpr Uint32 mostUnits = 0x3FFFFFFF;

template <class T>
T* notNull(T* pointer) {
    if (!pointer) {
        throw NullPointer();
    }
    return pointer;
}

Uint32 lengthOf(std::size_t n) {
    if (n > mostUnits) {
        throw std::bad_alloc();
    }
    return Uint32(n);
}

Uint32 lengthOf(const Char16* text) {
    const Char16* end = notNull(text);
    while (Uint16(*end) != 0) {
        ++end;
    }
    return lengthOf(std::size_t(end - text));
}

void copyUnits(const Char16* from, Uint32 n, Char16* to) {
    std::copy_n(from, n, to);
}

constexpr bool isUpper(Uint16 unit) {
    return unit >= 'A' && unit <= 'Z';
}
constexpr Uint16 folded(Uint16 unit) {
    return isUpper(unit) ? Uint16(unit | 0x20) : unit;
}

constexpr Uint16 unchanged(Uint16 unit) {
    return unit;
}

/// The difference of the first units that differ once `key` is applied; the shorter text comes
/// first.
template <class Key>
int compareUnits(const Char16* s1, Uint32 size1, const Char16* s2, Uint32 size2, Key key) {
    for (Uint32 i = 0; i < std::min(size1, size2); ++i) {
        if (const int difference = key(s1[i]) - key(s2[i])) {
            return difference;
        }
    }
    return size1 < size2 ? -1 : size1 > size2;
}

std::string hex(char byte) {
    char text[8];
    std::snprintf(text, sizeof text, " 0x%02X", unsigned(Uint8(byte)));
    return text;
}

std::string escaped(Uint16 unit) {
    char text[8];
    std::snprintf(text, sizeof text, "\\x%04X", unsigned(unit));
    return text;
}

/// Where a quotation of at most `most` bytes before `end` begins without cutting a character.
std::size_t quotationStart(const char* text, std::size_t end, std::size_t most) {
    std::size_t start = end > most ? end - most : 0;
    while (start < end && (Uint8(text[start]) & 0xC0) == 0x80) {
        ++start;
    }
    return start;
}

/// Shows the valid text before the bad bytes and some bytes from there on.
[[noreturn]] void throwBadUtf8(const char* text, std::size_t n, std::size_t bad) {
    constexpr std::size_t mostValid = 40;
    constexpr std::size_t mostBad = 11;
    const std::size_t start = quotationStart(text, bad, mostValid);
    std::string message = "The byte sequence starting at index " + std::to_string(bad) +
                          " is not valid UTF-8 encoding: " + std::string(text + start, bad - start);
    for (std::size_t i = bad; i < std::min(n, bad + mostBad); ++i) {
        message += hex(text[i]);
    }
    throw Exception(String(message.data(), lengthOf(message.size())));
}

}  // namespace

CString::CString(Uint32 size) : _size(size) {
    if (size >= localRoom) {
        _heap.reset(new char[std::size_t(size) + 1]);
    }
    bytes()[size] = 0;
}

CString::CString(const CString& other) : CString() {
    *this = other;
}

CString::CString(CString&& other) noexcept {
    takeFrom(other);
}

CString& CString::operator=(const CString& other) {
    if (this == &other) return *this;
    if (other._size == none) {
        _heap.reset();
        _size = none;
        return *this;
    }
    CString copy(other._size);
    std::memcpy(copy.bytes(), static_cast<const char*>(other), other._size);
    takeFrom(copy);
    return *this;
}

CString& CString::operator=(CString&& other) noexcept {
    takeFrom(other);
    return *this;
}

void CString::takeFrom(CString& other) noexcept {
    if (this == &other) {
        return;
    }
    _heap = std::move(other._heap);
    _size = std::exchange(other._size, none);
    if (!_heap && _size != none) {
        std::memcpy(_local, other._local, _size + 1);
    }
}

const String String::EMPTY;

SharedBuffer* String::create(Uint32 capacity) {
    lengthOf(capacity);
    const std::size_t bytes = sizeof(SharedBuffer) + (std::size_t(capacity) + 1) * sizeof(Char16);
    return new (::operator new(bytes)) SharedBuffer(capacity);
}

void String::destroy(SharedBuffer* buffer) noexcept {
    ::operator delete(buffer);
}

void String::setSize(Uint32 size) noexcept {
    _buffer->size = size;
    units(_buffer)[size] = Char16();
}

/// Makes this string the sole owner of a buffer with that capacity.
void String::makeWritable(Uint32 capacity) {
    if (_buffer && _buffer->isUnique() && _buffer->capacity >= capacity) {
        return;
    }
    String fresh;
    fresh._buffer = create(std::max(capacity, size()));
    copyUnits(getChar16Data(), size(), units(fresh._buffer));
    fresh.setSize(size());
    *this = std::move(fresh);
}

String::String(const String& other, Uint32 n) {
    if (n > other.size()) {
        throwIndexOutOfBounds();
    }
    *this = other.subString(0, n);
}

String::String(const Char16* text) : String(text, lengthOf(text)) {}

String::String(const Char16* text, Uint32 n) {
    notNull(text);
    if (n != 0) {
        _buffer = create(n);
        copyUnits(text, n, units(_buffer));
        setSize(n);
    }
}

String::String(const char* text) : String(text, lengthOf(std::strlen(notNull(text)))) {}

String::String(const char* text, Uint32 n) : String() {
    if (notNull(text); n == 0) {
        return;
    }
    _buffer = create(n);
    if (cimserver::isAscii(text, n)) {
        cimserver::widenAscii(text, n, units(_buffer));
        setSize(n);
        return;
    }
    const cimserver::Utf16Result result = cimserver::readUtf8(text, n, units(_buffer));
    if (result.read != n) {
        throwBadUtf8(text, n, result.read);
    }
    setSize(Uint32(result.written));
}

void String::reserveCapacity(Uint32 capacity) {
    if (capacity > (_buffer ? _buffer->capacity : 0)) {
        makeWritable(capacity);
    }
}

CString String::getCString() const {
    const Char16* const text = getChar16Data();
    const bool ascii = cimserver::isAscii(text, size());
    CString result(ascii ? size() : lengthOf(cimserver::utf8Size(text, size())));
    if (ascii) {
        cimserver::narrowAscii(text, size(), result.bytes());
    } else {
        cimserver::writeUtf8(text, size(), result.bytes());
    }
    return result;
}

Char16& String::operator[](Uint32 index) {
    if (index > size()) {
        throwIndexOutOfBounds();
    }
    makeWritable(size());
    return units(_buffer)[index];
}

String& String::append(const Char16& unit) {
    const Char16 copy = unit;  // `unit` may be one of this string's
    return append(&copy, 1);
}

String& String::append(const Char16* text, Uint32 n) {
    notNull(text);
    const Uint32 before = size();
    const Uint32 after = lengthOf(std::size_t(before) + n);
    if (_buffer && _buffer->isUnique() && _buffer->capacity >= after) {
        copyUnits(text, n, units(_buffer) + before);
        setSize(after);
    } else if (n != 0) {
        // `text` may be within this string, whose buffer therefore stays until all is copied.
        String grown;
        grown._buffer = create(std::max(after, std::min(2 * before, mostUnits)));
        copyUnits(getChar16Data(), before, units(grown._buffer));
        copyUnits(text, n, units(grown._buffer) + before);
        grown.setSize(after);
        *this = std::move(grown);
    }
    return *this;
}

String& String::append(const String& text) {
    if (!_buffer) {
        return *this = text;
    }
    return append(text.getChar16Data(), text.size());
}

void String::remove(Uint32 index, Uint32 n) {
    if (n == PEG_NOT_FOUND && index <= size()) {
        n = size() - index;
    }
    if (index > size() || n > size() - index) {
        throwIndexOutOfBounds();
    }
    if (n == 0) {
        return;
    }
    makeWritable(size());
    Char16* const text = units(_buffer);
    std::copy(text + index + n, text + size(), text + index);
    setSize(size() - n);
}

String String::subString(Uint32 index, Uint32 n) const {
    if (index >= size()) {
        return String();
    }
    n = std::min(n, size() - index);
    return n == size() ? *this : String(getChar16Data() + index, n);
}

Uint32 String::find(Char16 unit) const {
    return find(0, unit);
}

Uint32 String::find(Uint32 index, Char16 unit) const {
    if (index > size()) {
        throwIndexOutOfBounds();
    }
    const Char16* const begin = getChar16Data();
    const Char16* const end = begin + size();
    const Char16* const found = std::find(begin + index, end, unit);
    return found == end ? PEG_NOT_FOUND : Uint32(found - begin);
}

Uint32 String::find(const String& text) const {
    const Char16* const begin = getChar16Data();
    const Char16* const end = begin + size();
    const Char16* const wanted = text.getChar16Data();
    const Char16* const found = std::search(begin, end, wanted, wanted + text.size());
    return text.size() == 0 || found == end ? PEG_NOT_FOUND : Uint32(found - begin);
}

Uint32 String::reverseFind(Char16 unit) const {
    const Char16* const begin = getChar16Data();
    for (Uint32 i = size(); i-- > 0;) {
        if (begin[i] == unit) {
            return i;
        }
    }
    return PEG_NOT_FOUND;
}

void String::toLower() {
    const Char16* const begin = getChar16Data();
    const Char16* const end = begin + size();
    if (std::none_of(begin, end, isUpper)) {
        return;
    }
    makeWritable(size());
    Char16* const text = units(_buffer);
    std::transform(text, text + size(), text, folded);
}

void String::appendPrintf(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    char* text = nullptr;
    const int size = vasprintf(&text, format, arguments);
    va_end(arguments);
    if (size < 0) {
        throw std::bad_alloc();
    }
    const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
    append(String(text, lengthOf(std::size_t(size))));
}

int String::compare(const String& s1, const String& s2, Uint32 n) {
    const Uint32 size1 = std::min(s1.size(), n);
    const Uint32 size2 = std::min(s2.size(), n);
    return compareUnits(s1.getChar16Data(), size1, s2.getChar16Data(), size2, unchanged);
}

int String::compare(const String& s1, const String& s2) {
    return compare(s1, s2, PEG_NOT_FOUND);
}

int String::compareNoCase(const String& s1, const String& s2) {
    return compareUnits(s1.getChar16Data(), s1.size(), s2.getChar16Data(), s2.size(), folded);
}

Boolean String::equal(const String& s1, const String& s2) noexcept {
    return s1._buffer == s2._buffer ||
           (s1.size() == s2.size() &&
            std::memcmp(s1.getChar16Data(), s2.getChar16Data(), s1.size() * sizeof(Char16)) == 0);
}

Boolean String::equal(const String& s1, const char* s2) {
    const std::size_t n = std::strlen(notNull(s2));
    if (!cimserver::isAscii(s2, n)) {
        return equal(s1, String(s2));
    }
    return s1.size() == n && std::equal(s2, s2 + n, s1.getChar16Data(),
                                        [](char c, Char16 unit) { return unit == c; });
}

Boolean String::equalNoCase(const String& s1, const String& s2) noexcept {
    const Char16* const text = s1.getChar16Data();
    return s1._buffer == s2._buffer ||
           (s1.size() == s2.size() &&
            std::equal(text, text + s1.size(), s2.getChar16Data(),
                       [](Uint16 x, Uint16 y) { return x == y || folded(x) == folded(y); }));
}

String operator+(const String& s1, const String& s2) {
    String result;
    result.reserveCapacity(s1.size() + s2.size());
    return result.append(s1).append(s2);
}

String operator+(String&& s1, const String& s2) {
    s1.append(s2);
    return std::move(s1);
}

std::ostream& operator<<(std::ostream& out, const String& text) {
    for (Uint32 i = 0; i < text.size(); ++i) {
        const Uint16 unit = text[i];
        if (unit > 0 && unit <= 0xFF) {
            out << char(unit);
        } else {
            out << escaped(unit);
        }
    }
    return out;
}

PEGASUS_NAMESPACE_END
