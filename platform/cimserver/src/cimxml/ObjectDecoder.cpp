#include "cimxml/ObjectDecoder.h"

#include "cimxml/Utf8.h"
#include "model/TextConversion.h"

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/InternalException.h>

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <vector>

namespace cimserver {

using namespace Pegasus;

namespace {

// Instances within instances: each level multiplies the escapes, so real ones stay far below.
constexpr unsigned kMaxEmbedding = 4;
// References within the keys of references: they become text, where it is the same.
constexpr unsigned kMaxReferences = 4;
constexpr Uint32 kMaxReferenceText = 64 << 10;
constexpr Uint32 kMaxKeys = 1000;

std::string described(const XmlElement& element, std::string_view attribute) {
    return std::string(element.name) + "." + std::string(attribute);
}

// Runs what builds an object from names and paths; what the object model refuses is no valid
// request, except values that only the operation is about.
template <class Build>
auto checked(const XmlElement& element, Build build) {
    try {
        return build();
    } catch (const TooManyElementsException& error) {
        throw Refusal(400, "request-with-too-many-elements", toUtf8(error.getMessage()));
    } catch (const MalformedObjectNameException&) {
        throw;
    } catch (const UninitializedObjectException&) {
        throw;
    } catch (const DateTimeOutOfRangeException&) {
        throw;
    } catch (const Exception& error) {
        throw notValid(std::string(element.name) + ": " + toUtf8(error.getMessage()));
    }
}

CIMName optionalName(const XmlElement& element, std::string_view attribute) {
    return element.attribute(attribute) ? nameAttribute(element, attribute) : CIMName();
}

CIMName classOrigin(const XmlElement& element) {
    return element.attribute("CLASSORIGIN") == "" ? CIMName()
                                                  : optionalName(element, "CLASSORIGIN");
}

bool flagAttribute(const XmlElement& element, std::string_view attribute, bool absent) {
    const auto text = element.attribute(attribute);
    if (!text) return absent;
    if (equalIgnoringCase(*text, "true")) return true;
    if (equalIgnoringCase(*text, "false")) return false;
    throw notValid(described(element, attribute) + " is neither true nor false");
}

struct NamedType {
    std::string_view name;
    CIMType type;
};

constexpr NamedType kTypes[] = {
    {"boolean", CIMTYPE_BOOLEAN}, {"string", CIMTYPE_STRING}, {"char16", CIMTYPE_CHAR16},
    {"uint8", CIMTYPE_UINT8},     {"sint8", CIMTYPE_SINT8},   {"uint16", CIMTYPE_UINT16},
    {"sint16", CIMTYPE_SINT16},   {"uint32", CIMTYPE_UINT32}, {"sint32", CIMTYPE_SINT32},
    {"uint64", CIMTYPE_UINT64},   {"sint64", CIMTYPE_SINT64}, {"datetime", CIMTYPE_DATETIME},
    {"real32", CIMTYPE_REAL32},   {"real64", CIMTYPE_REAL64}, {"reference", CIMTYPE_REFERENCE},
};

CIMType typeNamed(const XmlElement& element, std::string_view attribute, std::string_view text) {
    const auto found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                    [&](const NamedType& type) { return type.name == text; });
    if (found != std::end(kTypes)) return found->type;
    throw notValid(described(element, attribute) + " names no type");
}

CIMType typeAttribute(const XmlElement& element) {
    return typeNamed(element, "TYPE", element.requiredAttribute("TYPE"));
}

// What the EmbeddedObject attribute makes of a text; nothing without the attribute.
std::optional<CIMType> embeddedType(const XmlElement& element) {
    auto kind = element.attribute("EmbeddedObject");
    if (!kind) kind = element.attribute("EMBEDDEDOBJECT");
    if (!kind) return std::nullopt;
    if (*kind == "instance") return CIMTYPE_INSTANCE;
    if (*kind == "object") return CIMTYPE_OBJECT;
    throw notValid(described(element, "EmbeddedObject") + " is neither object nor instance");
}

// The same, told by the attribute or by the qualifiers EmbeddedObject and EmbeddedInstance.
std::optional<CIMType> embeddedType(const XmlElement& element,
                                    const std::vector<CIMQualifier>& qualifiers) {
    auto found = embeddedType(element);
    for (const CIMQualifier& qualifier : qualifiers) {
        const CIMName& name = qualifier.getName();
        const CIMValue& value = qualifier.getValue();
        if (name.equal("EmbeddedObject") && value == CIMValue(true)) return CIMTYPE_OBJECT;
        const bool namesClass = value.getType() == CIMTYPE_STRING && value.toString().size() != 0;
        if (name.equal("EmbeddedInstance") && namesClass && !found) found = CIMTYPE_INSTANCE;
    }
    return found;
}

// The type of a value that may be embedded in a text.
CIMType effectiveType(const XmlElement& element, CIMType declared,
                      std::optional<CIMType> embedded) {
    if (!embedded) return declared;
    if (declared == CIMTYPE_STRING) return *embedded;
    throw notValid(described(element, "EmbeddedObject") + " stands on something that is no string");
}

Uint32 arraySize(const XmlElement& element) {
    const auto text = element.attribute("ARRAYSIZE");
    if (!text) return 0;
    Uint32 size = 0;
    if (const auto value = valueFromText(toString(*text), CIMTYPE_UINT32)) value->get(size);
    if (size == 0) throw notValid(described(element, "ARRAYSIZE") + " is no size");
    return size;
}

CIMKeyBinding::Type keyType(const XmlElement& keyValue) {
    const auto text = keyValue.attribute("VALUETYPE");
    if (!text || *text == "string") return CIMKeyBinding::STRING;
    if (*text == "boolean") return CIMKeyBinding::BOOLEAN;
    if (*text == "numeric") return CIMKeyBinding::NUMERIC;
    throw notValid(described(keyValue, "VALUETYPE") + " is none of string, boolean and numeric");
}

// `depth` tells in the keys of how many references a path stands.
CIMObjectPath decodePathAt(const XmlElement& element, unsigned depth);

CIMObjectPath decodeReferenceAt(const XmlElement& valueReference, unsigned depth) {
    XmlCursor cursor(valueReference);
    CIMObjectPath path = decodePathAt(cursor.expectAny("a path"), depth);
    cursor.end();
    return path;
}

CIMObjectPath decodeReference(const XmlElement& valueReference) {
    return decodeReferenceAt(valueReference, 0);
}

String decodeReferenceKey(const XmlElement& valueReference, unsigned depth) {
    if (depth >= kMaxReferences) throw notValid("reference keys are nested too deeply");
    const String text = decodeReferenceAt(valueReference, depth + 1).toString();
    if (text.size() > kMaxReferenceText) throw notValid("a reference key is too long");
    return text;
}

// Takes KEYVALUE or VALUE.REFERENCE as the value of a key.
std::optional<CIMKeyBinding> takeKey(XmlCursor& cursor, const CIMName& name, unsigned depth) {
    if (const XmlElement* text = cursor.take("KEYVALUE")) {
        return CIMKeyBinding(name, toString(text->text), keyType(*text));
    }
    if (const XmlElement* reference = cursor.take("VALUE.REFERENCE")) {
        return CIMKeyBinding(name, decodeReferenceKey(*reference, depth), CIMKeyBinding::REFERENCE);
    }
    return std::nullopt;
}

CIMKeyBinding decodeKeyBinding(const XmlElement& element, unsigned depth) {
    XmlCursor cursor(element);
    auto key = takeKey(cursor, nameAttribute(element), depth);
    if (!key) throw notValid("KEYBINDING without a value");
    cursor.end();
    return *key;
}

CIMObjectPath decodeInstanceName(const XmlElement& element, unsigned depth) {
    XmlCursor cursor(element);
    Array<CIMKeyBinding> keys;
    if (const auto unnamed = takeKey(cursor, CIMName(), depth)) {
        keys.append(*unnamed);
    } else {
        while (const XmlElement* binding = cursor.take("KEYBINDING")) {
            if (keys.size() == kMaxKeys) throw notValid("an object path has too many keys");
            keys.append(decodeKeyBinding(*binding, depth));
        }
    }
    cursor.end();
    return CIMObjectPath(String(), CIMNamespaceName(), nameAttribute(element, "CLASSNAME"), keys);
}

CIMObjectPath decodeClassName(const XmlElement& element) {
    XmlCursor(element).end();
    return CIMObjectPath(String(), CIMNamespaceName(), nameAttribute(element));
}

CIMObjectPath decodeLocalPath(const XmlElement& element, std::string_view object, unsigned depth) {
    XmlCursor cursor(element);
    const CIMNamespaceName nameSpace = decodeNamespace(cursor.expect("LOCALNAMESPACEPATH"));
    CIMObjectPath path = decodePathAt(cursor.expect(object), depth);
    cursor.end();
    path.setNameSpace(nameSpace);
    return path;
}

CIMObjectPath decodeFullPath(const XmlElement& element, std::string_view object, unsigned depth) {
    XmlCursor cursor(element);
    XmlCursor nameSpacePath(cursor.expect("NAMESPACEPATH"));
    const XmlElement& host = nameSpacePath.expect("HOST");
    const CIMNamespaceName nameSpace = decodeNamespace(nameSpacePath.expect("LOCALNAMESPACEPATH"));
    nameSpacePath.end();
    CIMObjectPath path = decodePathAt(cursor.expect(object), depth);
    cursor.end();
    path.setNameSpace(nameSpace);
    path.setHost(toString(host.text));
    return path;
}

CIMObjectPath decodeAnyPath(const XmlElement& element, unsigned depth) {
    if (element.name == "INSTANCENAME") return decodeInstanceName(element, depth);
    if (element.name == "CLASSNAME") return decodeClassName(element);
    if (element.name == "LOCALINSTANCEPATH") return decodeLocalPath(element, "INSTANCENAME", depth);
    if (element.name == "LOCALCLASSPATH") return decodeLocalPath(element, "CLASSNAME", depth);
    if (element.name == "INSTANCEPATH") return decodeFullPath(element, "INSTANCENAME", depth);
    if (element.name == "CLASSPATH") return decodeFullPath(element, "CLASSNAME", depth);
    throw notValid("\"" + std::string(element.name) + "\" is no path");
}

CIMObjectPath decodePathAt(const XmlElement& element, unsigned depth) {
    return checked(element, [&] { return decodeAnyPath(element, depth); });
}

CIMFlavor decodeFlavor(const XmlElement& element) {
    CIMFlavor flavor(CIMFlavor::NONE);
    const bool overridable = flagAttribute(element, "OVERRIDABLE", true);
    const bool toSubclass = flagAttribute(element, "TOSUBCLASS", true);
    flavor.addFlavor(overridable ? CIMFlavor::OVERRIDABLE : CIMFlavor::DISABLEOVERRIDE);
    flavor.addFlavor(toSubclass ? CIMFlavor::TOSUBCLASS : CIMFlavor::RESTRICTED);
    if (flagAttribute(element, "TOINSTANCE", false)) flavor.addFlavor(CIMFlavor::TOINSTANCE);
    if (flagAttribute(element, "TRANSLATABLE", false)) flavor.addFlavor(CIMFlavor::TRANSLATABLE);
    return flavor;
}

}  // namespace

