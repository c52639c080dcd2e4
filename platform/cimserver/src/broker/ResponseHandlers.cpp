#include "broker/ResponseHandlers.h"

#include <Pegasus/Common/Exception.h>

namespace cimserver {

using namespace Pegasus;

namespace {

[[noreturn]] void fail(const char* message) {
    throw CIMException(CIM_ERR_FAILED, message);
}

void require(bool content) {
    if (!content) fail("The object is not initialized.");
}

}  // namespace

void requireContent(const CIMInstance& instance) {
    require(!instance.isUninitialized());
}
void requireContent(const CIMObject& object) {
    require(!object.isUninitialized());
}
void requireContent(const CIMObjectPath& path) {
    require(!path.getClassName().isNull());
}
void requireContent(const CIMParamValue& parameter) {
    require(!parameter.isUninitialized());
}
void requireContent(const CIMValue& value) {
    require(!value.isNull());
}

void throwTooFewDelivered() {
    fail("Too few objects delivered.");
}
void throwTooManyDelivered() {
    fail("Too many objects delivered.");
}

void MethodHandler::complete() {
    _released = _pending;
}

void MethodHandler::deliver(const CIMValue& returnValue) {
    requireContent(returnValue);
    _pending.returnValue = returnValue;
}

void MethodHandler::deliverParamValue(const CIMParamValue& parameter) {
    requireContent(parameter);
    _pending.parameters.append(parameter);
}

void MethodHandler::deliverParamValue(const Array<CIMParamValue>& parameters) {
    for (Uint32 i = 0, n = parameters.size(); i != n; ++i) deliverParamValue(parameters[i]);
}

}  // namespace cimserver
