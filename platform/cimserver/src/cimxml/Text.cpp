#include "cimxml/Text.h"

#include <Pegasus/Common/Char16.h>

#include <array>
#include <charconv>
#include <cstring>
#include <stdexcept>

namespace cimserver {

using namespace Pegasus;

namespace {

enum class Kind : unsigned char { Plain, Blank, Reference };

constexpr bool needsReference(unsigned c) {
    return c < 0x20 || c == 0x7F || c == '&' || c == '<' || c == '>' || c == '"' || c == '\'';
}

constexpr std::array<Kind, 128> makeKinds() {
    std::array<Kind, 128> kinds{};
    for (unsigned c = 0; c < kinds.size(); ++c) {
        kinds[c] = c == ' ' ? Kind::Blank : needsReference(c) ? Kind::Reference : Kind::Plain;
    }
    return kinds;
}

constexpr std::array<Kind, 128> kKinds = makeKinds();

// Collects bytes on the stack and appends them in blocks: a string's own push_back costs too much
// per byte.
class Block {
  public:
    explicit Block(std::string& out) : _out(out) {}

    /// After this, `kRoom` bytes may be put.
    void makeRoom() {
        if (_size > sizeof(_bytes) - kRoom) flush();
    }

    void put(unsigned c) { _bytes[_size++] = static_cast<char>(c); }

    void put(std::string_view text) {
        std::memcpy(_bytes + _size, text.data(), text.size());
        _size += text.size();
    }

    void flush() {
        _out.append(_bytes, _size);
        _size = 0;
    }

  private:
    static constexpr std::size_t kRoom = 8;

    std::string& _out;
    std::size_t _size = 0;
    char _bytes[1024];
};

void putReference(Block& block, unsigned c) {
    switch (c) {
        case '&':
            return block.put("&amp;");
        case '<':
            return block.put("&lt;");
        case '>':
            return block.put("&gt;");
        case '"':
            return block.put("&quot;");
        case '\'':
            return block.put("&apos;");
        default:
            break;
    }
    char digits[4];
    const char* end = std::to_chars(digits, digits + sizeof(digits), c).ptr;
    block.put("&#");
    block.put(std::string_view(digits, static_cast<std::size_t>(end - digits)));
    block.put(';');
}

void putUtf8(Block& block, unsigned c) {
    if (c < 0x800) {
        block.put(0xC0 | c >> 6);
    } else if (c < 0x10000) {
        block.put(0xE0 | c >> 12);
        block.put(0x80 | (c >> 6 & 0x3F));
    } else {
        block.put(0xF0 | c >> 18);
        block.put(0x80 | (c >> 12 & 0x3F));
        block.put(0x80 | (c >> 6 & 0x3F));
    }
    block.put(0x80 | (c & 0x3F));
}

constexpr unsigned kReplacement = 0xFFFD;

bool isHighSurrogate(unsigned c) {
    return c >= 0xD800 && c < 0xDC00;
}

bool isLowSurrogate(unsigned c) {
    return c >= 0xDC00 && c < 0xE000;
}

unsigned unit(const Char16* p) {
    return static_cast<Uint16>(*p);
}

unsigned unit(const char* p) {
    return static_cast<unsigned char>(*p);
}

// Puts the character beyond ASCII at p and gives the last of its units.
const Char16* putWide(Block& block, const Char16* p, const Char16* end) {
    const unsigned c = unit(p);
    if (isHighSurrogate(c) && p + 1 != end && isLowSurrogate(unit(p + 1))) {
        putUtf8(block, 0x10000 + ((c - 0xD800) << 10) + (unit(p + 1) - 0xDC00));
        return p + 1;
    }
    putUtf8(block, isHighSurrogate(c) || isLowSurrogate(c) ? kReplacement : c);
    return p;
}

const char* putWide(Block& block, const char* p, const char*) {
    block.put(unit(p));
    return p;
}

template <class Unit>
void escape(std::string& out, const Unit* const begin, const Unit* const end) {
    Block block(out);
    bool afterBlank = true;  // a blank at the start needs a reference as much as one after a blank
    for (const Unit* p = begin; p != end; ++p) {
        block.makeRoom();
        const unsigned c = unit(p);
        const Kind kind = c < kKinds.size() ? kKinds[c] : Kind::Plain;
        if (kind == Kind::Plain) {
            if (c < kKinds.size()) {
                block.put(c);
            } else {
                p = putWide(block, p, end);
            }
        } else if (kind == Kind::Blank && !afterBlank && p + 1 != end) {
            block.put(' ');
        } else {
            putReference(block, c);
            afterBlank = false;
            continue;
        }
        afterBlank = kind == Kind::Blank;
    }
    block.flush();
}

bool isUnreserved(char c) {
    const bool alphanumeric =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return alphanumeric || std::string_view("-_.!~*'()").find(c) != std::string_view::npos;
}

unsigned hexDigit(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
    throw std::invalid_argument("malformed % encoding");
}

}  // namespace

void appendEscaped(std::string& out, const String& text) {
    const Char16* begin = text.getChar16Data();
    escape(out, begin, begin + text.size());
}

void appendEscaped(std::string& out, std::string_view utf8) {
    escape(out, utf8.data(), utf8.data() + utf8.size());
}

std::string percentEncoded(std::string_view text) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        if (isUnreserved(c)) {
            out += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return out;
}

std::string percentDecoded(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            out += text[i];
            continue;
        }
        if (text.size() - i < 3) throw std::invalid_argument("malformed % encoding");
        out += static_cast<char>(hexDigit(text[i + 1]) << 4 | hexDigit(text[i + 2]));
        i += 2;
    }
    return out;
}

}  // namespace cimserver