CIMName nameAttribute(const XmlElement& element, std::string_view attribute) {
    const std::string_view text = element.requiredAttribute(attribute);
    return checked(element, [&] { return CIMName(toString(text)); });
}

CIMNamespaceName decodeNamespace(const XmlElement& element) {
    std::string name;
    XmlCursor cursor(element);
    do {
        if (!name.empty()) name += '/';
        name += cursor.expect("NAMESPACE").requiredAttribute("NAME");
    } while (cursor.peek());
    return checked(element, [&] { return CIMNamespaceName(toString(name)); });
}

CIMObjectPath decodePath(const XmlElement& element) {
    return decodePathAt(element, 0);
}

namespace {

// The text of an element that holds nothing but text.
std::string_view textOf(const XmlElement& element) {
    XmlCursor(element).end();
    return element.text;
}

template <class T, class Read>
Array<T> readAll(const XmlElement& element, const char* item, Read read) {
    Array<T> values;
    XmlCursor cursor(element);
    while (cursor.peek()) values.append(read(cursor.expect(item)));
    return values;
}

CIMValue typed(const std::optional<CIMValue>& value, CIMType type) {
    if (value) return *value;
    throw notValid(std::string("a value is no ") + cimTypeToString(type));
}

// A date that is in no calendar is the caller's mistake, another text none of this grammar.
void refuseImpossibleDate(const String& text, CIMType type) {
    try {
        if (type == CIMTYPE_DATETIME) CIMDateTime{text};
    } catch (const InvalidDateTimeFormatException&) {
        return;
    }
}

CIMValue scalar(const String& text, CIMType type) {
    const auto value = valueFromText(text, type);
    if (!value) refuseImpossibleDate(text, type);
    return typed(value, type);
}

CIMValue scalars(const Array<String>& texts, CIMType type) {
    const auto values = valueFromTexts(texts, type);
    for (Uint32 i = 0; !values && i < texts.size(); ++i) refuseImpossibleDate(texts[i], type);
    return typed(values, type);
}

std::optional<CIMValue> takeReferences(XmlCursor& cursor) {
    if (const XmlElement* one = cursor.take("VALUE.REFERENCE"))
        return CIMValue(decodeReference(*one));
    if (const XmlElement* many = cursor.take("VALUE.REFARRAY")) {
        return CIMValue(readAll<CIMObjectPath>(*many, "VALUE.REFERENCE", decodeReference));
    }
    return std::nullopt;
}

std::optional<CIMValue> takeScalars(XmlCursor& cursor, CIMType type) {
    if (const XmlElement* one = cursor.take("VALUE")) {
        return scalar(toString(textOf(*one)), type);
    }
    if (const XmlElement* many = cursor.take("VALUE.ARRAY")) {
        const auto texts = readAll<String>(
            *many, "VALUE", [](const XmlElement& item) { return toString(textOf(item)); });
        return scalars(texts, type);
    }
    return std::nullopt;
}

}  // namespace

