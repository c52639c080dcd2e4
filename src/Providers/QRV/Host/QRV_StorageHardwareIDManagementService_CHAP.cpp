// Setting and removing the CHAP credentials of a host.

#include "../QRV_Text.h"
#include "QRV_HardwareIDMethods.h"
#include "QRV_StorageHardwareIDManagementServiceProvider.h"

namespace Pegasus {

namespace {

/// How long a secret may be, in characters, and what one of another length is told.
struct SecretLength {
    Uint32 shortest;
    Uint32 longest;
    const char* text;
    const char* logLine;
};

/// One direction of CHAP: its parameters' names and its rules.
struct Direction {
    const char* nameParameter;
    const char* secretParameter;
    const char* typeParameter;
    const char* badType;
    const char* badTypeLogLine;
    SecretLength lengths[2];  ///< by secret type: ASCII, hexadecimal
};

constexpr Direction INITIATOR{
    "InitiatorCHAPName",
    "InitiatorSecret",
    "InitiatorSecretType",
    "invalid InitiatorSecretType value",
    "Invalid InitiatorSecretType",
    {{12, 16, "A valid initiatorsecret length in ascii must be 12 to 16 characters",
      " A valid initiator secret length in ascii must be 12 to 16 characters"},
     {32, 32, "A valid initiator secret length in hex must be 16 bytes",
      " A valid initiator secret length in hex must be 16 bytes"}}};

constexpr Direction TARGET{"TargetCHAPName",
                           "TargetSecret",
                           "TargetSecretType",
                           "invalid TargetSecretType value",
                           "Invalid TargetSecretType",
                           {{12, 16, "A valid target length in ascii must be 12 to 16 characters",
                             " A valid target secret length in ascii must be 12 to 16 characters"},
                            {32, 32, "A valid target secret length in hex must be 16 bytes",
                             " A valid target secret length in hex must be 16 bytes"}}};

/// What the client gave for one direction.
struct Credentials {
    String chapName;
    String secret;
    Uint16 secretType = API_HOST_CHAP_SECRET_ASCII;
};

MethodParameter secretType(const MethodCall& call, const Direction& direction,
                           Credentials& credentials) {
    return {direction.typeParameter, [&](const CIMValue& value) {
                value.get(credentials.secretType);
                if (credentials.secretType > API_HOST_CHAP_SECRET_HEX)
                    call.fail(METHOD_BAD_PARAMETER, direction.badType, direction.badTypeLogLine);
            }};
}

void requireLength(const MethodCall& call, const Direction& direction,
                   const Credentials& credentials) {
    const Uint32 length = credentials.secret.size();
    const SecretLength& rule = direction.lengths[credentials.secretType];
    if (length != 0 && (length < rule.shortest || length > rule.longest))
        call.fail(METHOD_BAD_PARAMETER, rule.text, rule.logLine);
}

/// Fills one direction of the record; without a secret there is nothing to set, not even the name.
void enable(api_setChap_t& chap, qrv_u8& isSet, const Credentials& credentials) {
    if (credentials.secret.size() == 0) return;
    isSet = 1;
    chap.op = API_HOST_CHAP_ENABLE;
    chap.secretType = credentials.secretType == API_HOST_CHAP_SECRET_HEX
                          ? API_HOST_CHAP_SECRET_HEX
                          : API_HOST_CHAP_SECRET_ASCII;
    copyText(chap.src, credentials.secret.getCString());
    copyText(chap.name, credentials.chapName.getCString());
}

void disable(api_setChap_t& chap, qrv_u8& isSet) {
    isSet = 1;
    chap.op = API_HOST_CHAP_DISABLE;
}

void applyChap(const MethodCall& call, api_evtparam_t* event, const String& hostname,
               const api_setHostChap_t& chap) {
    const objdesc desc{};
    const ArrayAnswer answer = callArrayForStatus(
        [&] { return api_setHost(event, hostname.getCString(), &chap, 0, &desc, 0, 0, nullptr); });
    call.requireChanged(answer, "api_setHost",
                        {{ERR_QRV_HOST_NOTFOUND, METHOD_EXISTS_OR_GONE},
                         {ERR_API_GETHOST_FAILED, METHOD_EXISTS_OR_GONE}});
    call.succeed();
}

}  // namespace

void QRV_StorageHardwareIDManagementServiceProvider::_setISCSICHAP(
    api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
    MethodResultResponseHandler& handler) {
    const MethodCall call("QRV_StorageHardwareIDManagementServiceProvider::_setISCSICHAP()",
                          inParameters, handler);
    CIMObjectPath collection;
    Credentials initiator, target;
    call.requireParameters(" Invalid number of parameters");
    call.read({into(INITIATOR.nameParameter, initiator.chapName),
               into(INITIATOR.secretParameter, initiator.secret),
               secretType(call, INITIATOR, initiator), into(TARGET.nameParameter, target.chapName),
               into(TARGET.secretParameter, target.secret), secretType(call, TARGET, target),
               collectionParameter(call, collection, _systemAddress)});
    requireCollection(call, collection);
    if (initiator.secret.size() == 0 && target.secret.size() == 0)
        call.fail(METHOD_BAD_PARAMETER, "Secret is mandatory", " Secret is mandatory");
    requireLength(call, INITIATOR, initiator);
    requireLength(call, TARGET, target);
    const String hostname = requireHost(call, collection);

    api_setHostChap_t chap{};
    enable(chap.initChap, chap.isInitChapSet, initiator);
    enable(chap.targetChap, chap.isTargetChapSet, target);
    applyChap(call, apiEventp, hostname, chap);
}

void QRV_StorageHardwareIDManagementServiceProvider::_removeISCSICHAP(
    api_evtparam_t* apiEventp, const Array<CIMParamValue>& inParameters,
    MethodResultResponseHandler& handler) {
    constexpr Uint16 TARGET_ONLY = 1;
    constexpr Uint16 BOTH = 2;
    const MethodCall call("QRV_StorageHardwareIDManagementServiceProvider::_removeISCSICHAP()",
                          inParameters, handler);
    CIMObjectPath collection;
    Uint16 removeScope = BOTH;
    const auto takeScope = [&](const CIMValue& value) {
        value.get(removeScope);
        if (removeScope != TARGET_ONLY && removeScope != BOTH)
            call.fail(METHOD_BAD_PARAMETER, "invalid RemovalScope value", "Invalid RemovalScope");
    };
    call.requireParameters(" Invalid number of parameters");
    call.read({{"RemovalScope", takeScope}, collectionParameter(call, collection, _systemAddress)});
    requireCollection(call, collection);
    const String hostname = requireHost(call, collection);

    api_setHostChap_t chap{};
    disable(chap.targetChap, chap.isTargetChapSet);
    if (removeScope == BOTH) disable(chap.initChap, chap.isInitChapSet);
    applyChap(call, apiEventp, hostname, chap);
}

}  // namespace Pegasus
