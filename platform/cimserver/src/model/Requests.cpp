#include "model/Requests.h"

#include "model/HostName.h"
#include "model/TextConversion.h"
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

CIMClass declaration(LocalServer& server, const OperationContext& context,
                     const CIMNamespaceName& nameSpace, const CIMName& className) try {
    return server.getClass(context, nameSpace, className, false, Selection());
} catch (const CIMException& failure) {
    if (failure.getCode() != CIM_ERR_NOT_FOUND) throw;
    throw CIMException(CIM_ERR_INVALID_CLASS, className.getString());
}

CIMValue declaredValue(LocalServer& server, const OperationContext& context,
                       const CIMNamespaceName& nameSpace, const CIMName& className,
                       const CIMName& name, const CIMValue& text) {
    const CIMClass owner = declaration(server, context, nameSpace, className);
    const Uint32 index = owner.findProperty(name);
    if (index == PEG_NOT_FOUND) throw CIMException(CIM_ERR_NO_SUCH_PROPERTY);
    const CIMConstProperty declared = owner.getProperty(index);
    return convertToDeclared(text, declared.getType(), declared.isArray());
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

CIMValue asText(const CIMValue& value) {
    const CIMType type = value.getType();
    if (value.isNull() || type == CIMTYPE_STRING || type == CIMTYPE_REFERENCE) return value;
    if (!value.isArray()) return CIMValue(value.toString());
    return withType(type, [&](auto tag) { return textsOf<typename decltype(tag)::Type>(value); });
}

void setProperty(LocalServer& server, const OperationContext& context,
                 const CIMNamespaceName& nameSpace, const CIMObjectPath& path, const CIMName& name,
                 const CIMValue& value) {
    const CIMName& className = path.getClassName();
    const bool isText = value.getType() == CIMTYPE_STRING;
    CIMInstance instance(className);
    instance.setPath(CIMObjectPath(ownHostName(), nameSpace, className, path.getKeyBindings()));
    instance.addProperty(CIMProperty(
        name, isText ? declaredValue(server, context, nameSpace, className, name, value) : value));
    server.modifyInstance(context, nameSpace, instance, onlyProperty(name));
}

}  // namespace cimserver