template <class T>
std::optional<CIMValue> ObjectDecoder::takeEmbedded(XmlCursor& cursor, CIMType type) const {
    const auto read = [this](const XmlElement& item) {
        if (textOf(item).empty()) throw UninitializedObjectException();
        return T(embeddedInstance(item.text));
    };
    if (const XmlElement* one = cursor.take("VALUE")) {
        return textOf(*one).empty() ? CIMValue(type, false) : CIMValue(read(*one));
    }
    if (const XmlElement* many = cursor.take("VALUE.ARRAY")) {
        return CIMValue(readAll<T>(*many, "VALUE", read));
    }
    return std::nullopt;
}

CIMInstance ObjectDecoder::embeddedInstance(std::string_view text) const try {
    if (_embedding >= kMaxEmbedding) throw notValid("embedded objects are nested too deeply");
    const XmlDocument document(text, _limits);
    if (document.root().name != "INSTANCE") throw notValid("an embedded object is no INSTANCE");
    return ObjectDecoder(_limits, _embedding + 1).instance(document.root());
} catch (const Refusal& refusal) {
    if (refusal.cimError() != kNotWellFormed) throw;
    throw notValid(std::string("an embedded object is no XML: ") + refusal.what());
}

std::optional<CIMValue> ObjectDecoder::value(XmlCursor& cursor, CIMType type) const {
    switch (type) {
        case CIMTYPE_REFERENCE:
            return takeReferences(cursor);
        case CIMTYPE_OBJECT:
            return takeEmbedded<CIMObject>(cursor, type);
        case CIMTYPE_INSTANCE:
            return takeEmbedded<CIMInstance>(cursor, type);
        default:
            return takeScalars(cursor, type);
    }
}

