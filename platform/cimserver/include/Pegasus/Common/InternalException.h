// Exceptions that tell of the server's own matters, and the CIM exception that knows where it was
// thrown.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// A null pointer where text was expected.
class PEGASUS_COMMON_LINKAGE NullPointer : public Exception {
  public:
    NullPointer();
};

class PEGASUS_COMMON_LINKAGE NoSuchProperty : public Exception {
  public:
    NoSuchProperty(const String& propertyName);
};

class PEGASUS_COMMON_LINKAGE NoSuchFile : public Exception {
  public:
    NoSuchFile(const String& fileName);
};

/// A shared library that cannot be loaded.
class PEGASUS_COMMON_LINKAGE DynamicLoadFailed : public Exception {
  public:
    DynamicLoadFailed(const String& libraryName);
};

/// A symbol that a shared library does not have.
class PEGASUS_COMMON_LINKAGE DynamicLookupFailed : public Exception {
  public:
    DynamicLookupFailed(const String& symbolName);
};

/// More members than one object may have.
class PEGASUS_COMMON_LINKAGE TooManyElementsException : public Exception {
  public:
    TooManyElementsException();
};

/// A CIMException that knows the source file and line it was thrown from. Caught as CIMException
/// and copied, it keeps them: the constructor from CIMException brings them back.
class PEGASUS_COMMON_LINKAGE TraceableCIMException : public CIMException {
  public:
    TraceableCIMException(CIMStatusCode code, const String& message, const String& file,
                          Uint32 line);
    TraceableCIMException(const CIMException& exception);

    /// `CIM_ERR_FAILED: message`, or the status name alone without a message.
    String getDescription() const;

    /// `file(line): ` and the description.
    String getTraceDescription() const;

    String getFile() const;
    Uint32 getLine() const;
};

#define PEGASUS_CIM_EXCEPTION(CODE, MESSAGE) \
    Pegasus::TraceableCIMException(CODE, MESSAGE, Pegasus::String(__FILE__), __LINE__)

PEGASUS_NAMESPACE_END
