#include "ScriptedServer.h"

#include "cimxml/Utf8.h"

namespace cimserver::test {

using namespace Pegasus;

namespace {

std::string text(const CIMName& name) {
    return name.isNull() ? "-" : toUtf8(name.getString());
}

std::string text(const CIMObjectPath& path) {
    return toUtf8(path.toString());
}

std::string text(bool flag, const char* name) {
    return flag ? std::string(" ") + name : "";
}

std::string text(const Selection& selection) {
    return " [" + toUtf8(selection.propertyList.toString()) + "]" +
           text(selection.includeQualifiers, "qualifiers") +
           text(selection.includeClassOrigin, "origins");
}

std::string text(const AssociationFilter& filter) {
    return " via " + text(filter.associationClass) + " to " + text(filter.resultClass) + " as '" +
           toUtf8(filter.role) + "' from '" + toUtf8(filter.resultRole) + "'";
}

std::string text(const CIMValue& value) {
    return std::string(cimTypeToString(value.getType())) + (value.isArray() ? "[]=" : "=") +
           (value.isNull() ? "null" : toUtf8(value.toString()));
}

std::string text(const CIMInstance& instance) {
    std::string result = text(instance.getPath()) + " {";
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        result += (i ? ", " : "") + text(property.getName()) + " " + text(property.getValue());
    }
    return result + "}";
}

}  // namespace

template <class T, class Convert>
void ScriptedServer::deliver(const Sink<T>& sink, Convert convert) {
    for (std::size_t round = 0; round < rounds; ++round) {
        for (const CIMObject& object : objects) sink(convert(object));
    }
    fail();
}

void ScriptedServer::fail() const {
    if (failure) failure();
}

CIMInstance ScriptedServer::first() const {
    fail();
    return objects.empty() ? CIMInstance() : CIMInstance(objects.front());
}

CIMClass ScriptedServer::getClass(const Context&, const Namespace&, const CIMName& name,
                                  bool localOnly, const Selection& selection) {
    call = "getClass " + text(name) + text(localOnly, "local") + text(selection);
    fail();
    return CIMClass(objects.at(0));
}

void ScriptedServer::enumerateClasses(const Context&, const Namespace&, const CIMName& name,
                                      bool deep, bool localOnly, const Selection& selection,
                                      const Sink<CIMClass>& sink) {
    call = "enumerateClasses " + text(name) + text(deep, "deep") + text(localOnly, "local") +
           text(selection);
    deliver(sink, [](const CIMObject& object) { return CIMClass(object); });
}

void ScriptedServer::enumerateClassNames(const Context&, const Namespace&, const CIMName& name,
                                         bool deep, const Sink<CIMName>& sink) {
    call = "enumerateClassNames " + text(name) + text(deep, "deep");
    deliver(sink, [](const CIMObject& object) { return object.getClassName(); });
}

CIMInstance ScriptedServer::getInstance(const Context&, const Namespace& nameSpace,
                                        const Path& path, const Selection& selection) {
    call = "getInstance " + toUtf8(nameSpace.getString()) + " " + text(path) + text(selection);
    return first();
}

void ScriptedServer::enumerateInstances(const Context&, const Namespace&, const CIMName& name,
                                        const Selection& selection, const Sink<CIMInstance>& sink) {
    if (enumerate) return enumerate(name, sink);
    call = "enumerateInstances " + text(name) + text(selection);
    deliver(sink, [](const CIMObject& object) { return CIMInstance(object); });
}

void ScriptedServer::enumerateInstanceNames(const Context&, const Namespace&, const CIMName& name,
                                            const Sink<Path>& sink) {
    call = "enumerateInstanceNames " + text(name);
    deliver(sink, [](const CIMObject& object) { return object.getPath(); });
}

CIMObjectPath ScriptedServer::createInstance(const Context&, const Namespace&,
                                             const CIMInstance& instance) {
    call = "createInstance " + text(instance);
    return first().getPath();
}

void ScriptedServer::modifyInstance(const Context&, const Namespace&, const CIMInstance& instance,
                                    const Selection& selection) {
    call = "modifyInstance " + text(instance) + text(selection);
    fail();
}

void ScriptedServer::deleteInstance(const Context&, const Namespace&, const Path& path) {
    call = "deleteInstance " + text(path);
    fail();
}

void ScriptedServer::associators(const Context&, const Namespace&, const Path& path,
                                 const AssociationFilter& filter, const Selection& selection,
                                 const Sink<CIMObject>& sink) {
    call = "associators " + text(path) + text(filter) + text(selection);
    deliver(sink, [](const CIMObject& object) { return object; });
}

void ScriptedServer::associatorNames(const Context&, const Namespace&, const Path& path,
                                     const AssociationFilter& filter, const Sink<Path>& sink) {
    call = "associatorNames " + text(path) + text(filter);
    deliver(sink, [](const CIMObject& object) { return object.getPath(); });
}

void ScriptedServer::references(const Context&, const Namespace&, const Path& path,
                                const AssociationFilter& filter, const Selection& selection,
                                const Sink<CIMObject>& sink) {
    call = "references " + text(path) + text(filter) + text(selection);
    deliver(sink, [](const CIMObject& object) { return object; });
}

void ScriptedServer::referenceNames(const Context&, const Namespace&, const Path& path,
                                    const AssociationFilter& filter, const Sink<Path>& sink) {
    call = "referenceNames " + text(path) + text(filter);
    deliver(sink, [](const CIMObject& object) { return object.getPath(); });
}

CIMValue ScriptedServer::invokeMethod(const Context&, const Namespace& nameSpace, const Path& path,
                                      const CIMName& method, const Array<CIMParamValue>& in,
                                      Array<CIMParamValue>& out) {
    call = "invokeMethod " + toUtf8(nameSpace.getString()) + " " + text(path) + " " + text(method);
    for (Uint32 i = 0; i < in.size(); ++i) {
        const CIMParamValue& parameter = in[i];
        call += " " + toUtf8(parameter.getParameterName()) + (parameter.isTyped() ? ":" : "?") +
                text(parameter.getValue());
    }
    fail();
    out = outParameters;
    return returnValue;
}

CIMPropertyList ScriptedServer::propertyListFor(const Namespace&, const CIMName&,
                                                bool deepInheritance, const CIMPropertyList& list) {
    if (deepInheritance || !list.isNull()) return list;
    Array<CIMName> own;
    own.append("ShallowProperty");
    return CIMPropertyList(own);
}

}  // namespace cimserver::test
