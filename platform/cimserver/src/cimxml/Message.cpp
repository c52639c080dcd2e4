#include "cimxml/Message.h"

#include "cimxml/ObjectDecoder.h"
#include "cimxml/Utf8.h"

#include <Pegasus/Common/Exception.h>

#include <algorithm>

namespace cimserver {

using namespace Pegasus;

namespace {

// Whether the text is `major`, a point and digits: minor versions are compatible.
bool isVersion(std::string_view text, char major) {
    if (text.size() < 3 || text[0] != major || text[1] != '.') return false;
    const std::string_view minor = text.substr(2);
    return std::all_of(minor.begin(), minor.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void requireVersion(std::string_view text, char major, const char* cimError) {
    if (isVersion(text, major)) return;
    throw Refusal(501, cimError, "version \"" + std::string(text) + "\" is not supported");
}

Refusal mismatch(const char* header, const std::string& told, std::string_view found) {
    if (told.empty()) return headerMismatch("Missing " + std::string(header) + " HTTP header.");
    return headerMismatch(std::string(header) + " value \"" + told +
                          "\" does not match the request's \"" + std::string(found) + "\".");
}

CIMObjectPath headerPath(const std::string& text) {
    try {
        return CIMObjectPath(toString(text));
    } catch (const Exception&) {
        throw headerMismatch("Could not parse CIMObject value \"" + text + "\".");
    }
}

CIMObjectPath calledObject(const XmlElement& element) {
    try {
        return decodePath(element);
    } catch (const Exception& error) {
        throw notValid(toUtf8(error.getMessage()));
    }
}

}  // namespace

Message::Message(std::string_view body, const CallHeaders& headers, const XmlLimits& limits)
    : _limits(limits), _document(body, _limits), _parameters(readEnvelope(headers)) {
    if (_intrinsic) {
        readIntrinsic(headers);
    } else {
        readExtrinsic(headers);
    }
}

XmlCursor Message::readEnvelope(const CallHeaders& headers) {
    if (!_document.declared()) throw notValid("the XML declaration is missing");
    const XmlElement& cim = _document.root();
    if (cim.name != "CIM") throw notValid("the root element is not CIM");
    requireVersion(cim.requiredAttribute("CIMVERSION"), '2', "unsupported-cim-version");
    requireVersion(cim.requiredAttribute("DTDVERSION"), '2', "unsupported-dtd-version");

    XmlCursor cimCursor(cim);
    const XmlElement& message = cimCursor.expect("MESSAGE");
    cimCursor.end();
    _id = message.requiredAttribute("ID");
    const std::string_view version = message.requiredAttribute("PROTOCOLVERSION");
    if (!equalIgnoringCase(version, headers.protocolVersion)) {
        throw mismatch("CIMProtocolVersion", headers.protocolVersion, version);
    }
    requireVersion(version, '1', "unsupported-protocol-version");

    XmlCursor messageCursor(message);
    if (messageCursor.take("MULTIREQ"))
        throw headerMismatch("MULTIREQ without CIMBatch HTTP header.");
    const XmlElement& request = messageCursor.expect("SIMPLEREQ");
    messageCursor.end();

    XmlCursor requestCursor(request);
    const XmlElement& call = requestCursor.expectAny("IMETHODCALL or METHODCALL");
    requestCursor.end();
    _intrinsic = call.name == "IMETHODCALL";
    if (!_intrinsic && call.name != "METHODCALL")
        throw notValid("IMETHODCALL or METHODCALL expected");
    nameAttribute(call);
    _method = call.requiredAttribute("NAME");
    return XmlCursor(call);
}

void Message::readIntrinsic(const CallHeaders& headers) {
    if (!equalIgnoringCase(_method, headers.method))
        throw mismatch("CIMMethod", headers.method, _method);
    _object.nameSpace = decodeNamespace(_parameters.expect("LOCALNAMESPACEPATH"));
    const std::string name = toUtf8(_object.nameSpace.getString());
    if (!equalIgnoringCase(name, headers.object)) throw mismatch("CIMObject", headers.object, name);
}

void Message::readExtrinsic(const CallHeaders& headers) {
    if (_method != headers.method) throw mismatch("CIMMethod", headers.method, _method);
    const XmlElement* object = _parameters.take("LOCALINSTANCEPATH");
    if (!object) object = &_parameters.expect("LOCALCLASSPATH");
    _object.path = calledObject(*object);
    _object.nameSpace = _object.path.getNameSpace();
    const std::string name = toUtf8(_object.path.toString());
    if (headers.object.empty() || !_object.path.identical(headerPath(headers.object))) {
        throw mismatch("CIMObject", headers.object, name);
    }
}

}  // namespace cimserver