CIMQualifier ObjectDecoder::qualifier(const XmlElement& element) const {
    const CIMType type = typeAttribute(element);
    XmlCursor cursor(element);
    const auto given = value(cursor, type);
    cursor.end();
    return checked(element, [&] {
        return CIMQualifier(nameAttribute(element), given ? *given : CIMValue(type, false),
                            decodeFlavor(element), flagAttribute(element, "PROPAGATED", false));
    });
}

std::vector<CIMQualifier> ObjectDecoder::qualifiers(XmlCursor& cursor) const {
    std::vector<CIMQualifier> result;
    while (const XmlElement* child = cursor.take("QUALIFIER")) result.push_back(qualifier(*child));
    return result;
}

CIMProperty ObjectDecoder::property(const XmlElement& element, bool array) const {
    XmlCursor cursor(element);
    const auto qualified = qualifiers(cursor);
    const CIMType type =
        effectiveType(element, typeAttribute(element), embeddedType(element, qualified));
    const Uint32 size = array ? arraySize(element) : 0;
    CIMProperty result(nameAttribute(element), CIMValue(type, array, size), size, CIMName(),
                       classOrigin(element), flagAttribute(element, "PROPAGATED", false));
    for (const CIMQualifier& added : qualified) result.addQualifier(added);
    if (const auto given = value(cursor, type)) result.setValue(*given);
    cursor.end();
    return result;
}

