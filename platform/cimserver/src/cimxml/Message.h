// The envelope of a request: who asks for which method, before its parameters are looked at.
#pragma once

#include "cimxml/XmlDocument.h"

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <string>
#include <string_view>

namespace cimserver {

/// What the HTTP headers CIMMethod, CIMObject and CIMProtocolVersion tell of the message, decoded.
struct CallHeaders {
    std::string method;
    std::string object;
    std::string protocolVersion = "1.0";
};

/// A request message with a simple request in it.
class Message {
  public:
    /// Parses `body` and compares it with its headers. Throws Refusal for everything that doesn't
    /// get a CIM-XML answer.
    Message(std::string_view body, const CallHeaders& headers, const XmlLimits& limits);

    std::string_view id() const { return _id; }

    /// The method as the client spells it.
    std::string_view method() const { return _method; }

    /// Whether it is one of the server's own operations (IMETHODCALL) or a method of a class
    /// (METHODCALL).
    bool intrinsic() const { return _intrinsic; }

    /// Where the operation is to work; for a method call the namespace of its object.
    const Pegasus::CIMNamespaceName& nameSpace() const { return _object.nameSpace; }

    /// The object of a method call.
    const Pegasus::CIMObjectPath& object() const { return _object.path; }

    /// The children of the call that follow the namespace or the object: its parameters.
    XmlCursor parameters() const { return _parameters; }

    const XmlLimits& limits() const { return _limits; }

  private:
    struct Object {
        Pegasus::CIMNamespaceName nameSpace;
        Pegasus::CIMObjectPath path;
    };

    XmlCursor readEnvelope(const CallHeaders&);
    void readIntrinsic(const CallHeaders&);
    void readExtrinsic(const CallHeaders&);

    XmlLimits _limits;
    XmlDocument _document;
    std::string_view _id;
    std::string_view _method;
    bool _intrinsic = false;
    Object _object;
    XmlCursor _parameters;
};

}  // namespace cimserver
