#include <Pegasus/Common/CIMObjectPath.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/HostName.h"
#include "model/Numbers.h"
#include "model/ObjectPathRep.h"

#include <Pegasus/Common/CIMValue.h>

#include <algorithm>
#include <functional>

using namespace cimserver;

namespace cimserver {

using namespace Pegasus;

namespace {

bool isBefore(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    return String::compareNoCase(x.getName().getString(), y.getName().getString()) < 0;
}

bool isQuoted(const CIMKeyBinding& key) {
    return key.getType() == CIMKeyBinding::STRING || key.getType() == CIMKeyBinding::REFERENCE;
}

void appendEscaped(String& to, const String& text) {
    const auto isSpecial = [](Char16 c) { return c == '"' || c == '\\'; };
    const Char16* at = text.getChar16Data();
    const Char16* const end = at + text.size();
    while (true) {
        const Char16* special = std::find_if(at, end, isSpecial);
        to.append(at, Uint32(special - at));
        if (special == end) return;
        to.append(Char16('\\'));
        to.append(*special);
        at = special + 1;
    }
}

void appendKey(String& to, const CIMKeyBinding& key) {
    to.append(key.getName().getString());
    to.append(Char16('='));
    if (!isQuoted(key)) {
        to.append(key.getValue());
        return;
    }
    to.append(Char16('"'));
    appendEscaped(to, key.getValue());
    to.append(Char16('"'));
}

Uint32 sizeWithoutEscapes(const ObjectPathRep& path) {
    constexpr Uint32 punctuation = 4;  // around host, namespace and class, and around each key
    Uint32 size = path.host.size() + path.nameSpace.getString().size() +
                  path.className.getString().size() + punctuation;
    for (Uint32 i = 0; i < path.keys.size(); ++i) {
        const CIMKeyBinding& key = std::as_const(path.keys)[i];
        size += key.getName().getString().size() + key.getValue().size() + punctuation;
    }
    return size;
}

/// The keys in canonical order, with reference keys in canonical text.
Array<CIMKeyBinding> canonicalKeys(Array<CIMKeyBinding> keys) {
    for (Uint32 i = 0; i < keys.size(); ++i) {
        const CIMKeyBinding& key = std::as_const(keys)[i];
        if (key.getType() != CIMKeyBinding::REFERENCE || isPlainPath(key.getValue())) continue;
        const String text = writeObjectPath(*readObjectPath(key.getValue()));
        if (text != key.getValue()) keys[i].setValue(text);
    }
    sortKeys(keys);
    return keys;
}

String checkedHost(const String& host) {
    if (host.size() != 0 && !isHost(host)) {
        throw MalformedObjectNameException(host + ", reason:\"invalid hostname\"");
    }
    return host;
}

const ObjectPathRep& repOf(const CIMObjectPath& path) {
    static const ObjectPathRep empty;
    const auto& rep = Access::rep(path);
    return rep ? *rep : empty;
}

/// Mixes what is equal ignoring case into one number.
class Hash {
  public:
    void add(std::uint64_t x) noexcept { _sum = (_sum ^ x) * 0x100000001B3u; }
    void add(const String& text) noexcept {
        for (Uint32 i = 0; i < text.size(); ++i) add(std::uint64_t(text[i]));
        add(text.size());
    }
    void addFolded(const String& text) noexcept {
        for (Uint32 i = 0; i < text.size(); ++i) {
            const Uint16 unit = text[i];
            add(unit >= 'A' && unit <= 'Z' ? std::uint64_t(unit | 0x20) : std::uint64_t(unit));
        }
        add(text.size());
    }
    Uint32 value() const noexcept { return Uint32(_sum ^ _sum >> 32); }

