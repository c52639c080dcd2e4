// The exceptions of the CIM API. None derives from std::exception.
#pragma once

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// Root of all exceptions of the CIM API.
class PEGASUS_COMMON_LINKAGE Exception {
  public:
    Exception(const String& message);
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    virtual ~Exception();

    virtual const String& getMessage() const;

  private:
    String _message;
};

/// An index outside of a container.
class PEGASUS_COMMON_LINKAGE IndexOutOfBoundsException : public Exception {
  public:
    IndexOutOfBoundsException();
};

/// A member of that name is there already.
class PEGASUS_COMMON_LINKAGE AlreadyExistsException : public Exception {
  public:
    AlreadyExistsException(const String& message);
};

/// A text that is no CIM name.
class PEGASUS_COMMON_LINKAGE InvalidNameException : public Exception {
  public:
    InvalidNameException(const String& name);
};

/// A text that is no name of a CIM namespace.
class PEGASUS_COMMON_LINKAGE InvalidNamespaceNameException : public Exception {
  public:
    InvalidNamespaceNameException(const String& name);
};

/// Use of a handle that stands for no object.
class PEGASUS_COMMON_LINKAGE UninitializedObjectException : public Exception {
  public:
    UninitializedObjectException();
};

/// A value of another type than the one that belongs there.
class PEGASUS_COMMON_LINKAGE TypeMismatchException : public Exception {
  public:
    TypeMismatchException();
    TypeMismatchException(const String& message);
};

/// A handle to an object of another kind than asked for.
class PEGASUS_COMMON_LINKAGE DynamicCastFailedException : public Exception {
  public:
    DynamicCastFailedException();
};

/// A text that has not the shape of a datetime.
class PEGASUS_COMMON_LINKAGE InvalidDateTimeFormatException : public Exception {
  public:
    InvalidDateTimeFormatException();
};

/// A datetime that does not exist or cannot be represented.
class PEGASUS_COMMON_LINKAGE DateTimeOutOfRangeException : public Exception {
  public:
    DateTimeOutOfRangeException(const String& message);
};

/// A text that is no object path.
class PEGASUS_COMMON_LINKAGE MalformedObjectNameException : public Exception {
  public:
    MalformedObjectNameException(const String& objectName);
};

/// A socket that cannot be bound to its address.
class PEGASUS_COMMON_LINKAGE BindFailedException : public Exception {
  public:
    BindFailedException(const String& message);
};

/// A host that cannot be resolved.
class PEGASUS_COMMON_LINKAGE InvalidLocatorException : public Exception {
  public:
    InvalidLocatorException(const String& locator);
};

class PEGASUS_COMMON_LINKAGE CannotCreateSocketException : public Exception {
  public:
    CannotCreateSocketException();
};

/// No connection to a CIM server.
class PEGASUS_COMMON_LINKAGE CannotConnectException : public Exception {
  public:
    CannotConnectException(const String& message);
};

/// connect() on a client that is connected.
class PEGASUS_COMMON_LINKAGE AlreadyConnectedException : public Exception {
  public:
    AlreadyConnectedException();
};

/// An operation on a client that is not connected.
class PEGASUS_COMMON_LINKAGE NotConnectedException : public Exception {
  public:
    NotConnectedException();
};

class PEGASUS_COMMON_LINKAGE ConnectionTimeoutException : public Exception {
  public:
    ConnectionTimeoutException();
};

class PEGASUS_COMMON_LINKAGE SSLException : public Exception {
  public:
    SSLException(const String& message);
};

/// The failure of a CIM operation: a status code and a text, which has no status name in front.
class PEGASUS_COMMON_LINKAGE CIMException : public Exception {
  public:
    CIMException(CIMStatusCode code = CIM_ERR_SUCCESS, const String& message = String::EMPTY);

    /// For callers that give the flag of this form; code and message reach the client either way.
    CIMException(CIMStatusCode code, const String& message, Boolean flag);

    CIMException(const CIMException&) = default;
    CIMException& operator=(const CIMException&) = default;
    ~CIMException() override;

    CIMStatusCode getCode() const noexcept { return _code; }

  private:
    friend class TraceableCIMException;  // keeps its place here, so that it survives a copy as
                                         // CIMException

    CIMStatusCode _code;
    Uint32 _line = 0;
    String _file;
};

PEGASUS_NAMESPACE_END
