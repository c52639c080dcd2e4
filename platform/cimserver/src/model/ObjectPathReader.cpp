// Reads the text of an object path.
#include "model/HostName.h"
#include "model/Names.h"
#include "model/Numbers.h"
#include "model/ObjectPathRep.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>

using namespace Pegasus;

namespace cimserver {

namespace {

class ObjectPathReader {
  public:
    explicit ObjectPathReader(const String& text)
        : _text(text), _at(text.getChar16Data()), _end(_at + text.size()) {}

    Ref<ObjectPathRep> read() {
        readHost();
        readNamespace();
        readClass();
        readKeys();
        return std::move(_path);
    }

  private:
    void readHost();
    void readNamespace();
    void readClass();
    void readKeys();
    CIMKeyBinding readKey();
    CIMName readKeyName();
    CIMKeyBinding readKeyValue(const CIMName& name);
    CIMKeyBinding readQuoted(const CIMName& name);
    CIMKeyBinding readBoolean(const CIMName& name);
    CIMKeyBinding readNumber(const CIMName& name);
    String takeQuoted();

    const Char16* find(char wanted) const { return std::find(_at, _end, Char16(Uint16(wanted))); }
    String textTo(const Char16* end) const { return String(_at, Uint32(end - _at)); }
    String take(const Char16* end) {
        const String taken = textTo(end);
        _at = end;
        return taken;
    }

    [[noreturn]] void fail(const String& reason) const {
        throw MalformedObjectNameException(_text + ", reason:\"" + reason + "\"");
    }
    [[noreturn]] void failKey(const String& reason) const {
        fail("invalid key-value pair, " + reason);
    }

    const String& _text;
    const Char16* _at;
    const Char16* const _end;
    Ref<ObjectPathRep> _path = Ref<ObjectPathRep>::adopt(new ObjectPathRep);
};

void ObjectPathReader::readHost() {
    if (_end - _at < 2 || _at[0] != '/' || _at[1] != '/') return;
    _at += 2;
    const Char16* slash = find('/');
    if (slash == _end) fail("missing slash after hostname");
    _path->host = take(slash);
    if (!isHost(_path->host)) fail("invalid hostname");
}

void ObjectPathReader::readNamespace() {
    const Char16* colon = find(':');
    // Behind a dot a colon is part of a key.
    if (colon == _end || find('.') < colon) {
        if (_path->host.size() != 0) fail("host specified, missing namespace");
        return;
    }
    const String name = take(colon);
    if (!CIMNamespaceName::legal(name)) fail("invalid namespace name");
    _path->nameSpace = name;
    ++_at;
}

void ObjectPathReader::readClass() {
    const String name = take(find('.'));
    if (!CIMName::legal(name)) fail("class name " + name + " not a legal CIM name");
    _path->className = name;
}

void ObjectPathReader::readKeys() {
    if (_at == _end) return;
    ++_at;
    while (_at != _end) {
        _path->keys.append(readKey());
        if (_at != _end && *_at++ != ',') failKey("next key-value pair has to start with comma");
    }
    sortKeys(_path->keys);
}

CIMKeyBinding ObjectPathReader::readKey() {
    const CIMName name = readKeyName();
    return readKeyValue(name);
}

CIMName ObjectPathReader::readKeyName() {
    const Char16* equalSign = find('=');
    if (equalSign == _end) failKey("missing equal sign");
    const String name = take(equalSign);
    if (!CIMName::legal(name)) failKey("invalid key name:" + name);
    ++_at;
    return name;
}

CIMKeyBinding ObjectPathReader::readKeyValue(const CIMName& name) {
    const Uint16 first = _at == _end ? Uint16(0) : Uint16(*_at);
    if (first == '"') return readQuoted(name);
    const Uint16 lower = first | 0x20;
    return lower == 't' || lower == 'f' ? readBoolean(name) : readNumber(name);
}

/// The text between two quotes, of which the first is next, without the escapes.
String ObjectPathReader::takeQuoted() {
    const auto isSpecial = [](Char16 c) { return c == '"' || c == '\\'; };
    String text;
    for (++_at;; ++_at) {
        const Char16* special = std::find_if(_at, _end, isSpecial);
        if (special == _end) failKey("missing quote in key value");
        text.append(_at, Uint32(special - _at));
        _at = special;
        if (*_at++ == '"') return text;
        if (_at == _end || !isSpecial(*_at)) failKey("malformed value");
        text.append(*_at);
    }
}

/// A path that the text is and that has keys, or null.
Ref<ObjectPathRep> readReference(const String& text) {
    if (text.find(Char16('=')) == PEG_NOT_FOUND) return {};
    try {
        auto path = readObjectPath(text);
        return path->keys.size() != 0 ? path : Ref<ObjectPathRep>();
    } catch (const MalformedObjectNameException&) {
        return {};
    }
}

CIMKeyBinding ObjectPathReader::readQuoted(const CIMName& name) {
    const String text = takeQuoted();
    if (const auto path = readReference(text)) {
        return {name, writeObjectPath(*path), CIMKeyBinding::REFERENCE};
    }
    return {name, text, CIMKeyBinding::STRING};
}

CIMKeyBinding ObjectPathReader::readBoolean(const CIMName& name) {
    const String text = take(find(','));
    for (const char* truth : {"TRUE", "FALSE"}) {
        if (String::equalNoCase(text, truth)) return {name, truth, CIMKeyBinding::BOOLEAN};
    }
    failKey("value should be TRUE or FALSE");
}

CIMKeyBinding ObjectPathReader::readNumber(const CIMName& name) {
    const String text = take(find(','));
    if (text[0] == '+' || !readInteger(text)) {
        failKey((text[0] == '-' ? "invalid negative number value " : "invalid number value ") +
                text);
    }
    return {name, text, CIMKeyBinding::NUMERIC};
}

}  // namespace

namespace {

/// Goes along the plainest form of a path's text. The parts that it takes are legal, and what it
/// doesn't take may be legal too.
class PlainPath {
  public:
    explicit PlainPath(const String& text) : _at(text.getChar16Data()), _end(_at + text.size()) {}

