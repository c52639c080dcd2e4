// Providers of methods.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Provider/CIMProvider.h>
#include <Pegasus/Provider/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// Runs the methods of the classes it is registered for.
class PEGASUS_PROVIDER_LINKAGE CIMMethodProvider : public virtual CIMProvider {
  public:
    CIMMethodProvider();
    ~CIMMethodProvider() override;

    /// `objectReference` has no keys for a static call. The server checks neither that the class
    /// declares the method nor that parameters are missing or unknown.
    virtual void invokeMethod(const OperationContext& context, const CIMObjectPath& objectReference,
                              const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                              MethodResultResponseHandler& handler) = 0;
};

PEGASUS_NAMESPACE_END
