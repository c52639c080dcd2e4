// Answers questions about the system's identity for the other providers of this server.
#pragma once

#include <Pegasus/Provider/CIMMethodProvider.h>

namespace Pegasus {

/// Method provider of QRV_InternalCache in root/PG_Internal: one method for each fact, without
/// input parameters, answering through one output parameter.
class QRV_InternalCacheProvider : public CIMMethodProvider {
  public:
    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

    /// Throws CIMObjectNotFoundException for another object than the cache, and
    /// CIMMethodNotFoundException for a fact it doesn't have.
    void invokeMethod(const OperationContext& context, const CIMObjectPath& objectReference,
                      const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                      MethodResultResponseHandler& handler) override;
};

}  // namespace Pegasus
