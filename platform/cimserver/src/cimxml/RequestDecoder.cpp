#include "broker/PropertyLists.h"
#include "cimxml/ObjectDecoder.h"
#include "cimxml/Request.h"
#include "cimxml/Utf8.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

namespace cimserver {

using namespace Pegasus;

namespace {

enum class Need { Optional, Required, RequiredSilently };

/// One parameter of an operation: its name and where its value goes.
struct Parameter {
    const char* name;
    std::function<void(const XmlElement&)> read;
    Need need = Need::Optional;
    bool seen = false;
};

CIMException unknownParameter(std::string_view name) {
    return CIMException(
        CIM_ERR_NOT_SUPPORTED,
        toString("Unrecognized or invalid request input parameter \"" + std::string(name) + "\""));
}

void readOne(const XmlElement& element, std::vector<Parameter>& parameters) {
    const std::string_view name = element.requiredAttribute("NAME");
    const auto found =
        std::find_if(parameters.begin(), parameters.end(),
                     [&](const Parameter& known) { return equalIgnoringCase(known.name, name); });
    if (found == parameters.end()) throw unknownParameter(name);
    if (!element.text.empty()) throw notValid("text in place of a parameter's value");
    found->read(element);
    if (found->seen) {
        throw CIMException(CIM_ERR_INVALID_PARAMETER, "Duplicated request input parameter.");
    }
    found->seen = true;
}

void requireSeen(const Parameter& parameter) {
    if (parameter.seen || parameter.need == Need::Optional) return;
    if (parameter.need == Need::RequiredSilently) throw CIMException(CIM_ERR_INVALID_PARAMETER);
    throw CIMException(CIM_ERR_INVALID_PARAMETER,
                       toString("Required parameter \"" + std::string(parameter.name) +
                                "\" missing from request."));
}

/// Reads the operation's IPARAMVALUE elements.
void read(const Message& message, std::vector<Parameter> parameters) {
    XmlCursor cursor = message.parameters();
    while (cursor.peek()) readOne(cursor.expect("IPARAMVALUE"), parameters);
    for (const Parameter& parameter : parameters) requireSeen(parameter);
}

/// The one child of an IPARAMVALUE, which must be there and have this name.
const XmlElement& onlyChild(const XmlElement& parameter, std::string_view name) {
    XmlCursor cursor(parameter);
    const XmlElement& child = cursor.expect(name);
    cursor.end();
    return child;
}

Parameter flag(const char* name, bool& out) {
    return {name, [&out](const XmlElement& parameter) {
                const std::string_view text = onlyChild(parameter, "VALUE").text;
                out = equalIgnoringCase(text, "TRUE");
                if (!out && !equalIgnoringCase(text, "FALSE"))
                    throw notValid("a value is no boolean");
            }};
}

Parameter className(const char* name, CIMName& out, Need need) {
    return {name,
            [&out, need](const XmlElement& parameter) {
                if (need == Need::Optional && !parameter.firstChild) return;
                out = nameAttribute(onlyChild(parameter, "CLASSNAME"));
            },
            need};
}

Parameter text(const char* name, String& out) {
    return {name, [&out](const XmlElement& parameter) {
                if (parameter.firstChild) out = toString(onlyChild(parameter, "VALUE").text);
            }};
}

Parameter instanceName(CIMObjectPath& out) {
    return {"InstanceName",
            [&out](const XmlElement& parameter) {
                if (parameter.firstChild) out = decodePath(onlyChild(parameter, "INSTANCENAME"));
            },
            Need::RequiredSilently};
}

Parameter objectName(ObjectName& out) {
    return {"ObjectName",
            [&out](const XmlElement& parameter) {
                XmlCursor cursor(parameter);
                const XmlElement* name = cursor.take("CLASSNAME");
                out.isClass = name != nullptr;
                out.path = decodePath(name ? *name : cursor.expect("INSTANCENAME"));
                cursor.end();
            },
            Need::Required};
}

Array<CIMName> propertyNames(const XmlElement& valueArray) {
    Array<CIMName> names;
    XmlCursor cursor(valueArray);
    while (cursor.peek()) names.append(CIMName(toString(cursor.expect("VALUE").text)));
    return names;
}

constexpr std::size_t kMaxPropertyNames = 1000;

Parameter propertyList(CIMPropertyList& out, bool keepRepetitions = false) {
    return {"PropertyList", [&out, keepRepetitions](const XmlElement& parameter) {
                if (!parameter.firstChild) return;
                const Array<CIMName> names = propertyNames(onlyChild(parameter, "VALUE.ARRAY"));
                if (names.size() > kMaxPropertyNames)
                    throw notValid("the property list is too long");
                out.set(names);
                if (!keepRepetitions) out = withoutDuplicates(out);
            }};
}

Parameter propertyName(CIMName& out) {
    return {"PropertyName",
            [&out](const XmlElement& parameter) {
                out = CIMName(toString(onlyChild(parameter, "VALUE").text));
            },
            Need::RequiredSilently};
}

GetClass decodeGetClass(const Message& message) {
    GetClass out;
    read(message,
         {className("ClassName", out.className, Need::Required), flag("LocalOnly", out.localOnly),
          flag("IncludeQualifiers", out.selection.includeQualifiers),
          flag("IncludeClassOrigin", out.selection.includeClassOrigin),
          propertyList(out.selection.propertyList)});
    return out;
}

EnumerateClasses decodeEnumerateClasses(const Message& message) {
    EnumerateClasses out;
    read(message, {className("ClassName", out.className, Need::Optional),
                   flag("DeepInheritance", out.deep), flag("LocalOnly", out.localOnly),
                   flag("IncludeQualifiers", out.selection.includeQualifiers),
                   flag("IncludeClassOrigin", out.selection.includeClassOrigin)});
    return out;
}

EnumerateClassNames decodeEnumerateClassNames(const Message& message) {
    EnumerateClassNames out;
    read(message, {className("ClassName", out.className, Need::Optional),
                   flag("DeepInheritance", out.deep)});
    return out;
}

GetInstance decodeGetInstance(const Message& message) {
    GetInstance out;
    bool localOnly = true;  // accepted, and without effect on instances
    read(message, {instanceName(out.path), flag("LocalOnly", localOnly),
                   flag("IncludeQualifiers", out.selection.includeQualifiers),
                   flag("IncludeClassOrigin", out.selection.includeClassOrigin),
                   propertyList(out.selection.propertyList)});
    return out;
}

EnumerateInstances decodeEnumerateInstances(const Message& message) {
    EnumerateInstances out;
    bool localOnly = true;  // accepted, and without effect on instances
    read(message,
         {className("ClassName", out.className, Need::Required), flag("DeepInheritance", out.deep),
          flag("LocalOnly", localOnly), flag("IncludeQualifiers", out.selection.includeQualifiers),
          flag("IncludeClassOrigin", out.selection.includeClassOrigin),
          propertyList(out.selection.propertyList)});
    return out;
}

EnumerateInstanceNames decodeEnumerateInstanceNames(const Message& message) {
    EnumerateInstanceNames out;
    read(message, {className("ClassName", out.className, Need::Required)});
    return out;
}

void require(const CIMInstance& instance) {
    if (instance.isUninitialized()) throw UninitializedObjectException();
}

CreateInstance decodeCreateInstance(const Message& message) {
    CreateInstance out;
    const ObjectDecoder decoder(message.limits());
    read(message, {{"NewInstance",
                    [&](const XmlElement& parameter) {
                        if (parameter.firstChild)
                            out.instance = decoder.instance(onlyChild(parameter, "INSTANCE"));
                    },
                    Need::Required}});
    require(out.instance);
    return out;
}

ModifyInstance decodeModifyInstance(const Message& message) {
    ModifyInstance out;
    const ObjectDecoder decoder(message.limits());
    read(message, {{"ModifiedInstance",
                    [&](const XmlElement& parameter) {
                        if (parameter.firstChild)
                            out.instance =
                                decoder.namedInstance(onlyChild(parameter, "VALUE.NAMEDINSTANCE"));
                    },
                    Need::Required},
                   flag("IncludeQualifiers", out.selection.includeQualifiers),
                   propertyList(out.selection.propertyList, true)});
    require(out.instance);
    return out;
}

DeleteInstance decodeDeleteInstance(const Message& message) {
    DeleteInstance out;
    read(message, {instanceName(out.path)});
    return out;
}

Associators decodeAssociators(const Message& message) {
    Associators out;
    read(message, {objectName(out.object),
                   className("AssocClass", out.filter.associationClass, Need::Optional),
                   className("ResultClass", out.filter.resultClass, Need::Optional),
                   text("Role", out.filter.role), text("ResultRole", out.filter.resultRole),
                   flag("IncludeQualifiers", out.selection.includeQualifiers),
                   flag("IncludeClassOrigin", out.selection.includeClassOrigin),
                   propertyList(out.selection.propertyList)});
    return out;
}

AssociatorNames decodeAssociatorNames(const Message& message) {
    AssociatorNames out;
    read(message, {objectName(out.object),
                   className("AssocClass", out.filter.associationClass, Need::Optional),
                   className("ResultClass", out.filter.resultClass, Need::Optional),
                   text("Role", out.filter.role), text("ResultRole", out.filter.resultRole)});
    return out;
}

References decodeReferences(const Message& message) {
    References out;
    read(message,
         {objectName(out.object), className("ResultClass", out.filter.resultClass, Need::Optional),
          text("Role", out.filter.role), flag("IncludeQualifiers", out.selection.includeQualifiers),
          flag("IncludeClassOrigin", out.selection.includeClassOrigin),
          propertyList(out.selection.propertyList)});
    return out;
}

ReferenceNames decodeReferenceNames(const Message& message) {
    ReferenceNames out;
    read(message,
         {objectName(out.object), className("ResultClass", out.filter.resultClass, Need::Optional),
          text("Role", out.filter.role)});
    return out;
}

GetProperty decodeGetProperty(const Message& message) {
    GetProperty out;
    read(message, {instanceName(out.path), propertyName(out.property)});
    return out;
}

SetProperty decodeSetProperty(const Message& message) {
    SetProperty out;
    const ObjectDecoder decoder(message.limits());
    read(message, {instanceName(out.path),
                   propertyName(out.property),
                   {"NewValue", [&](const XmlElement& parameter) {
                        XmlCursor cursor(parameter);
                        auto value = decoder.value(cursor, CIMTYPE_STRING);
                        if (!value) value = decoder.value(cursor, CIMTYPE_REFERENCE);
                        cursor.end();
                        out.value = value ? *value : CIMValue(CIMTYPE_STRING, false);
                    }}});
    return out;
}

InvokeMethod decodeInvokeMethod(const Message& message) {
    InvokeMethod out{message.object(), CIMName(toString(message.method())), {}};
    const ObjectDecoder decoder(message.limits());
    XmlCursor cursor = message.parameters();
    while (cursor.peek()) out.parameters.append(decoder.parameter(cursor.expect("PARAMVALUE")));
    return out;
}

struct Intrinsic {
    const char* name;
    Request (*decode)(const Message&);
};

template <auto Decode>
Request as(const Message& message) {
    return Decode(message);
}

constexpr Intrinsic kIntrinsics[] = {
    {"GetClass", as<decodeGetClass>},
    {"EnumerateClasses", as<decodeEnumerateClasses>},
    {"EnumerateClassNames", as<decodeEnumerateClassNames>},
    {"GetInstance", as<decodeGetInstance>},
    {"EnumerateInstances", as<decodeEnumerateInstances>},
    {"EnumerateInstanceNames", as<decodeEnumerateInstanceNames>},
    {"CreateInstance", as<decodeCreateInstance>},
    {"ModifyInstance", as<decodeModifyInstance>},
    {"DeleteInstance", as<decodeDeleteInstance>},
    {"Associators", as<decodeAssociators>},
    {"AssociatorNames", as<decodeAssociatorNames>},
    {"References", as<decodeReferences>},
    {"ReferenceNames", as<decodeReferenceNames>},
    {"GetProperty", as<decodeGetProperty>},
    {"SetProperty", as<decodeSetProperty>},
};

const Intrinsic* intrinsicOf(const Message& message) {
    const auto found = std::find_if(
        std::begin(kIntrinsics), std::end(kIntrinsics),
        [&](const Intrinsic& known) { return equalIgnoringCase(known.name, message.method()); });
    return found == std::end(kIntrinsics) ? nullptr : found;
}

Request decodeIntrinsic(const Message& message) {
    if (const Intrinsic* known = intrinsicOf(message)) return known->decode(message);
    throw CIMException(CIM_ERR_NOT_SUPPORTED,
                       toString("Unrecognized intrinsic method: " + std::string(message.method())));
}

}  // namespace

std::string_view calledName(const Message& message) {
    const Intrinsic* known = message.intrinsic() ? intrinsicOf(message) : nullptr;
    return known ? known->name : message.method();
}

// What the object model refuses here, such as a property list with an illegal name, is the caller's
// mistake.
Request decodeRequest(const Message& message) {
    try {
        return message.intrinsic() ? decodeIntrinsic(message) : decodeInvokeMethod(message);
    } catch (const CIMException&) {
        throw;
    } catch (const Exception& error) {
        throw CIMException(CIM_ERR_INVALID_PARAMETER, error.getMessage());
    }
}

}  // namespace cimserver
