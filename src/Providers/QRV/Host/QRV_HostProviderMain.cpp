// The module's entry: the CIM server asks it for providers by name.
#include <Pegasus/Provider/CIMProvider.h>
#include <qrvapi.h>

#include "../QRV_ProviderTable.h"
#include "QRV_AuthorizedPrivilegeProvider.h"
#include "QRV_HWIDCollectionElementSettingDataProvider.h"
#include "QRV_HardwareIDElementSettingDataProvider.h"
#include "QRV_HostedStorageDomainGroup.h"
#include "QRV_HostedStorageHardwareIDCollectionProvider.h"
#include "QRV_MemberOfStorageHardwareIDCollectionProvider.h"
#include "QRV_MgmtServiceForAuthorizedPrivilege.h"
#include "QRV_MgmtServicesForStorageHWIDCollectionProvider.h"
#include "QRV_PrivilegeForSCSIControllerProvider.h"
#include "QRV_PrivilegeForStorageHardwareIDCollectionProvider.h"
#include "QRV_PrivilegeForStorageHardwareIDProvider.h"
#include "QRV_PrivilegeForiSCSIControllerProvider.h"
#include "QRV_PrivilegeMgmtServiceProvider.h"
#include "QRV_SPCAssociatedPrivilegeProvider.h"
#include "QRV_StorageClientSettingDataProvider.h"
#include "QRV_StorageDomainGroup.h"
#include "QRV_StorageHardwareIDCollectionProvider.h"
#include "QRV_StorageHardwareIDManagementServiceProvider.h"
#include "QRV_StorageHardwareIDProvider.h"
#include "QRV_SystemClientSettingDataProvider.h"
#include "QRV_iSPCAssociatedPrivilegeProvider.h"

PEGASUS_USING_PEGASUS;

namespace {

constexpr ProviderEntry PROVIDERS[] = {
    {"QRV_StorageHardwareIDProvider", create<QRV_StorageHardwareIDProvider>},
    {"QRV_StorageHardwareIDCollectionProvider", create<QRV_StorageHardwareIDCollectionProvider>},
    {"QRV_MemberOfStorageHardwareIDCollectionProvider",
     create<QRV_MemberOfStorageHardwareIDCollectionProvider>},
    {"QRV_HostedStorageHardwareIDCollectionProvider",
     create<QRV_HostedStorageHardwareIDCollectionProvider>},
    {"QRV_MgmtServicesForStorageHWIDCollectionProvider",
     create<QRV_MgmtServicesForStorageHWIDCollectionProvider>},
    {"QRV_AuthorizedPrivilegeProvider", create<QRV_AuthorizedPrivilegeProvider>},
    {"QRV_PrivilegeForStorageHardwareIDProvider",
     create<QRV_PrivilegeForStorageHardwareIDProvider>},
    {"QRV_PrivilegeForSCSIControllerProvider", create<QRV_PrivilegeForSCSIControllerProvider>},
    {"QRV_StorageHardwareIDManagementServiceProvider",
     create<QRV_StorageHardwareIDManagementServiceProvider>},
    {"QRV_PrivilegeMgmtServiceProvider", create<QRV_PrivilegeMgmtServiceProvider>},
    {"QRV_MgmtServiceForAuthorizedPrivilege", create<QRV_MgmtServiceForAuthorizedPrivilege>},
    {"QRV_PrivilegeForiSCSIControllerProvider", create<QRV_PrivilegeForiSCSIControllerProvider>},
    {"QRV_StorageClientSettingDataProvider", create<QRV_StorageClientSettingDataProvider>},
    {"QRV_SystemClientSettingDataProvider", create<QRV_SystemClientSettingDataProvider>},
    {"QRV_HardwareIDElementSettingDataProvider", create<QRV_HardwareIDElementSettingDataProvider>},
    {"QRV_HWIDCollectionElementSettingDataProvider",
     create<QRV_HWIDCollectionElementSettingDataProvider>},
    {"QRV_PrivilegeForStorageHardwareIDCollectionProvider",
     create<QRV_PrivilegeForStorageHardwareIDCollectionProvider>},
    {"QRV_StorageDomainGroup", create<QRV_StorageDomainGroup>},
    {"QRV_HostedStorageDomainGroup", create<QRV_HostedStorageDomainGroup>},
    {"QRV_SPCAssociatedPrivilegeProvider", create<QRV_SPCAssociatedPrivilegeProvider>},
    {"QRV_iSPCAssociatedPrivilegeProvider", create<QRV_iSPCAssociatedPrivilegeProvider>},
};

}  // namespace

/// Creates the provider of that name, in whatever case, or returns null when the module has none.
/// The server owns the provider and gives it up by calling terminate().
extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& name);

CIMProvider* PegasusCreateProvider(const String& name) {
    log_message(4, "-->QRV_HostProviderMain(): provider name = %s\n",
                static_cast<const char*>(name.getCString()));
    CIMProvider* const provider = createProvider(PROVIDERS, name);
    if (provider == nullptr)
        log_message(2, "<--QRV_HostProviderMain(): invalid provider name = %s\n",
                    static_cast<const char*>(name.getCString()));
    return provider;
}
