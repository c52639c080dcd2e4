// What every provider is.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <Pegasus/Provider/Linkage.h>
#include <Pegasus/Provider/ProviderException.h>

PEGASUS_NAMESPACE_BEGIN

/// The life of a provider. Its library exports
/// `extern "C" CIMProvider* PegasusCreateProvider(const String& name)`, which the server calls with
/// the registered name when the provider is first needed; null says that there is none of that
/// name.
///
/// The operations of the derived interfaces run concurrently on threads of the server. What they
/// throw reaches the client: a CIMException with its code and message, everything else as
/// CIM_ERR_FAILED.
class PEGASUS_PROVIDER_LINKAGE CIMProvider {
  public:
    CIMProvider();
    virtual ~CIMProvider();

    /// Called once before the first operation. `cimom` may be copied and used until terminate()
    /// returns. When it throws, terminate() follows at once and the next request starts anew.
    virtual void initialize(CIMOMHandle& cimom) = 0;

    /// Called after the last operation. The server does not delete providers: one made with new
    /// deletes itself here.
    virtual void terminate() = 0;
};

PEGASUS_NAMESPACE_END
