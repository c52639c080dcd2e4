#include "model/Requests.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMProperty.h>

#include <array>

namespace cimserver {
namespace {

using namespace Pegasus;

template <class T>
CIMValue textsOf(const CIMValue& value) {
    Array<T> items;
    value.get(items);
    Array<String> texts;
    for (Uint32 i = 0; i < items.size(); ++i) {
        texts.append(CIMValue(items[i]).toString());
    }
    return CIMValue(texts);
}

using TextsOf = CIMValue (*)(const CIMValue&);

/// By type; strings and references stay what they are.
constexpr std::array<TextsOf, 17> textsByType{
    textsOf<Boolean>,
    textsOf<Uint8>,
    textsOf<Sint8>,
    textsOf<Uint16>,
    textsOf<Sint16>,
    textsOf<Uint32>,
    textsOf<Sint32>,
    textsOf<Uint64>,
    textsOf<Sint64>,
    textsOf<Real32>,
    textsOf<Real64>,
    textsOf<Char16>,
    nullptr,
    textsOf<CIMDateTime>,
    nullptr,
    textsOf<CIMObject>,
    textsOf<CIMInstance>,
};

CIMValue asText(const CIMValue& value) {
    const CIMType type = value.getType();
    if (type == CIMTYPE_STRING || type == CIMTYPE_REFERENCE) {
        return value;
    }
    if (value.isNull()) {
        return CIMValue(CIMTYPE_STRING, value.isArray());
    }
    return value.isArray() ? textsByType[type](value) : CIMValue(value.toString());
}

}  // namespace

Selection onlyProperty(const CIMName& name) {
    Selection selection;
    Array<CIMName> names;
    names.append(name);
    selection.propertyList = CIMPropertyList(names);
    return selection;
}

CIMValue valueAsText(const CIMInstance& instance, const CIMName& name) {
    const Uint32 index = instance.isUninitialized() ? PEG_NOT_FOUND : instance.findProperty(name);
    if (index == PEG_NOT_FOUND) {
        throw CIMException(CIM_ERR_NO_SUCH_PROPERTY, name.getString());
    }
    return asText(instance.getProperty(index).getValue());
}

CIMInstance instanceToModify(const CIMObjectPath& path, const CIMName& name,
                             const CIMValue& value) {
    CIMInstance instance(path.getClassName());
    instance.setPath(path);
    instance.addProperty(CIMProperty(name, value));
    return instance;
}

}  // namespace cimserver
