#include "QRV_MethodCall.h"

#include "QRV_CimServer.h"

namespace Pegasus {

MethodCall::MethodCall(const char* name, const Array<CIMParamValue>& inParameters,
                       MethodResultResponseHandler& handler)
    : _name(name), _inParameters(inParameters), _handler(handler) {
    log_message(4, "-->%s\n", _name);
}

void MethodCall::traceEnd() const {
    log_message(4, "<--%s\n", _name);
}

void MethodCall::requireParameters(const char* text) const {
    if (_inParameters.size() == 0)
        fail(METHOD_BAD_PARAMETER, text, " Invalid number of parameters");
}

void MethodCall::read(std::initializer_list<MethodParameter> known) const {
    for (Uint32 i = 0; i < _inParameters.size(); ++i) {
        log_message(4, "Param %s\n",
                    static_cast<const char*>(_inParameters[i].getParameterName().getCString()));
        if (_inParameters[i].getValue().isNull())
            log_message(4, "value is null, continue\n");
        else
            take(_inParameters[i], known);
    }
}

void MethodCall::take(const CIMParamValue& given,
                      std::initializer_list<MethodParameter> known) const {
    for (const MethodParameter& parameter : known)
        if (String::equalNoCase(given.getParameterName(), parameter.name))
            return parameter.take(given.getValue());
    fail(METHOD_BAD_PARAMETER, String("Invalid parameter ") + given.getParameterName());
}

void MethodCall::fail(MethodCode code, const String& text, const char* logLine) const {
    if (logLine != nullptr) log_message(2, "%s\n", logLine);
    traceEnd();
    throw methodFailure(code, text);
}

void MethodCall::requireChanged(const ArrayAnswer& answer, const char* call,
                                std::initializer_list<CodeMapping> map) const {
    if (!answer.failed()) return;
    const String text = errorText(answer.status);
    log_message(2, "Error from %s: %s\n", call, static_cast<const char*>(text.getCString()));
    for (const CodeMapping& each : map)
        if (each.arrayCode == answer.status.code) fail(each.methodCode, text);
    fail(METHOD_REFUSED, text);
}

void MethodCall::succeed() const {
    _handler.processing();
    _handler.deliver(CIMValue(Uint32(METHOD_DONE)));
    _handler.complete();
    traceEnd();
}

void MethodCall::succeed(const char* outParameter, const CIMObjectPath& value) const {
    _handler.processing();
    _handler.deliverParamValue(CIMParamValue(outParameter, CIMValue(value), true));
    _handler.deliver(CIMValue(Uint32(METHOD_DONE)));
    _handler.complete();
    traceEnd();
}

}  // namespace Pegasus
