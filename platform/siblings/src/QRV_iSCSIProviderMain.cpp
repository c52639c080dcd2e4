// The library's entry: the CIM server asks it for providers by name.

#include "ControllerProvider.h"
#include "QRV_ProviderTable.h"

PEGASUS_USING_PEGASUS;

namespace {

const ProviderEntry PROVIDERS[] = {
    {"QRV_iSCSIControllerProvider",
     []() -> CIMProvider* { return new ControllerProvider(ISCSI_CONTROLLER); }},
};

}  // namespace

/// Creates the provider of that name, in whatever case, or returns null when the library has none.
/// The server owns the provider and gives it up by calling terminate().
extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& name);

CIMProvider* PegasusCreateProvider(const String& name) {
    return createProvider(PROVIDERS, name);
}