  private:
    std::uint64_t _sum = 0xCBF29CE484222325u;
};

void addNumber(Hash& hash, const String& text) {
    if (const auto number = readInteger(text)) {
        hash.add(number->magnitude ^ std::uint64_t(number->negative));
    } else {
        hash.add(text);
    }
}

void addPath(Hash& hash, const ObjectPathRep& path);

void addReference(Hash& hash, const String& text) {
    try {
        addPath(hash, *readObjectPath(text));
    } catch (const MalformedObjectNameException&) {
        hash.add(text);
    }
}

void addKey(Hash& hash, const CIMKeyBinding& key) {
    hash.addFolded(key.getName().getString());
    switch (key.getType()) {
        case CIMKeyBinding::BOOLEAN:
            return hash.addFolded(key.getValue());
        case CIMKeyBinding::STRING:
            return hash.add(key.getValue());
        case CIMKeyBinding::NUMERIC:
            return addNumber(hash, key.getValue());
        case CIMKeyBinding::REFERENCE:
            return addReference(hash, key.getValue());
    }
}

void addPath(Hash& hash, const ObjectPathRep& path) {
    hash.addFolded(path.host);
    hash.addFolded(path.nameSpace.getString());
    hash.addFolded(path.className.getString());
    for (Uint32 i = 0; i < path.keys.size(); ++i) addKey(hash, std::as_const(path.keys)[i]);
}

bool sameNumber(const String& x, const String& y) {
    const auto number = readInteger(x);
    return number && number == readInteger(y);
}

bool sameReference(const String& x, const String& y) {
    try {
        return CIMObjectPath(x) == CIMObjectPath(y);
    } catch (const MalformedObjectNameException&) {
        return false;
    }
}

CIMKeyBinding::Type keyTypeFor(const CIMValue& value) {
    if (value.isArray()) throw TypeMismatchException();
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return CIMKeyBinding::BOOLEAN;
        case CIMTYPE_CHAR16:
        case CIMTYPE_STRING:
        case CIMTYPE_DATETIME:
            return CIMKeyBinding::STRING;
        case CIMTYPE_REFERENCE:
            return CIMKeyBinding::REFERENCE;
        case CIMTYPE_OBJECT:
        case CIMTYPE_INSTANCE:
            throw TypeMismatchException();
        default:
            return CIMKeyBinding::NUMERIC;
    }
}

template <class Real>
bool isReal(const String& text, Real value) {
    const auto real = readReal(text);
    return real && Real(*real) == value;
}

/// Numbers without sign are written without one, zero included.
bool hasNeedlessSign(const String& text, CIMType type) {
    const bool isSigned = type == CIMTYPE_SINT8 || type == CIMTYPE_SINT16 ||
                          type == CIMTYPE_SINT32 || type == CIMTYPE_SINT64;
    return !isSigned && (text[0] == '+' || text[0] == '-');
}

bool isTextOf(const String& text, const CIMValue& value) {
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return String::equalNoCase(text, value.toString());
        case CIMTYPE_REFERENCE:
            return CIMObjectPath(text) == Access::held<CIMObjectPath>(value);
        case CIMTYPE_DATETIME:
            return CIMDateTime(text) == Access::held<CIMDateTime>(value);
        case CIMTYPE_REAL32:
            return isReal(text, Access::held<Real32>(value));
        case CIMTYPE_REAL64:
            return isReal(text, Access::held<Real64>(value));
        case CIMTYPE_CHAR16:
        case CIMTYPE_STRING:
            return text == value.toString();
        default:
            return !hasNeedlessSign(text, value.getType()) && sameNumber(text, value.toString());
    }
}

}  // namespace

void sortKeys(Array<CIMKeyBinding>& keys) {
    const CIMKeyBinding* data = keys.getData();
    if (std::is_sorted(data, data + keys.size(), isBefore)) return;
    CIMKeyBinding* own = &keys[0];
    std::stable_sort(own, own + keys.size(), isBefore);
}

String writeObjectPath(const ObjectPathRep& path) {
    String text;
    text.reserveCapacity(sizeWithoutEscapes(path));
    const bool hasHost = path.host.size() != 0;
    if (hasHost) {
        text.append(String("//"));
        text.append(path.host);
        text.append(Char16('/'));
    }
    if (hasHost || !path.nameSpace.isNull()) {
        text.append(path.nameSpace.getString());
        text.append(Char16(':'));
    }
    text.append(path.className.getString());
    for (Uint32 i = 0; i < path.keys.size(); ++i) {
        text.append(Char16(i == 0 ? '.' : ','));
        appendKey(text, std::as_const(path.keys)[i]);
    }
    return text;
}

}  // namespace cimserver

PEGASUS_NAMESPACE_BEGIN

CIMKeyBinding::CIMKeyBinding() = default;

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const String& value, Type type)
    : _name(name), _value(value), _type(type) {}

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const CIMValue& value)
    : _name(name), _type(keyTypeFor(value)) {
    _value = value.toString();
}

