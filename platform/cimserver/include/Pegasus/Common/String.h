// The text type of the CIM API.
#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedBuffer.h>

#include <iosfwd>
#include <memory>
#include <utility>

PEGASUS_NAMESPACE_BEGIN

/// A C string in UTF-8 that owns its bytes. The pointer it gives lives as long as it does, so
/// `const char* p = s.getCString();` dangles. Short texts need no heap.
class PEGASUS_COMMON_LINKAGE CString {
  public:
    /// Stands for no text: converts to a null pointer.
    CString() noexcept = default;
    CString(const CString& other);
    CString(CString&& other) noexcept;
    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    ~CString() = default;

    operator const char*() const noexcept {
        return _heap ? _heap.get() : (_size == none ? nullptr : _local);
    }

  private:
    friend class String;
    static constexpr Uint32 none = PEG_NOT_FOUND;
    static constexpr Uint32 localRoom = 60;

    /// Room for `size` bytes and the terminating zero.
    explicit CString(Uint32 size);
    char* bytes() noexcept { return _heap ? _heap.get() : _local; }
    void takeFrom(CString& other) noexcept;

    std::unique_ptr<char[]> _heap;
    Uint32 _size = none;
    char _local[localRoom];
};

/// A text of UTF-16 code units; sizes and indexes count units. A value: copies share their buffer
/// until one of them changes, and may live on different threads.
class PEGASUS_COMMON_LINKAGE String {
  public:
    static const String EMPTY;

    constexpr String() noexcept = default;
    String(const String& other) noexcept : _buffer(other._buffer) {
        if (_buffer) {
            _buffer->retain();
        }
    }
    String(String&& other) noexcept : _buffer(std::exchange(other._buffer, nullptr)) {}

    /// The first `n` units of `other`; IndexOutOfBoundsException when there are fewer.
    String(const String& other, Uint32 n);

    /// From UTF-16. A null pointer throws NullPointer, here and in all functions that take a
    /// pointer.
    String(const Char16* text);
    String(const Char16* text, Uint32 n);

    /// From UTF-8, `n` counting bytes. Bytes that are not UTF-8 throw an Exception that shows them.
    String(const char* text);
    String(const char* text, Uint32 n);

    ~String() {
        if (_buffer && _buffer->release()) {
            destroy(_buffer);
        }
    }

    String& operator=(const String& other) noexcept {
        String copy(other);
        std::swap(_buffer, copy._buffer);
        return *this;
    }
    String& operator=(String&& other) noexcept {
        std::swap(_buffer, other._buffer);
        return *this;
    }

    String& assign(const String& text) { return *this = text; }
    String& assign(const Char16* text) { return *this = String(text); }
    String& assign(const Char16* text, Uint32 n) { return *this = String(text, n); }
    String& assign(const char* text) { return *this = String(text); }
    String& assign(const char* text, Uint32 n) { return *this = String(text, n); }

    void clear() noexcept { *this = String(); }

    /// Makes room for `capacity` units; the text stays.
    void reserveCapacity(Uint32 capacity);

    Uint32 size() const noexcept { return _buffer ? _buffer->size : 0; }

    /// The units with a terminating zero, valid until the string changes or ends.
    const Char16* getChar16Data() const noexcept { return _buffer ? units(_buffer) : &terminator; }

    /// The text in UTF-8. A surrogate without its partner becomes U+FFFD.
    CString getCString() const;

    /// The unit at `index`; `index == size()` gives the terminating zero, beyond it
    /// IndexOutOfBoundsException.
    Char16& operator[](Uint32 index);
    Char16 operator[](Uint32 index) const {
        if (index > size()) {
            throwIndexOutOfBounds();
        }
        return getChar16Data()[index];
    }

    String& append(const Char16& unit);
    String& append(const Char16* text, Uint32 n);
    String& append(const String& text);

    /// Removes `n` units from `index` on, or all of them; IndexOutOfBoundsException when there are
    /// fewer.
    void remove(Uint32 index, Uint32 n = PEG_NOT_FOUND);

    /// Up to `n` units from `index` on; empty when `index` is behind the end.
    String subString(Uint32 index, Uint32 n = PEG_NOT_FOUND) const;

    /// The index of the first (reverseFind: the last) place, or PEG_NOT_FOUND. An empty text is
    /// never found. A start beyond the end throws IndexOutOfBoundsException.
    Uint32 find(Char16 unit) const;
    Uint32 find(Uint32 index, Char16 unit) const;
    Uint32 find(const String& text) const;
    Uint32 reverseFind(Char16 unit) const;

    /// Folds the ASCII letters to lower case; no other unit changes.
    void toLower();

    /// Appends what printf would print, read as UTF-8.
    void appendPrintf(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Negative, zero or positive by the order of code units; `n` limits how many are looked at.
    static int compare(const String& s1, const String& s2, Uint32 n);
    static int compare(const String& s1, const String& s2);

    /// By code unit order, ASCII letters folded.
    static int compareNoCase(const String& s1, const String& s2);

    static Boolean equal(const String& s1, const String& s2) noexcept;
    static Boolean equal(const String& s1, const char* s2);

    /// Ignores the case of ASCII letters.
    static Boolean equalNoCase(const String& s1, const String& s2) noexcept;

  private:
    static constexpr Char16 terminator{};

    static Char16* units(SharedBuffer* buffer) noexcept {
        return static_cast<Char16*>(static_cast<void*>(buffer + 1));
    }
    static SharedBuffer* create(Uint32 capacity);
    static void destroy(SharedBuffer* buffer) noexcept;

    void setSize(Uint32 size) noexcept;
    void makeWritable(Uint32 capacity);

    SharedBuffer* _buffer = nullptr;  ///< null: the empty text
};

inline Boolean operator==(const String& s1, const String& s2) noexcept {
    return String::equal(s1, s2);
}
inline Boolean operator==(const String& s1, const char* s2) {
    return String::equal(s1, s2);
}
inline Boolean operator==(const char* s1, const String& s2) {
    return String::equal(s2, s1);
}
inline Boolean operator!=(const String& s1, const String& s2) noexcept {
    return !(s1 == s2);
}
inline Boolean operator<(const String& s1, const String& s2) {
    return String::compare(s1, s2) < 0;
}
inline Boolean operator<=(const String& s1, const String& s2) {
    return String::compare(s1, s2) <= 0;
}
inline Boolean operator>(const String& s1, const String& s2) {
    return String::compare(s1, s2) > 0;
}
inline Boolean operator>=(const String& s1, const String& s2) {
    return String::compare(s1, s2) >= 0;
}

PEGASUS_COMMON_LINKAGE String operator+(const String& s1, const String& s2);
PEGASUS_COMMON_LINKAGE String operator+(String&& s1, const String& s2);

/// Writes units up to 0xFF as one byte each, all others as \x and four hexadecimal digits.
PEGASUS_COMMON_LINKAGE std::ostream& operator<<(std::ostream& out, const String& text);

PEGASUS_NAMESPACE_END