    bool takeAll() { return takeHost() && takeNamespace() && takeName() && takeKeys(); }

  private:
    bool take(char c) {
        const bool found = _at != _end && *_at == Char16(Uint16(c));
        if (found) ++_at;
        return found;
    }

    bool takeName() {
        const Char16* const begin = _at;
        _at = std::find_if(_at, _end, [](Char16 c) {
            return c == '/' || c == ':' || c == '.' || c == ',' || c == '=';
        });
        return isName(begin, _at);
    }

    bool takeHost() {
        if (!take('/')) return true;
        if (!take('/')) return false;
        const Char16* const slash = std::find(_at, _end, Char16('/'));
        if (slash == _end || !isHostName(_at, std::size_t(slash - _at))) return false;
        _at = slash + 1;
        return true;
    }

    bool takeNamespace() {
        do {
            if (!takeName()) return false;
        } while (take('/'));
        return take(':');
    }

    /// Keys in their order, of texts that hold neither an escape nor a path.
    bool takeKeys() {
        Range before{_at, _at};
        for (char separator = '.'; _at != _end; separator = ',') {
            if (!take(separator)) return false;
            const Char16* const begin = _at;
            if (!takeName() || !isBefore(before, {begin, _at})) return false;
            before = {begin, _at};
            if (!take('=') || !takeText()) return false;
        }
        return before.begin != before.end;
    }

    bool takeText() {
        if (!take('"')) return false;
        _at = std::find_if(_at, _end, [](Char16 c) { return c == '"' || c == '\\' || c == '='; });
        return take('"');
    }

    struct Range {
        const Char16* begin;
        const Char16* end;
    };

    static bool isBefore(const Range& x, const Range& y) {
        const auto folded = [](Uint16 c) { return c >= 'A' && c <= 'Z' ? c | 0x20 : int(c); };
        return std::lexicographical_compare(
            x.begin, x.end, y.begin, y.end,
            [&](Char16 a, Char16 b) { return folded(a) < folded(b); });
    }

    const Char16* _at;
    const Char16* const _end;
};

}  // namespace

bool isPlainPath(const String& text) {
    return PlainPath(text).takeAll();
}

Ref<ObjectPathRep> readObjectPath(const String& text) {
    return ObjectPathReader(text).read();
}

}  // namespace cimserver
