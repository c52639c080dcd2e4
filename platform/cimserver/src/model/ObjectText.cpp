#include "model/ObjectText.h"

#include "model/Access.h"
#include "model/ValueVisitor.h"

#include <algorithm>

using namespace Pegasus;

namespace cimserver {

namespace {

class XmlText {
  public:
    /// An element with a start tag, whose end tag is written when it goes out of scope.
    class Element {
      public:
        Element(XmlText& xml, const char* name) : _xml(xml), _name(name) { _xml.open(name); }
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;
        ~Element() { _xml.close(_name); }

        Element& with(const char* attribute, const String& value) {
            _xml.attribute(attribute, value);
            return *this;
        }
        /// Nothing if the name is null.
        Element& with(const char* attribute, const CIMName& name) {
            return name.isNull() ? *this : with(attribute, name.getString());
        }
        Element& withIf(bool condition, const char* attribute, const char* value) {
            return condition ? with(attribute, String(value)) : *this;
        }

      private:
        XmlText& _xml;
        const char* const _name;
    };

    void text(const String& content);
    String take() { return std::move(_text); }

  private:
    void open(const char* name);
    void close(const char* name);
    void attribute(const char* name, const String& value);
    void escaped(const String& content);
    void endStartTag();

    String _text;
    bool _inStartTag = false;
};

using Element = XmlText::Element;

void XmlText::open(const char* name) {
    endStartTag();
    _text.append(Char16('<'));
    _text.append(String(name));
    _inStartTag = true;
}

void XmlText::close(const char* name) {
    endStartTag();
    _text.append(String("</"));
    _text.append(String(name));
    _text.append(Char16('>'));
}

void XmlText::attribute(const char* name, const String& value) {
    _text.append(Char16(' '));
    _text.append(String(name));
    _text.append(String("=\""));
    escaped(value);
    _text.append(Char16('"'));
}

void XmlText::text(const String& content) {
    endStartTag();
    escaped(content);
}

void XmlText::endStartTag() {
    if (_inStartTag) _text.append(Char16('>'));
    _inStartTag = false;
}

const char* entityFor(Uint16 unit) {
    switch (unit) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&apos;";
        default:
            return nullptr;
    }
}

void XmlText::escaped(const String& content) {
    for (Uint32 i = 0; i < content.size(); ++i) {
        const Uint16 unit = content[i];
        if (const char* entity = entityFor(unit)) {
            _text.append(String(entity));
        } else if (unit < 0x20 || unit == 0x7F) {
            _text.appendPrintf("&#%u;", unsigned(unit));
        } else {
            _text.append(Char16(unit));
        }
    }
}

const char* keyTypeText(CIMKeyBinding::Type type) {
    return type == CIMKeyBinding::BOOLEAN   ? "boolean"
           : type == CIMKeyBinding::NUMERIC ? "numeric"
                                            : "string";
}

void writePath(XmlText& xml, const CIMObjectPath& path);

void writeKey(XmlText& xml, const CIMKeyBinding& key) {
    Element binding(xml, "KEYBINDING");
    binding.with("NAME", key.getName());
    if (key.getType() == CIMKeyBinding::REFERENCE) {
        writePath(xml, CIMObjectPath(key.getValue()));
    } else {
        Element value(xml, "KEYVALUE");
        value.with("VALUETYPE", String(keyTypeText(key.getType())));
        xml.text(key.getValue());
    }
}

void writeNamespace(XmlText& xml, const String& name) {
    Element path(xml, "LOCALNAMESPACEPATH");
    for (Uint32 at = 0; at <= name.size();) {
        const Uint32 slash = std::min(name.find(at, Char16('/')), name.size());
        Element(xml, "NAMESPACE").with("NAME", name.subString(at, slash - at));
        at = slash + 1;
    }
}

void writeNamespacePath(XmlText& xml, const CIMObjectPath& path) {
    Element namespacePath(xml, "NAMESPACEPATH");
    {
        Element host(xml, "HOST");
        xml.text(path.getHost());
    }
    writeNamespace(xml, path.getNameSpace().getString());
}

void writeName(XmlText& xml, const CIMObjectPath& path) {
    const auto& keys = path.getKeyBindings();
    Element name(xml, keys.size() == 0 ? "CLASSNAME" : "INSTANCENAME");
    name.with(keys.size() == 0 ? "NAME" : "CLASSNAME", path.getClassName());
    for (Uint32 i = 0; i < keys.size(); ++i) writeKey(xml, keys[i]);
}

void writePath(XmlText& xml, const CIMObjectPath& path) {
    const bool isClass = path.getKeyBindings().size() == 0;
    const String& nameSpace = path.getNameSpace().getString();
    if (nameSpace.size() == 0) return writeName(xml, path);
    if (path.getHost().size() == 0) {
        Element local(xml, isClass ? "LOCALCLASSPATH" : "LOCALINSTANCEPATH");
        writeNamespace(xml, nameSpace);
        writeName(xml, path);
        return;
    }
    Element full(xml, isClass ? "CLASSPATH" : "INSTANCEPATH");
    writeNamespacePath(xml, path);
    writeName(xml, path);
}

template <class T>
void writeScalar(XmlText& xml, const T& x) {
    Element value(xml, "VALUE");
    xml.text(CIMValue(x).toString());
}
void writeScalar(XmlText& xml, const CIMObjectPath& x) {
    Element value(xml, "VALUE.REFERENCE");
    writePath(xml, x);
}

template <class T>
void writeData(XmlText& xml, const T& x) {
    writeScalar(xml, x);
}
template <class T>
void writeData(XmlText& xml, const Array<T>& x) {
    Element array(xml, typeOf<T> == CIMTYPE_REFERENCE ? "VALUE.REFARRAY" : "VALUE.ARRAY");
    for (Uint32 i = 0; i < x.size(); ++i) writeScalar(xml, x[i]);
}

void writeValue(XmlText& xml, const CIMValue& value) {
    if (value.isNull()) return;
    visit(value, [&](const auto& data) { writeData(xml, data); });
}

/// The TYPE attribute, and what tells embedded objects from the strings they travel as.
void writeType(Element& element, CIMType type) {
    const bool isEmbedded = type == CIMTYPE_OBJECT || type == CIMTYPE_INSTANCE;
    element.with("TYPE", String(cimTypeToString(isEmbedded ? CIMTYPE_STRING : type)));
    if (isEmbedded) element.with("EmbeddedObject", String(cimTypeToString(type)));
}

void writeQualifiers(XmlText& xml, const QualifierList& qualifiers) {
    for (const auto& qualifier : qualifiers) {
        const CIMFlavor& flavor = qualifier->flavor;
        Element element(xml, "QUALIFIER");
        element.with("NAME", qualifier->name());
        writeType(element, qualifier->value.getType());
        element.withIf(qualifier->propagated, "PROPAGATED", "true")
            .withIf(!flavor.hasFlavor(CIMFlavor::OVERRIDABLE), "OVERRIDABLE", "false")
            .withIf(!flavor.hasFlavor(CIMFlavor::TOSUBCLASS), "TOSUBCLASS", "false")
            .withIf(flavor.hasFlavor(CIMFlavor::TRANSLATABLE), "TRANSLATABLE", "true");
        writeValue(xml, qualifier->value);
    }
}

void writeArraySize(Element& element, Uint32 size) {
    if (size != 0) element.with("ARRAYSIZE", CIMValue(size).toString());
}

void writeProperty(XmlText& xml, const PropertyRep& property) {
    const CIMType type = property.value().getType();
    const bool isReference = type == CIMTYPE_REFERENCE;
    const PropertyTraits& traits = property.traits();
    Element element(xml, isReference                  ? "PROPERTY.REFERENCE"
                         : property.value().isArray() ? "PROPERTY.ARRAY"
                                                      : "PROPERTY");
    element.with("NAME", traits.name).with("REFERENCECLASS", traits.referenceClass);
    if (!isReference) writeType(element, type);
    writeArraySize(element, traits.arraySize);
    element.with("CLASSORIGIN", traits.classOrigin).withIf(traits.propagated, "PROPAGATED", "true");
    writeQualifiers(xml, traits.qualifiers);
    writeValue(xml, property.value());
}

void writeParameter(XmlText& xml, const ParameterRep& parameter) {
    const bool isReference = parameter.type == CIMTYPE_REFERENCE;
    const char* reference = parameter.isArray ? "PARAMETER.REFARRAY" : "PARAMETER.REFERENCE";
    const char* plain = parameter.isArray ? "PARAMETER.ARRAY" : "PARAMETER";
    Element element(xml, isReference ? reference : plain);
    element.with("NAME", parameter.name()).with("REFERENCECLASS", parameter.referenceClass);
    if (!isReference) writeType(element, parameter.type);
    writeArraySize(element, parameter.arraySize);
    writeQualifiers(xml, parameter.qualifiers);
}

void writeMethod(XmlText& xml, const MethodRep& method) {
    Element element(xml, "METHOD");
    element.with("NAME", method.name());
    writeType(element, method.type);
    element.with("CLASSORIGIN", method.classOrigin).withIf(method.propagated, "PROPAGATED", "true");
    writeQualifiers(xml, method.qualifiers);
    for (const auto& parameter : method.parameters) writeParameter(xml, *parameter);
}

void writeParts(XmlText& xml, const ObjectRep& object) {
    writeQualifiers(xml, object.qualifiers);
    for (const auto& property : object.properties) writeProperty(xml, *property);
}

void writeClass(XmlText& xml, const ClassRep& object) {
    Element element(xml, "CLASS");
    element.with("NAME", object.className()).with("SUPERCLASS", object.superClassName);
    writeParts(xml, object);
    for (const auto& method : object.methods) writeMethod(xml, *method);
}

void writeInstance(XmlText& xml, const ObjectRep& object) {
    Element element(xml, "INSTANCE");
    element.with("CLASSNAME", object.className());
    writeParts(xml, object);
}

}  // namespace

String objectText(const ObjectRep& object) {
    XmlText xml;
    if (object.isClass()) {
        writeClass(xml, static_cast<const ClassRep&>(object));
    } else {
        writeInstance(xml, object);
    }
    return xml.take();
}

}  // namespace cimserver
