#include "QRV_HardwareIDMethods.h"

#include "../QRV_Common.h"
#include "../QRV_InstanceID.h"
#include "../QRV_Text.h"
#include "QRV_StorageClientSettingDataProvider.h"

namespace Pegasus {

MethodParameter reference(const MethodCall& call, const char* name, CIMObjectPath& target,
                          const CIMName& className, const String& systemAddress,
                          const char* refusal) {
    return {name, [&call, &target, className, address = systemAddress,
                   refusal](const CIMValue& value) mutable {
                value.get(target);
                if (!QRV_Common::verifyRefMethodParam(target, QRV_NAMESPACE, address, className))
                    call.fail(METHOD_BAD_PARAMETER, String(refusal) + target.toString());
            }};
}

MethodParameter collectionParameter(const MethodCall& call, CIMObjectPath& target,
                                    const String& systemAddress) {
    return reference(call, "Collection", target, "QRV_StorageHardwareIDCollection", systemAddress,
                     "invalid Collection path ");
}

MethodParameter settingParameter(const MethodCall& call, CIMObjectPath& target,
                                 const String& systemAddress) {
    return reference(call, "Setting", target, "QRV_StorageClientSettingData", systemAddress,
                     "Invalid Setting parameter ");
}

bool isGiven(const CIMObjectPath& reference) {
    return !reference.getClassName().isNull();
}

Uint32 personaOf(const MethodCall& call, const CIMObjectPath& setting) {
    if (!isGiven(setting)) return DEFAULT_PERSONA;
    const Uint32 persona = QRV_StorageClientSettingDataProvider::extractPersonaNumber(setting);
    if (persona == 0)
        call.fail(METHOD_BAD_PARAMETER, String("Invalid Setting parameter ") + setting.toString(),
                  "\tInput is Invalid Setting!");
    return persona;
}

void requireCollection(const MethodCall& call, const CIMObjectPath& collection) {
    if (!isGiven(collection))
        call.fail(METHOD_BAD_PARAMETER, "Collection is mandatory", " Collection is mandatory");
}

String requireHost(const MethodCall& call, const CIMObjectPath& collection) {
    const String hostname =
        textBehindColon(QRV_Common::getStringProperty(collection, "InstanceID"));
    if (hostname.size() == 0)
        call.fail(METHOD_BAD_PARAMETER,
                  String("invalid StorageHardwareIDCollection path ") + collection.toString(),
                  " invalid collection path");
    return hostname;
}

void copyIscsiName(iscsi_name_t& field, const String& name) {
    copyText(field, name.getCString());
}

}  // namespace Pegasus
