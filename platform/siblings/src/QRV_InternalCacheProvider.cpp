#include "QRV_InternalCacheProvider.h"

#include <QRV_Common.h>

#include "SystemFacts.h"

namespace Pegasus {

namespace {

struct Fact {
    const char* method;
    const char* parameter;
    CIMValue (*value)(const api_SystemFacts_t&);
};

const Fact FACTS[] = {
    {"GetSystemName", "SystemName",
     [](const api_SystemFacts_t& facts) { return CIMValue(String(facts.name)); }},
    {"GetSystemHostName", "SystemHostName",
     [](const api_SystemFacts_t& facts) { return CIMValue(String(facts.hostName)); }},
    {"GetSystemAddress", "SystemAddress",
     [](const api_SystemFacts_t& facts) { return CIMValue(String(facts.ipv4Address)); }},
    {"GetSystemID", "SystemID",
     [](const api_SystemFacts_t& facts) { return CIMValue(Uint32(facts.id)); }},
    {"GetSystemType", "SystemType",
     [](const api_SystemFacts_t& facts) { return CIMValue(Sint32(facts.type)); }},
    {"IsQuadPortSystem", "IsQuadPort",
     [](const api_SystemFacts_t& facts) { return CIMValue(Uint8(facts.isQuadPort)); }},
};

const Fact& findFact(const CIMName& method) {
    for (const Fact& fact : FACTS)
        if (method.equal(fact.method)) return fact;
    throw CIMMethodNotFoundException(method.getString());
}

}  // namespace

void QRV_InternalCacheProvider::initialize(CIMOMHandle&) {}

void QRV_InternalCacheProvider::terminate() {
    delete this;
}

void QRV_InternalCacheProvider::invokeMethod(const OperationContext&,
                                             const CIMObjectPath& objectReference,
                                             const CIMName& methodName, const Array<CIMParamValue>&,
                                             MethodResultResponseHandler& handler) {
    if (QRV_Common::getStringProperty(objectReference, "InstanceID") != "localhost-InternalCache")
        throw CIMObjectNotFoundException(objectReference.toString());
    const Fact& fact = findFact(methodName);
    const CIMValue answer = fact.value(readSystemFacts());
    handler.processing();
    handler.deliverParamValue(CIMParamValue(fact.parameter, answer));
    handler.deliver(CIMValue(Uint32(0)));
    handler.complete();
}

}  // namespace Pegasus
