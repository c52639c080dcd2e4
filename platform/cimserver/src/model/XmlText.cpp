#include "model/XmlText.h"

#include "model/Utf.h"

#include <Pegasus/Common/Char16.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

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

    void putUtf8(const Char16* text, std::size_t n) {
        _size = static_cast<std::size_t>(writeUtf8(text, n, _bytes + _size) - _bytes);
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

bool isPair(unsigned high, unsigned low) {
    return (high & 0xFC00) == 0xD800 && (low & 0xFC00) == 0xDC00;
}

unsigned unit(const Char16* p) {
    return static_cast<Uint16>(*p);
}

unsigned unit(const char* p) {
    return static_cast<unsigned char>(*p);
}

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// Puts the character beyond ASCII at p and gives the last of its units. No reader of XML takes
// U+FFFE and U+FFFF.
const Char16* putWide(Block& block, const Char16* p, const Char16* end) {
    if (unit(p) >= 0xFFFE) {
        block.put(kReplacement);
        return p;
    }
    const std::size_t units = p + 1 != end && isPair(unit(p), unit(p + 1)) ? 2 : 1;
    block.putUtf8(p, units);
    return p + units - 1;
}

const char* putWide(Block& block, const char* p, const char* end) {
    const std::string_view here(p, std::min<std::size_t>(3, static_cast<std::size_t>(end - p)));
    if (here == "\xEF\xBF\xBE" || here == "\xEF\xBF\xBF") {
        block.put(kReplacement);
        return p + 2;
    }
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

}  // namespace

void appendEscaped(std::string& out, const String& text) {
    const Char16* begin = text.getChar16Data();
    escape(out, begin, begin + text.size());
}

void appendEscaped(std::string& out, std::string_view utf8) {
    escape(out, utf8.data(), utf8.data() + utf8.size());
}

}  // namespace cimserver
