#include <Pegasus/Provider/ProviderException.h>

#include "QRV_Common.h"
#include "QRV_VlunWalk.h"
#include "QRV_WriteFrame.h"

namespace Pegasus {

namespace {

/// Only the source file's name appears: the messages bear the name of the controller's class.
constexpr ProviderFrame FRAME{"", "../QRV_Common", "", "", 0, ""};

const CIMName ELEMENT_NAME("ElementName");

/// The host that a controller is about: exactly one, since the controller is one of its own.
String hostToRename(const CIMObjectPath& controller, const String& className) {
    const String deviceID = QRV_Common::getStringProperty(controller, "DeviceID");
    if (deviceID.size() == 0)
        throw CIMOperationFailedException(className +
                                          "::modifyInstance of SPC error: invalid deviceID");
    const VlunFilter vluns = filterOf(deviceID);
    if (vluns.vlunType != API_VLUN_MATCHED_SET && vluns.vlunType != API_VLUN_HOST_SEES)
        throw CIMNotSupportedException(className + " Port-Present or Host-Set SPC " +
                                       " does not support modifyInstance.");
    return vluns.host;
}

void requireElementName(const CIMName& property) {
    if (!property.equal(ELEMENT_NAME))
        throw CIMInvalidParameterException(String("Invalid parameter: ") + property.getString());
}

/// What a client wants to change.
struct Change {
    Uint32 properties;  ///< how many it names
    String newName;     ///< empty when none of them gives one
};

Change wholeChange(const CIMInstance& instance) {
    Change change{instance.getPropertyCount(), String()};
    for (Uint32 i = 0; i < change.properties; ++i) {
        requireElementName(instance.getProperty(i).getName());
        change.newName = QRV_Common::getStringProperty(instance, "ElementName");
    }
    return change;
}

/// A name in the list that the instance doesn't have is passed over, but counts.
Change listedChange(const CIMInstance& instance, const CIMPropertyList& propertyList) {
    Change change{propertyList.size(), String()};
    for (Uint32 i = 0; i < propertyList.size(); ++i) {
        const Uint32 place = instance.findProperty(propertyList[i]);
        if (place == PEG_NOT_FOUND) continue;
        requireElementName(instance.getProperty(place).getName());
        change.newName = QRV_Common::getStringProperty(instance, "ElementName");
    }
    return change;
}

void renameHost(api_evtparam_t& event, const String& hostName, const String& newName,
                const String& className) {
    const CString from = hostName.getCString();
    const CString to = newName.getCString();
    const ArrayAnswer answer = callArrayForStatus(
        [&] { return api_setHost(&event, from, nullptr, 0, nullptr, 0, 0, to); });
    if (!answer.failed()) return;
    const String text = errorText(answer.status);
    log_message(2, "api_setHost returned an error: %s\n",
                static_cast<const char*>(text.getCString()));
    throw CIMOperationFailedException(className + "::modifyInstance of SPC returned an error - " +
                                      text);
}

}  // namespace

void QRV_Common::modifySPC(const OperationContext& context, const CIMObjectPath& instanceReference,
                           const CIMInstance& instanceObject, Boolean,
                           const CIMPropertyList& propertyList, ResponseHandler& handler) {
    const OperationTrace trace("QRV_Common::modifySPC()");
    const String className = instanceReference.getClassName().getString();
    api_evtparam_t event =
        beginChange(FRAME, context, instanceReference.getClassName(), "ModifyInstance");
    const String hostName = hostToRename(instanceReference, className);
    handler.processing();
    const Change change = propertyList.isNull() ? wholeChange(instanceObject)
                                                : listedChange(instanceObject, propertyList);
    if (change.newName.size() == 0 && change.properties > 0)
        throw CIMNotSupportedException(className + " does not support modifyInstance.");
    if (change.newName.size() > 0 && change.newName != hostName)
        renameHost(event, hostName, change.newName, className);
    handler.complete();
}

}  // namespace Pegasus