CIMProperty ObjectDecoder::referenceProperty(const XmlElement& element) const {
    CIMProperty result(nameAttribute(element), CIMValue(CIMTYPE_REFERENCE, false), 0,
                       optionalName(element, "REFERENCECLASS"), classOrigin(element),
                       flagAttribute(element, "PROPAGATED", false));
    XmlCursor cursor(element);
    for (const CIMQualifier& added : qualifiers(cursor)) result.addQualifier(added);
    if (const auto given = value(cursor, CIMTYPE_REFERENCE)) result.setValue(*given);
    cursor.end();
    return result;
}

CIMInstance ObjectDecoder::instance(const XmlElement& element) const {
    CIMInstance result(nameAttribute(element, "CLASSNAME"));
    XmlCursor cursor(element);
    checked(element, [&] {
        for (const CIMQualifier& added : qualifiers(cursor)) result.addQualifier(added);
        while (cursor.peek()) {
            if (const XmlElement* reference = cursor.take("PROPERTY.REFERENCE")) {
                result.addProperty(referenceProperty(*reference));
            } else if (const XmlElement* array = cursor.take("PROPERTY.ARRAY")) {
                result.addProperty(property(*array, true));
            } else {
                result.addProperty(property(cursor.expect("PROPERTY"), false));
            }
        }
    });
    return result;
}

CIMInstance ObjectDecoder::namedInstance(const XmlElement& element) const {
    XmlCursor cursor(element);
    const CIMObjectPath path = decodePath(cursor.expect("INSTANCENAME"));
    CIMInstance result = instance(cursor.expect("INSTANCE"));
    cursor.end();
    result.setPath(path);
    return result;
}

CIMParamValue ObjectDecoder::parameter(const XmlElement& element) const {
    const String name = toString(element.requiredAttribute("NAME"));
    const auto typeText = element.attribute("PARAMTYPE");
    const CIMType type = typeText ? typeNamed(element, "PARAMTYPE", *typeText) : CIMTYPE_STRING;
    XmlCursor cursor(element);
    const bool mayRefer = !typeText || type == CIMTYPE_REFERENCE;
    const auto reference = mayRefer ? value(cursor, CIMTYPE_REFERENCE) : std::nullopt;
    const auto embedded = embeddedType(element);
    if (embedded && !typeText) throw notValid(described(element, "PARAMTYPE") + " is missing");
    const auto given =
        reference ? reference : value(cursor, effectiveType(element, type, embedded));
    cursor.end();
    const bool typed = given && (reference || typeText);
    return checked(element,
                   [&] { return CIMParamValue(name, given ? *given : CIMValue(), typed); });
}

}  // namespace cimserver
