#include <Pegasus/Common/Exception.h>

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Provider/ProviderException.h>

PEGASUS_NAMESPACE_BEGIN
namespace {

String joined(const char* beginning, const String& message) {
    return String(beginning).append(message);
}

/// Standard codes by name, all others by number.
String statusName(CIMStatusCode code) {
    if (code >= CIM_ERR_SUCCESS && code <= CIM_ERR_SERVER_IS_SHUTTING_DOWN) {
        return cimStatusCodeToString(code);
    }
    String name;
    name.appendPrintf("%s \"%u\"", cimStatusCodeToString(code), unsigned(code));
    return name;
}

/// What follows the status name: nothing without a message.
String separatedMessage(const Exception& exception) {
    const String& message = exception.getMessage();
    return message.size() == 0 ? message : joined(": ", message);
}

String quoted(const char* what, const String& text) {
    return text.size() == 0 ? text : String(what).append(" = \"").append(text).append("\"");
}

/// `HTTP Error (404 Not Found): CIMError = "a" Detail = "b".`, of which all but the number may be
/// missing.
String httpErrorMessage(Uint32 httpStatusCode, const String& reasonPhrase, const String& cimError,
                        const String& cimErrorDetail) {
    String text = "HTTP Error (";
    text.appendPrintf("%u", httpStatusCode);
    if (reasonPhrase.size() != 0) text.append(" ").append(reasonPhrase);
    text.append(cimError.size() + cimErrorDetail.size() != 0 ? "):" : ")");
    text.append(quoted(" CIMError", cimError)).append(quoted(" Detail", cimErrorDetail));
    return text.append(".");
}

}  // namespace

Exception::Exception(const String& message) : _message(message) {}

Exception::~Exception() = default;

const String& Exception::getMessage() const {
    return _message;
}

IndexOutOfBoundsException::IndexOutOfBoundsException() : Exception("index out of bounds") {}

AlreadyExistsException::AlreadyExistsException(const String& message)
    : Exception(joined("already exists: ", message)) {}

InvalidNameException::InvalidNameException(const String& name)
    : Exception(joined("The CIM name is not valid: ", name)) {}

InvalidNamespaceNameException::InvalidNamespaceNameException(const String& name)
    : Exception(joined("invalid CIM namespace name: ", name)) {}

UninitializedObjectException::UninitializedObjectException() : Exception("uninitialized object") {}

TypeMismatchException::TypeMismatchException() : Exception("type mismatch") {}

TypeMismatchException::TypeMismatchException(const String& message)
    : Exception(joined("type mismatch: ", message)) {}

DynamicCastFailedException::DynamicCastFailedException() : Exception("dynamic cast failed") {}

InvalidDateTimeFormatException::InvalidDateTimeFormatException()
    : Exception("invalid datetime format") {}

DateTimeOutOfRangeException::DateTimeOutOfRangeException(const String& message)
    : Exception(joined("DateTime is out of range : ", message)) {}

MalformedObjectNameException::MalformedObjectNameException(const String& objectName)
    : Exception(joined("malformed object name: ", objectName)) {}

BindFailedException::BindFailedException(const String& message)
    : Exception(joined("Bind failed: ", message)) {}

InvalidLocatorException::InvalidLocatorException(const String& locator)
    : Exception(joined("Invalid locator: ", locator)) {}

CannotCreateSocketException::CannotCreateSocketException() : Exception("Cannot create socket") {}

CannotConnectException::CannotConnectException(const String& message) : Exception(message) {}

AlreadyConnectedException::AlreadyConnectedException() : Exception("already connected") {}

NotConnectedException::NotConnectedException() : Exception("not connected") {}

ConnectionTimeoutException::ConnectionTimeoutException() : Exception("connection timed out") {}

SSLException::SSLException(const String& message) : Exception(joined("SSL Exception: ", message)) {}

CIMException::CIMException(CIMStatusCode code, const String& message)
    : Exception(message), _code(code) {}

CIMException::CIMException(CIMStatusCode code, const String& message, Boolean)
    : CIMException(code, message) {}

