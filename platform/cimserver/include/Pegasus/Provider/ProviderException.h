// The failures a provider reports. They share one base, so catch CIMOperationFailedException last.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Provider/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// CIM_ERR_FAILED.
class PEGASUS_PROVIDER_LINKAGE CIMOperationFailedException : public CIMException {
  public:
    CIMOperationFailedException(const String& message);

  protected:
    CIMOperationFailedException(CIMStatusCode code, const String& message);
};

/// CIM_ERR_ACCESS_DENIED.
class PEGASUS_PROVIDER_LINKAGE CIMAccessDeniedException : public CIMOperationFailedException {
  public:
    CIMAccessDeniedException(const String& message);
};

/// CIM_ERR_INVALID_PARAMETER.
class PEGASUS_PROVIDER_LINKAGE CIMInvalidParameterException : public CIMOperationFailedException {
  public:
    CIMInvalidParameterException(const String& message);
};

/// CIM_ERR_NOT_FOUND.
class PEGASUS_PROVIDER_LINKAGE CIMObjectNotFoundException : public CIMOperationFailedException {
  public:
    CIMObjectNotFoundException(const String& message);
};

/// CIM_ERR_NOT_SUPPORTED.
class PEGASUS_PROVIDER_LINKAGE CIMNotSupportedException : public CIMOperationFailedException {
  public:
    CIMNotSupportedException(const String& message);
};

/// CIM_ERR_ALREADY_EXISTS.
class PEGASUS_PROVIDER_LINKAGE CIMObjectAlreadyExistsException
    : public CIMOperationFailedException {
  public:
    CIMObjectAlreadyExistsException(const String& message);
};

/// CIM_ERR_NO_SUCH_PROPERTY.
class PEGASUS_PROVIDER_LINKAGE CIMPropertyNotFoundException : public CIMOperationFailedException {
  public:
    CIMPropertyNotFoundException(const String& message);
};

/// CIM_ERR_METHOD_NOT_FOUND.
class PEGASUS_PROVIDER_LINKAGE CIMMethodNotFoundException : public CIMOperationFailedException {
  public:
    CIMMethodNotFoundException(const String& message);
};

PEGASUS_NAMESPACE_END
