#include "model/ObjectEncoder.h"

#include "model/ValueVisitor.h"
#include "model/XmlText.h"

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMMethod.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>

#include <charconv>
#include <type_traits>

namespace cimserver {

using namespace Pegasus;

namespace {

const Selection kEverything{true, true, {}};

template <class Number>
void appendInteger(std::string& out, Number number) {
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof(digits), number);
    out.append(digits, result.ptr);
}

void appendReal(std::string& out, double number, int precision) {
    char digits[40];
    const auto result = std::to_chars(digits, digits + sizeof(digits), number,
                                      std::chars_format::scientific, precision);
    out.append(digits, result.ptr);
}

template <class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
void appendText(std::string& out, T number) {
    appendInteger(out, number);
}

void appendText(std::string& out, Boolean flag) {
    out += flag ? "TRUE" : "FALSE";
}

void appendText(std::string& out, Real32 number) {
    appendReal(out, static_cast<double>(number), 7);
}

void appendText(std::string& out, Real64 number) {
    appendReal(out, number, 16);
}

void appendText(std::string& out, Char16 unit) {
    appendEscaped(out, String(&unit, 1));
}

void appendText(std::string& out, const String& text) {
    appendEscaped(out, text);
}

void appendText(std::string& out, const CIMDateTime& time) {
    appendEscaped(out, time.toString());
}

void appendText(std::string& out, const CIMObject& object) {
    std::string xml;
    if (object.isClass()) {
        appendClass(xml, CIMConstClass(object));
    } else {
        appendInstance(xml, CIMConstInstance(object), kEverything);
    }
    appendEscaped(out, xml);
}

void appendAttribute(std::string& out, const char* name, const String& value) {
    out += ' ';
    out += name;
    out += "=\"";
    appendEscaped(out, value);
    out += '"';
}

void appendAttribute(std::string& out, const char* name, const CIMName& value) {
    if (!value.isNull()) appendAttribute(out, name, value.getString());
}

void appendSize(std::string& out, Uint32 size) {
    if (size == 0) return;
    out += " ARRAYSIZE=\"";
    appendInteger(out, size);
    out += '"';
}

// Embedded objects travel as strings, marked in both spellings that clients look for.
void appendType(std::string& out, const char* attribute, CIMType type) {
    const bool instance = type == CIMTYPE_INSTANCE;
    const bool embedded = instance || type == CIMTYPE_OBJECT;
    out += ' ';
    out += attribute;
    out += "=\"";
    out += embedded ? "string" : cimTypeToString(type);
    out += '"';
    if (!embedded) return;
    out += instance ? " EmbeddedObject=\"instance\" EMBEDDEDOBJECT=\"instance\""
                    : " EmbeddedObject=\"object\" EMBEDDEDOBJECT=\"object\"";
}

const char* keyTypeName(CIMKeyBinding::Type type) {
    switch (type) {
        case CIMKeyBinding::BOOLEAN:
            return "boolean";
        case CIMKeyBinding::NUMERIC:
            return "numeric";
        default:
            return "string";
    }
}

void appendReference(std::string& out, const CIMObjectPath& path);

void appendKeyValue(std::string& out, const CIMKeyBinding& key) {
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        return appendReference(out, CIMObjectPath(key.getValue()));
    }
    out += "<KEYVALUE VALUETYPE=\"";
    out += keyTypeName(key.getType());
    out += "\">";
    appendEscaped(out, key.getValue());
    out += "</KEYVALUE>\n";
}

// The only key of a class may come without its name.
void appendKey(std::string& out, const CIMKeyBinding& key) {
    if (key.getName().isNull()) return appendKeyValue(out, key);
    out += "<KEYBINDING";
    appendAttribute(out, "NAME", key.getName());
    out += ">\n";
    appendKeyValue(out, key);
    out += "</KEYBINDING>\n";
}

void appendNamespace(std::string& out, const CIMNamespaceName& nameSpace) {
    const String& text = nameSpace.getString();
    out += "<LOCALNAMESPACEPATH>\n";
    for (Uint32 begin = 0; begin < text.size();) {
        const Uint32 slash = text.find(begin, Char16('/'));
        const Uint32 end = slash == PEG_NOT_FOUND ? text.size() : slash;
        out += "<NAMESPACE";
        appendAttribute(out, "NAME", text.subString(begin, end - begin));
        out += "/>\n";
        begin = end + 1;
    }
    out += "</LOCALNAMESPACEPATH>\n";
}

void appendNamespacePath(std::string& out, const CIMObjectPath& path) {
    out += "<NAMESPACEPATH>\n<HOST>";
    appendEscaped(out, path.getHost());
    out += "</HOST>\n";
    appendNamespace(out, path.getNameSpace());
    out += "</NAMESPACEPATH>\n";
}

void appendBareName(std::string& out, const CIMObjectPath& path, bool isClass) {
    if (isClass) {
        appendClassName(out, path.getClassName());
    } else {
        appendInstanceName(out, path);
    }
}

