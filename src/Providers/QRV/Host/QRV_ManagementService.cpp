#include "QRV_ManagementService.h"

#include <qrvapi.h>

#include "../QRV_Common.h"
#include "../QRV_OperationFrame.h"
#include "../QRV_Text.h"

namespace Pegasus {

namespace {

const CIMName SYSTEM_CREATION_CLASS_NAME("SystemCreationClassName");
const CIMName SYSTEM_NAME("SystemName");
const CIMName CREATION_CLASS_NAME("CreationClassName");
const CIMName NAME("Name");
const String SYSTEM_CLASS("QRV_StorageSystem");

/// A text that the array gives in a buffer of 256 bytes, or nothing when it can't.
String textOf(int (*read)(char*)) {
    char text[256] = {};
    return read(text) == 0 ? arrayText(text) : String();
}

}  // namespace

CIMObjectPath ServiceIdentity::path(const String& systemAddress) const {
    Array<CIMKeyBinding> keys;
    const auto appendKey = [&](const CIMName& key, const String& value) {
        keys.append(CIMKeyBinding(key, value, CIMKeyBinding::STRING));
    };
    appendKey(SYSTEM_CREATION_CLASS_NAME, SYSTEM_CLASS);
    appendKey(SYSTEM_NAME, systemName);
    appendKey(CREATION_CLASS_NAME, serviceClass.getString());
    appendKey(NAME, name);
    return CIMObjectPath(systemAddress, QRV_NAMESPACE, serviceClass, keys);
}

ServiceOwner readServiceOwner() {
    const String contact = textOf(api_getSystemContact);
    return {contact, textOf(api_getOwnerName)};
}

void describeService(CIMInstance& instance, const ServiceIdentity& identity,
                     const ServiceOwner& owner) {
    QRV_Common::setPropertyValue(instance, SYSTEM_CREATION_CLASS_NAME, SYSTEM_CLASS);
    QRV_Common::setPropertyValue(instance, SYSTEM_NAME, identity.systemName);
    QRV_Common::setPropertyValue(instance, CREATION_CLASS_NAME, identity.serviceClass.getString());
    QRV_Common::setPropertyValue(instance, NAME, identity.name);
    QRV_Common::setPropertyValue(instance, CIMName("PrimaryOwnerContact"), owner.contact);
    QRV_Common::setPropertyValue(instance, CIMName("PrimaryOwnerName"), owner.name);
    QRV_Common::setPropertyValue(instance, CIMName("Started"), Boolean(true));
    QRV_Common::setPropertyValue(instance, CIMName("StartMode"), String("Automatic"));
}

}  // namespace Pegasus
