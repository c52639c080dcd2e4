// The library's entry: the CIM server asks it for providers by name.

#include <Pegasus/Provider/CIMProvider.h>

#include "QRV_InternalCacheProvider.h"
#include "QRV_SystemElementProvider.h"

PEGASUS_USING_PEGASUS;

namespace {

struct Entry {
    const char* name;
    CIMProvider* (*create)();
};

const Entry PROVIDERS[] = {
    {"QRV_InternalCacheProvider", []() -> CIMProvider* { return new QRV_InternalCacheProvider(); }},
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
    for (const Entry& entry : PROVIDERS)
        if (String::equalNoCase(name, entry.name)) return entry.create();
    return nullptr;
}