// The path with as much around the name as it has: host and namespace, the namespace, or nothing.
void appendPath(std::string& out, const CIMObjectPath& path, bool isClass) {
    const bool full = path.getHost().size() != 0;
    if (!full && path.getNameSpace().isNull()) return appendBareName(out, path, isClass);
    const char* element = full      ? isClass ? "CLASSPATH>\n" : "INSTANCEPATH>\n"
                          : isClass ? "LOCALCLASSPATH>\n"
                                    : "LOCALINSTANCEPATH>\n";
    out += '<';
    out += element;
    if (full) {
        appendNamespacePath(out, path);
    } else {
        appendNamespace(out, path.getNameSpace());
    }
    appendBareName(out, path, isClass);
    out += "</";
    out += element;
}

void appendReference(std::string& out, const CIMObjectPath& path) {
    out += "<VALUE.REFERENCE>\n";
    appendPath(out, path, false);
    out += "</VALUE.REFERENCE>\n";
}

template <class T>
void appendItem(std::string& out, const T& value) {
    out += "<VALUE>";
    appendText(out, value);
    out += "</VALUE>\n";
}

void appendItem(std::string& out, const CIMObjectPath& path) {
    appendReference(out, path);
}

template <class T>
void appendData(std::string& out, const T& item) {
    appendItem(out, item);
}

template <class T>
void appendData(std::string& out, const Array<T>& items) {
    constexpr bool reference = std::is_same_v<T, CIMObjectPath>;
    out += reference ? "<VALUE.REFARRAY>\n" : "<VALUE.ARRAY>\n";
    for (Uint32 i = 0, n = items.size(); i < n; ++i) appendItem(out, items[i]);
    out += reference ? "</VALUE.REFARRAY>\n" : "</VALUE.ARRAY>\n";
}

void appendFlavor(std::string& out, const CIMFlavor& flavor) {
    if (!flavor.hasFlavor(CIMFlavor::OVERRIDABLE)) out += " OVERRIDABLE=\"false\"";
    if (!flavor.hasFlavor(CIMFlavor::TOSUBCLASS)) out += " TOSUBCLASS=\"false\"";
    if (flavor.hasFlavor(CIMFlavor::TRANSLATABLE)) out += " TRANSLATABLE=\"true\"";
}

void appendPropagated(std::string& out, bool propagated) {
    if (propagated) out += " PROPAGATED=\"true\"";
}

void appendQualifier(std::string& out, const CIMConstQualifier& qualifier) {
    out += "<QUALIFIER";
    appendAttribute(out, "NAME", qualifier.getName());
    appendType(out, "TYPE", qualifier.getValue().getType());
    appendPropagated(out, qualifier.getPropagated() != 0);
    appendFlavor(out, qualifier.getFlavor());
    out += ">\n";
    appendValue(out, qualifier.getValue());
    out += "</QUALIFIER>\n";
}

template <class Qualified>
void appendQualifiers(std::string& out, const Qualified& qualified) {
    for (Uint32 i = 0, n = qualified.getQualifierCount(); i < n; ++i) {
        appendQualifier(out, qualified.getQualifier(i));
    }
}

// The name of the element that a property with this value is written as.
const char* propertyElement(const CIMValue& value) {
    if (value.isArray()) return "PROPERTY.ARRAY";
    return value.getType() == CIMTYPE_REFERENCE ? "PROPERTY.REFERENCE" : "PROPERTY";
}

void appendProperty(std::string& out, const CIMConstProperty& property,
                    const Selection& selection) {
    const CIMValue& value = property.getValue();
    const char* element = propertyElement(value);
    const bool reference = !value.isArray() && value.getType() == CIMTYPE_REFERENCE;
    out += '<';
    out += element;
    appendAttribute(out, "NAME", property.getName());
    if (reference) {
        appendAttribute(out, "REFERENCECLASS", property.getReferenceClassName());
    } else {
        appendType(out, "TYPE", value.getType());
        appendSize(out, property.getArraySize());
    }
    if (selection.includeClassOrigin)
        appendAttribute(out, "CLASSORIGIN", property.getClassOrigin());
    appendPropagated(out, property.getPropagated());
    out += ">\n";
    if (selection.includeQualifiers) appendQualifiers(out, property);
    appendValue(out, value);
    out += "</";
    out += element;
    out += ">\n";
}

void appendProperties(std::string& out, const CIMConstInstance& instance,
                      const Selection& selection) {
    const CIMPropertyList& list = selection.propertyList;
    if (list.isNull()) {
        for (Uint32 i = 0, n = instance.getPropertyCount(); i < n; ++i) {
            appendProperty(out, instance.getProperty(i), selection);
        }
        return;
    }
    for (Uint32 i = 0, n = list.size(); i < n; ++i) {
        const Uint32 index = instance.findProperty(list[i]);
        if (index != PEG_NOT_FOUND) appendProperty(out, instance.getProperty(index), selection);
    }
}

