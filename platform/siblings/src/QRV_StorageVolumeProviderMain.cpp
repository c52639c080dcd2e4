// The library's entry: the CIM server asks it for providers by name.

#include "QRV_InternalCacheProvider.h"
#include "QRV_ProviderTable.h"
#include "QRV_SystemElementProvider.h"

PEGASUS_USING_PEGASUS;

namespace {

const ProviderEntry PROVIDERS[] = {
    {"QRV_InternalCacheProvider", create<QRV_InternalCacheProvider>},
    {"QRV_StorageSystemProvider",
     []() -> CIMProvider* { return new QRV_SystemElementProvider(STORAGE_SYSTEM); }},
    {"QRV_SystemPackageProvider",
     []() -> CIMProvider* { return new QRV_SystemElementProvider(SYSTEM_PACKAGE); }},
    {"QRV_StorageSystemViewProvider",
     []() -> CIMProvider* { return new QRV_SystemElementProvider(STORAGE_SYSTEM_VIEW); }},
};

}  // namespace

/// Creates the provider of that name, in whatever case, or returns null when the library has none.
/// The server owns the provider and gives it up by calling terminate().
extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& name);

CIMProvider* PegasusCreateProvider(const String& name) {
    return createProvider(PROVIDERS, name);
}
