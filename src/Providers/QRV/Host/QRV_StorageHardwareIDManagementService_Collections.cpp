// Creating a host with initiators, and adding initiators to one.

#include <Pegasus/Provider/ProviderException.h>

#include <new>
#include <vector>

#include "../QRV_Common.h"
#include "../QRV_Text.h"
#include "QRV_HardwareIDMethods.h"
#include "QRV_StorageHardwareIDCollectionProvider.h"
#include "QRV_StorageHardwareIDManagementServiceProvider.h"
#include "QRV_StorageHardwareIDProvider.h"

namespace Pegasus {

namespace {

/// Fixed-width records, as the array takes iSCSI names.
struct IscsiName {
    iscsi_name_t text;
};

/// The initiators of one call in the array's form, each kind in the order in which the client named
/// them.
struct InitiatorLists {
    std::vector<qrv_u64> wwns;
    std::vector<IscsiName> iscsiNames;

    int wwncnt() const { return static_cast<int>(wwns.size()); }
    int iscsicnt() const { return static_cast<int>(iscsiNames.size()); }
    const qrv_u64* wwnlist() const { return wwns.empty() ? nullptr : wwns.data(); }
    const iscsi_name_t* iscsiNamelist() const {
        return iscsiNames.empty() ? nullptr : &iscsiNames[0].text;
    }
};

/// One entry of HardwareIDs: its path, and the WWN or iSCSI name in it.
struct NamedInitiator {
    CIMObjectPath path;
    String text;
};

/// What the entries of HardwareIDs name. The first bad one fails the call; nothing has reached the
/// array by then. `nothingIn` begins and `isMissing` ends the text for a path that holds no
/// initiator.
std::vector<NamedInitiator> requireInitiators(const MethodCall& call,
                                              const Array<String>& hardwareIDs,
                                              String systemAddress, const char* nothingIn,
                                              const char* isMissing) {
    std::vector<NamedInitiator> named;
    for (Uint32 i = 0; i < hardwareIDs.size(); ++i) {
        CIMObjectPath path(hardwareIDs[i]);
        if (!QRV_Common::verifyRefMethodParam(path, QRV_NAMESPACE, systemAddress,
                                              CIMName("QRV_StorageHardwareID")))
            call.fail(METHOD_BAD_PARAMETER,
                      String("HardwareID path ") + path.toString() + " is invalid");
        const String text = QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName(path);
        if (text.size() == 0)
            call.fail(METHOD_EXISTS_OR_GONE, String(nothingIn) + path.toString() + isMissing);
        named.push_back({path, text});
    }
    return named;
}

/// Adds one initiator. A WWN that isn't hexadecimal is left out.
void append(InitiatorLists& lists, const NamedInitiator& initiator) {
    qrv_u64 wwn = QRV_NO_WWN;
    if (QRV_StorageHardwareIDProvider::isISCSIStorageHardwareID(initiator.path))
        copyIscsiName(lists.iscsiNames.emplace_back().text, initiator.text);
    else if (readWwn(initiator.text, wwn))
        lists.wwns.push_back(wwn);
}

/// Tells of the Fibre Channel initiators that are left out when none of them has a WWN.
void logLeftOut(const std::vector<NamedInitiator>& named) {
    for (const NamedInitiator& initiator : named)
        if (QRV_StorageHardwareIDProvider::isFCStorageHardwareID(initiator.path))
            log_message(2, "Error: wwnlist is NULL, wwn count is %d\n", 0);
}

InitiatorLists makeLists(const std::vector<NamedInitiator>& named) try {
    InitiatorLists lists;
    for (const NamedInitiator& initiator : named) append(lists, initiator);
    if (lists.wwns.empty()) logLeftOut(named);
    return lists;
} catch (const std::bad_alloc&) {
    throw CIMOperationFailedException("QRV_StorageHardwareIDManagementService: malloc failed");
}

}  // namespace

void QRV_StorageHardwareIDManagementServiceProvider::_createHardwareIDCollection(
    api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
    MethodResultResponseHandler& handler) {
    const MethodCall call(
        "QRV_StorageHardwareIDManagementServiceProvider::_createHardwareIDCollection()",
        inParameters, handler);
    String hostname, domainName;
    Array<String> hardwareIDs;
    CIMObjectPath cltSettingPath;
    call.requireParameters(" Invalid number of parameters");
    call.read({into("ElementName", hostname), into("HardwareIDs", hardwareIDs),
               settingParameter(call, cltSettingPath, _systemAddress), into("Domain", domainName)});
    if (hostname.size() == 0)
        call.fail(METHOD_BAD_PARAMETER, "ElementName is mandatory", " ElementName is mandatory");
    const Uint32 personaNum = personaOf(call, cltSettingPath);
    const InitiatorLists lists = makeLists(
        requireInitiators(call, hardwareIDs, _systemAddress, "StorageHardwareID ", " not found"));

    const ArrayAnswer answer = callArrayForStatus([&] {
        const api_setHostChap_t chap{};
        const objdesc desc{};
        return api_createHost(apiEventp, hostname.getCString(), lists.wwncnt(), lists.wwnlist(),
                              lists.iscsicnt(), lists.iscsiNamelist(), 0, &chap, nullptr, &desc, 0,
                              personaNum, domainName.getCString());
    });
    call.requireChanged(answer, "api_createHost",
                        {{ERR_QRV_HOST_NOTFOUND, METHOD_EXISTS_OR_GONE},
                         {ERR_QRV_HOSTPATH_DUPLICATE, METHOD_BAD_PARAMETER}});
    call.succeed("Collection",
                 QRV_StorageHardwareIDCollectionProvider::pathOfHost(_systemAddress, hostname));
}

void QRV_StorageHardwareIDManagementServiceProvider::_addHardwareIDsToCollection(
    api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
    MethodResultResponseHandler& handler) {
    const MethodCall call(
        "QRV_StorageHardwareIDManagementServiceProvider::_addHardwareIDsToCollection()",
        inParameters, handler);
    Array<String> hardwareIDs;
    CIMObjectPath collection;
    call.requireParameters(" Invalid number of parameters");
    call.read(
        {collectionParameter(call, collection, _systemAddress), into("HardwareIDs", hardwareIDs)});
    requireCollection(call, collection);
    const String hostname = requireHost(call, collection);
    if (hardwareIDs.size() == 0)
        call.fail(METHOD_BAD_PARAMETER, "HardwareIDs is mandatory", " HardwareIDs is mandatory");
    const InitiatorLists lists = makeLists(
        requireInitiators(call, hardwareIDs, _systemAddress, "HardwareID path ", " is not found"));

    const ArrayAnswer answer = callArrayForStatus([&] {
        const api_setHostChap_t chap{};
        const objdesc desc{};
        return api_addPath(apiEventp, hostname.getCString(), lists.wwncnt(), lists.wwnlist(),
                           lists.iscsicnt(), lists.iscsiNamelist(), 0, &chap, nullptr, &desc);
    });
    call.requireChanged(answer, "api_addPath",
                        {{ERR_QRV_HOST_NOTFOUND, METHOD_EXISTS_OR_GONE},
                         {ERR_QRV_HOSTPATH_DUPLICATE, METHOD_BAD_PARAMETER}});
    call.succeed("Collection", collection);
}

}  // namespace Pegasus