CIMException::~CIMException() = default;

NullPointer::NullPointer() : Exception("null pointer") {}

NoSuchProperty::NoSuchProperty(const String& propertyName)
    : Exception(joined("no such property: ", propertyName)) {}

NoSuchFile::NoSuchFile(const String& fileName) : Exception(joined("no such file: ", fileName)) {}

DynamicLoadFailed::DynamicLoadFailed(const String& libraryName)
    : Exception(joined("load of dynamic library failed: ", libraryName)) {}

DynamicLookupFailed::DynamicLookupFailed(const String& symbolName)
    : Exception(joined("lookup of symbol in dynamic library failed: ", symbolName)) {}

TooManyElementsException::TooManyElementsException()
    : Exception("More than 1000 elements in a container are not supported.") {}

TraceableCIMException::TraceableCIMException(CIMStatusCode code, const String& message,
                                             const String& file, Uint32 line)
    : CIMException(code, message) {
    _file = file;
    _line = line;
}

TraceableCIMException::TraceableCIMException(const CIMException& exception)
    : CIMException(exception) {}

String TraceableCIMException::getDescription() const {
    return statusName(getCode()).append(separatedMessage(*this));
}

String TraceableCIMException::getTraceDescription() const {
    String text = _file;
    text.appendPrintf("(%u): %s", _line, cimStatusCodeToString(getCode()));
    return text.append(separatedMessage(*this));
}

String TraceableCIMException::getFile() const {
    return _file;
}

Uint32 TraceableCIMException::getLine() const {
    return _line;
}

CIMOperationFailedException::CIMOperationFailedException(const String& message)
    : CIMOperationFailedException(CIM_ERR_FAILED, message) {}

CIMOperationFailedException::CIMOperationFailedException(CIMStatusCode code, const String& message)
    : CIMException(code, message) {}

CIMAccessDeniedException::CIMAccessDeniedException(const String& message)
    : CIMOperationFailedException(CIM_ERR_ACCESS_DENIED, message) {}

CIMInvalidParameterException::CIMInvalidParameterException(const String& message)
    : CIMOperationFailedException(CIM_ERR_INVALID_PARAMETER, message) {}

CIMObjectNotFoundException::CIMObjectNotFoundException(const String& message)
    : CIMOperationFailedException(CIM_ERR_NOT_FOUND, message) {}

CIMNotSupportedException::CIMNotSupportedException(const String& message)
    : CIMOperationFailedException(CIM_ERR_NOT_SUPPORTED, message) {}

CIMObjectAlreadyExistsException::CIMObjectAlreadyExistsException(const String& message)
    : CIMOperationFailedException(CIM_ERR_ALREADY_EXISTS, message) {}

CIMPropertyNotFoundException::CIMPropertyNotFoundException(const String& message)
    : CIMOperationFailedException(CIM_ERR_NO_SUCH_PROPERTY, message) {}

CIMMethodNotFoundException::CIMMethodNotFoundException(const String& message)
    : CIMOperationFailedException(CIM_ERR_METHOD_NOT_FOUND, message) {}

CIMClientMalformedHTTPException::CIMClientMalformedHTTPException(const String& message)
    : Exception(message) {}

CIMClientHTTPErrorException::CIMClientHTTPErrorException(Uint32 httpStatusCode,
                                                         const String& reasonPhrase,
                                                         const String& cimError,
                                                         const String& cimErrorDetail)
    : Exception(httpErrorMessage(httpStatusCode, reasonPhrase, cimError, cimErrorDetail)),
      _httpStatusCode(httpStatusCode),
      _cimError(cimError),
      _cimErrorDetail(cimErrorDetail) {}

CIMClientHTTPErrorException::CIMClientHTTPErrorException(Uint32 httpStatusCode,
                                                         const String& cimError,
                                                         const String& cimErrorDetail)
    : CIMClientHTTPErrorException(httpStatusCode, String(), cimError, cimErrorDetail) {}

CIMClientXmlException::CIMClientXmlException(const String& message) : Exception(message) {}

PEGASUS_NAMESPACE_END
