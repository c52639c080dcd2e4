// What a provider library beside the module does when a client wants a volume: it asks whether the
// user may have one, offers the setting that a RAID level gives, and turns the client's goal into
// the record that the array makes the volume from.
//
// It is built and linked as such a library is: against the exported toolkit and the array library.
//
//     cmake --preset debug && cmake --build --preset debug --target create_volume_example
//     build/debug/bin/create_volume_example
#include <QRV_Authorization.h>
#include <QRV_Common.h>
#include <qrvapi.h>
#include <qrvapi_control.h>

#include <cstdio>
#include <cstring>

using namespace Pegasus;

namespace {

const char* const SETTING_ID = "ORVELIS:StorageSetting:RAID50:all-FC";

int mayCreate(const char* user) {
    Array<CIMParamValue> inParameters;
    inParameters.append(CIMParamValue("Size", CIMValue(Uint64(107374182400))));
    return authorize_CreateOrModifyElemFromStoragePool(user, "192.0.2.7", inParameters);
}

/// An instance as QRV_Common::buildInstanceSkeleton makes it from the class.
CIMInstance settingSkeleton() {
    CIMInstance setting(CIMName("QRV_StorageSetting"));
    for (const char* name : {"InstanceID", "ElementName", "Caption"})
        setting.addProperty(CIMProperty(CIMName(name), CIMValue(CIMTYPE_STRING, false)));
    for (const char* name : {"DataRedundancyGoal", "PackageRedundancyGoal", "ParitySetSize"})
        setting.addProperty(CIMProperty(CIMName(name), CIMValue(CIMTYPE_UINT16, false)));
    return setting;
}

void print(const char* name, const CIMValue& value) {
    const String text = value.isNull() ? String("-") : value.toString();
    std::printf("  %s = %s\n", name, static_cast<const char*>(text.getCString()));
}

}  // namespace

int main() {
    // Within a CIM server the array is there already.
    qrvapi::control::generateArray({});

    std::printf("may create: admin %d, viewer %d\n", mayCreate("admin"), mayCreate("viewer"));

    CIMInstance setting = settingSkeleton();
    QRV_Common::fillInRAIDProperties(setting, "array.example", SETTING_ID, "RAID 50", 50);
    std::printf("%s\n", static_cast<const char*>(setting.getPath().toString().getCString()));
    for (Uint32 i = 0; i < setting.getPropertyCount(); ++i) {
        const CIMConstProperty property = setting.getProperty(i);
        print(property.getName().getString().getCString(), property.getValue());
    }

    QRV_Common::setPropertyValue(setting, CIMName("ParitySetSize"), Uint16(8));
    api_vol_setting_t record;
    std::memset(&record, 0, sizeof record);
    QRV_Common::setStorageSetting(setting, 0, devtype_ssd, &record);
    std::printf("RAID %d in sets of %d\n", record.raidType, record.setSize);
    std::printf("disks: %s\n", record.patternString);
    return 0;
}