Boolean CIMKeyBinding::equal(CIMValue value) {
    try {
        return !value.isNull() && keyTypeFor(value) == _type && isTextOf(_value, value);
    } catch (const Exception&) {
        return false;  // arrays and embedded objects are no keys, and a text may be of no such type
    }
}

Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    if (x.getType() != y.getType() || x.getName() != y.getName()) return false;
    if (x.getValue() == y.getValue()) return true;
    switch (x.getType()) {
        case CIMKeyBinding::BOOLEAN:
            return String::equalNoCase(x.getValue(), y.getValue());
        case CIMKeyBinding::NUMERIC:
            return sameNumber(x.getValue(), y.getValue());
        case CIMKeyBinding::REFERENCE:
            return sameReference(x.getValue(), y.getValue());
        case CIMKeyBinding::STRING:
            break;
    }
    return false;
}

CIMObjectPath::CIMObjectPath() = default;
CIMObjectPath::CIMObjectPath(const CIMObjectPath& x) = default;
CIMObjectPath::CIMObjectPath(CIMObjectPath&& x) noexcept = default;
CIMObjectPath::CIMObjectPath(const String& objectName) : _rep(readObjectPath(objectName)) {}

CIMObjectPath::CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace,
                             const CIMName& className, const Array<CIMKeyBinding>& keyBindings) {
    set(host, nameSpace, className, keyBindings);
}

CIMObjectPath::~CIMObjectPath() = default;
CIMObjectPath& CIMObjectPath::operator=(const CIMObjectPath& x) = default;
CIMObjectPath& CIMObjectPath::operator=(CIMObjectPath&& x) noexcept = default;

CIMObjectPath& CIMObjectPath::operator=(const String& objectName) {
    set(objectName);
    return *this;
}

void CIMObjectPath::clear() {
    _rep = {};
}

void CIMObjectPath::set(const String& host, const CIMNamespaceName& nameSpace,
                        const CIMName& className, const Array<CIMKeyBinding>& keyBindings) {
    auto rep = Ref<ObjectPathRep>::adopt(new ObjectPathRep);
    rep->host = checkedHost(host);
    rep->nameSpace = nameSpace;
    rep->className = className;
    rep->keys = canonicalKeys(keyBindings);
    _rep = std::move(rep);
}

void CIMObjectPath::set(const String& objectName) {
    // It may be part of this path.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const String text = objectName;
    clear();
    _rep = readObjectPath(text);
}

const String& CIMObjectPath::getHost() const {
    return repOf(*this).host;
}

void CIMObjectPath::setHost(const String& host) {
    String checked = checkedHost(host);
    writable().host = std::move(checked);
}

const CIMNamespaceName& CIMObjectPath::getNameSpace() const {
    return repOf(*this).nameSpace;
}

void CIMObjectPath::setNameSpace(const CIMNamespaceName& nameSpace) {
    writable().nameSpace = nameSpace;
}

const CIMName& CIMObjectPath::getClassName() const {
    return repOf(*this).className;
}

void CIMObjectPath::setClassName(const CIMName& className) {
    writable().className = className;
}

const Array<CIMKeyBinding>& CIMObjectPath::getKeyBindings() const {
    return repOf(*this).keys;
}

void CIMObjectPath::setKeyBindings(const Array<CIMKeyBinding>& keyBindings) {
    auto keys = canonicalKeys(keyBindings);
    writable().keys = std::move(keys);
}

String CIMObjectPath::toString() const {
    return writeObjectPath(repOf(*this));
}

Boolean CIMObjectPath::identical(const CIMObjectPath& x) const {
    const ObjectPathRep& mine = repOf(*this);
    const ObjectPathRep& other = repOf(x);
    const CIMKeyBinding* keys = mine.keys.getData();
    const CIMKeyBinding* otherKeys = other.keys.getData();
    return &mine == &other ||
           (String::equalNoCase(mine.host, other.host) && mine.nameSpace == other.nameSpace &&
            mine.className == other.className &&
            std::equal(keys, keys + mine.keys.size(), otherKeys, otherKeys + other.keys.size()));
}

Uint32 CIMObjectPath::makeHashCode() const {
    Hash hash;
    addPath(hash, repOf(*this));
    return hash.value();
}

ObjectPathRep& CIMObjectPath::writable() {
    if (!_rep || _rep->isShared()) {
        _rep = Ref<ObjectPathRep>::adopt(new ObjectPathRep(repOf(*this)));
    }
    return *_rep;
}

Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y) {
    return x.identical(y);
}
Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y) {
    return !x.identical(y);
}

template class Array<CIMKeyBinding>;
template class Array<CIMObjectPath>;

PEGASUS_NAMESPACE_END