const char* parameterElement(const CIMConstParameter& parameter) {
    const bool reference = parameter.getType() == CIMTYPE_REFERENCE;
    if (parameter.isArray()) return reference ? "PARAMETER.REFARRAY" : "PARAMETER.ARRAY";
    return reference ? "PARAMETER.REFERENCE" : "PARAMETER";
}

void appendParameterDeclaration(std::string& out, const CIMConstParameter& parameter) {
    const char* element = parameterElement(parameter);
    out += '<';
    out += element;
    appendAttribute(out, "NAME", parameter.getName());
    if (parameter.getType() == CIMTYPE_REFERENCE) {
        appendAttribute(out, "REFERENCECLASS", parameter.getReferenceClassName());
    } else {
        appendType(out, "TYPE", parameter.getType());
    }
    appendSize(out, parameter.getArraySize());
    out += ">\n";
    appendQualifiers(out, parameter);
    out += "</";
    out += element;
    out += ">\n";
}

void appendMethod(std::string& out, const CIMConstMethod& method) {
    out += "<METHOD";
    appendAttribute(out, "NAME", method.getName());
    appendType(out, "TYPE", method.getType());
    appendAttribute(out, "CLASSORIGIN", method.getClassOrigin());
    appendPropagated(out, method.getPropagated());
    out += ">\n";
    appendQualifiers(out, method);
    for (Uint32 i = 0, n = method.getParameterCount(); i < n; ++i) {
        appendParameterDeclaration(out, method.getParameter(i));
    }
    out += "</METHOD>\n";
}

}  // namespace

void appendValue(std::string& out, const CIMValue& value) {
    if (value.isNull()) return;
    visit(value, [&](const auto& data) { appendData(out, data); });
}

void appendClassName(std::string& out, const CIMName& name) {
    out += "<CLASSNAME";
    appendAttribute(out, "NAME", name.getString());
    out += "/>\n";
}

void appendInstanceName(std::string& out, const CIMObjectPath& path) {
    out += "<INSTANCENAME";
    appendAttribute(out, "CLASSNAME", path.getClassName().getString());
    out += ">\n";
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0, n = keys.size(); i < n; ++i) appendKey(out, keys[i]);
    out += "</INSTANCENAME>\n";
}

void appendObjectPath(std::string& out, const CIMObjectPath& path, bool isClass) {
    out += "<OBJECTPATH>\n";
    appendPath(out, path, isClass);
    out += "</OBJECTPATH>\n";
}

void appendInstance(std::string& out, const CIMConstInstance& instance,
                    const Selection& selection) {
    out += "<INSTANCE";
    appendAttribute(out, "CLASSNAME", instance.getClassName());
    out += ">\n";
    if (selection.includeQualifiers) appendQualifiers(out, instance);
    appendProperties(out, instance, selection);
    out += "</INSTANCE>\n";
}

void appendNamedInstance(std::string& out, const CIMConstInstance& instance,
                         const Selection& selection) {
    out += "<VALUE.NAMEDINSTANCE>\n";
    appendInstanceName(out, instance.getPath());
    appendInstance(out, instance, selection);
    out += "</VALUE.NAMEDINSTANCE>\n";
}

void appendObjectWithPath(std::string& out, const CIMConstObject& object,
                          const Selection& selection) {
    out += "<VALUE.OBJECTWITHPATH>\n";
    appendPath(out, object.getPath(), object.isClass());
    if (object.isClass()) {
        appendClass(out, CIMConstClass(object));
    } else {
        appendInstance(out, CIMConstInstance(object), selection);
    }
    out += "</VALUE.OBJECTWITHPATH>\n";
}

void appendClass(std::string& out, const CIMConstClass& cimClass) {
    out += "<CLASS";
    appendAttribute(out, "NAME", cimClass.getClassName());
    appendAttribute(out, "SUPERCLASS", cimClass.getSuperClassName());
    out += ">\n";
    appendQualifiers(out, cimClass);
    for (Uint32 i = 0, n = cimClass.getPropertyCount(); i < n; ++i) {
        appendProperty(out, cimClass.getProperty(i), kEverything);
    }
    for (Uint32 i = 0, n = cimClass.getMethodCount(); i < n; ++i) {
        appendMethod(out, cimClass.getMethod(i));
    }
    out += "</CLASS>\n";
}

void appendReturnValue(std::string& out, const CIMValue& value) {
    out += "<RETURNVALUE";
    appendType(out, "PARAMTYPE", value.getType());
    out += ">\n";
    appendValue(out, value);
    out += "</RETURNVALUE>\n";
}

void appendParameter(std::string& out, const CIMParamValue& parameter) {
    const CIMValue value = parameter.getValue();
    out += "<PARAMVALUE";
    appendAttribute(out, "NAME", parameter.getParameterName());
    if (parameter.isTyped()) appendType(out, "PARAMTYPE", value.getType());
    out += ">\n";
    appendValue(out, value);
    out += "</PARAMVALUE>\n";
}

}  // namespace cimserver
