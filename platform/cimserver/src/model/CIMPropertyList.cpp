#include <Pegasus/Common/CIMPropertyList.h>

#include <Pegasus/Common/Exception.h>

#include <algorithm>

PEGASUS_NAMESPACE_BEGIN
namespace {

template <class Predicate>
bool anyOf(const Array<CIMName>& names, Predicate predicate) {
    return std::any_of(names.getData(), names.getData() + names.size(), predicate);
}

}  // namespace

void CIMPropertyList::set(const Array<CIMName>& propertyNames) {
    if (anyOf(propertyNames, [](const CIMName& name) { return name.isNull(); })) {
        throw UninitializedObjectException();
    }
    _names = propertyNames;
    _isNull = false;
}

void CIMPropertyList::append(Array<String>& propertyNames) {
    CIMPropertyList given;
    for (Uint32 i = 0; i < propertyNames.size(); ++i) {
        const CIMName name(propertyNames[i]);
        if (!given.contains(name)) given._names.append(name);
    }
    if (given.size() != 0) _names = given._names;
    _isNull = false;
}

Boolean CIMPropertyList::contains(const CIMName& name) const noexcept {
    return anyOf(_names, [&](const CIMName& listed) { return listed == name; });
}

String CIMPropertyList::toString() const {
    if (_isNull || _names.size() == 0) {
        return _isNull ? "NULL" : "EMPTY";
    }
    String text = _names[0].getString();
    for (Uint32 i = 1; i < _names.size(); ++i) {
        text.append(", ").append(_names[i].getString());
    }
    return text;
}

PEGASUS_NAMESPACE_END
