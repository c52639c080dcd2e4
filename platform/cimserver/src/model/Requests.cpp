#include "model/Requests.h"

#include "model/TypeDispatch.h"

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

CIMValue asText(const CIMValue& value) {
    const CIMType type = value.getType();
    if (type == CIMTYPE_STRING || type == CIMTYPE_REFERENCE) {
        return value;
    }
    if (value.isNull()) {
        return CIMValue(CIMTYPE_STRING, value.isArray());
    }
    if (!value.isArray()) return CIMValue(value.toString());
    return withType(type, [&](auto tag) { return textsOf<typename decltype(tag)::Type>(value); });
}

}  // namespace

Selection onlyProperty(const CIMName& name) {
    Selection selection;
    Array<CIMName> names;
    names.append(name);
    selection.propertyList = CIMPropertyList(names);
    return selection;
}

CIMValue deliveredValue(const CIMInstance& instance, const CIMName& name) {
    const Uint32 index = instance.isUninitialized() ? PEG_NOT_FOUND : instance.findProperty(name);
    if (index == PEG_NOT_FOUND) {
        throw CIMException(CIM_ERR_NO_SUCH_PROPERTY, name.getString());
    }
    return instance.getProperty(index).getValue();
}

CIMValue valueAsText(const CIMInstance& instance, const CIMName& name) {
    return asText(deliveredValue(instance, name));
}

CIMInstance instanceToModify(const CIMObjectPath& path, const CIMProperty& property) {
    CIMInstance instance(path.getClassName());
    instance.setPath(path);
    instance.addProperty(property);
    return instance;
}

}  // namespace cimserver
