// CIM objects from the elements of a request.
#pragma once

#include "cimxml/XmlDocument.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>

#include <optional>
#include <vector>

namespace cimserver {

// All of these throw Refusal for elements that the grammar doesn't allow, for illegal names and for
// values that are no text of their type. Paths that name no object, missing names of parameters and
// elements of arrays, and impossible dates are MalformedObjectNameException,
// UninitializedObjectException and DateTimeOutOfRangeException.

/// The name in an attribute; the attribute must be there.
Pegasus::CIMName nameAttribute(const XmlElement&, std::string_view attribute = "NAME");

/// LOCALNAMESPACEPATH.
Pegasus::CIMNamespaceName decodeNamespace(const XmlElement&);

/// CLASSNAME or INSTANCENAME, with or without namespace and host: CLASSNAME, LOCALCLASSPATH,
/// CLASSPATH, INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH. Key values keep the text and the type
/// they were sent with.
Pegasus::CIMObjectPath decodePath(const XmlElement&);

/// Decodes what may hold embedded objects, which are XML within XML.
class ObjectDecoder {
  public:
    explicit ObjectDecoder(const XmlLimits& limits) : _limits(limits) {}

    /// INSTANCE.
    Pegasus::CIMInstance instance(const XmlElement&) const;

    /// VALUE.NAMEDINSTANCE.
    Pegasus::CIMInstance namedInstance(const XmlElement&) const;

    /// PARAMVALUE. Without PARAMTYPE the value is text and the parameter is not typed, except
    /// references.
    Pegasus::CIMParamValue parameter(const XmlElement&) const;

    /// Takes VALUE or VALUE.ARRAY of this type, or VALUE.REFERENCE or VALUE.REFARRAY when the type
    /// is CIMTYPE_REFERENCE; nothing when none of them is next.
    std::optional<Pegasus::CIMValue> value(XmlCursor&, Pegasus::CIMType) const;

  private:
    ObjectDecoder(const XmlLimits& limits, unsigned embedding)
        : _limits(limits), _embedding(embedding) {}

    template <class T>
    std::optional<Pegasus::CIMValue> takeEmbedded(XmlCursor&, Pegasus::CIMType) const;
    Pegasus::CIMInstance embeddedInstance(std::string_view text) const;
    Pegasus::CIMProperty property(const XmlElement&, bool array) const;
    Pegasus::CIMProperty referenceProperty(const XmlElement&) const;
    Pegasus::CIMQualifier qualifier(const XmlElement&) const;
    std::vector<Pegasus::CIMQualifier> qualifiers(XmlCursor&) const;

    const XmlLimits& _limits;
    unsigned _embedding = 0;  ///< how many embedded objects this one is within
};

}  // namespace cimserver
