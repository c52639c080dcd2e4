// The shape of an extrinsic method: reading the parameters, changing the array, and both ends.
#pragma once

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/ResponseHandler.h>

#include <functional>
#include <initializer_list>

#include "QRV_WriteFrame.h"

namespace Pegasus {

/// Return codes of the methods. All but METHOD_DONE reach the client as an exception with that
/// code.
enum MethodCode : Uint32 {
    METHOD_DONE = 0,
    METHOD_REFUSED = 4,            ///< the array refused, with no more particular code
    METHOD_BAD_PARAMETER = 5,      ///< a parameter is missing, malformed or unknown
    METHOD_EXISTS_OR_GONE = 4096,  ///< the path exists already, or what is to go isn't there
    METHOD_BAD_ID_TYPE = 4097      ///< IDType is none of the two that the array has
};

/// A parameter that a method knows, and what it does with a value.
struct MethodParameter {
    const char* name;
    std::function<void(const CIMValue&)> take;
};

/// The parameter goes to `target`. A value of another type is refused with the server library's own
/// exception.
template <class T>
MethodParameter into(const char* name, T& target) {
    return {name, [&target](const CIMValue& value) { value.get(target); }};
}

/// Which return code belongs to a code of the array.
struct CodeMapping {
    int arrayCode;
    MethodCode methodCode;
};

/// One call of a method.
class MethodCall {
  public:
    /// Begins the call of the handler with this qualified name. All arguments outlive the call.
    MethodCall(const char* name, const Array<CIMParamValue>& inParameters,
               MethodResultResponseHandler& handler);

    /// Fails with `text` when the client sent no parameter at all.
    void requireParameters(const char* text) const;

    /// Hands each parameter that isn't null to the one of `known` with its name, in any case and in
    /// the order sent. A name that isn't known fails the call.
    void read(std::initializer_list<MethodParameter> known) const;

    /// Ends the call: logs `logLine`, if any, and throws a CIMException with the code and the text.
    [[noreturn]] void fail(MethodCode code, const String& text,
                           const char* logLine = nullptr) const;

    /// Fails, with the array's own text and the code that `map` gives (METHOD_REFUSED for others),
    /// when the array refused. `call` names the call in the log line.
    void requireChanged(const ArrayAnswer& answer, const char* call,
                        std::initializer_list<CodeMapping> map) const;

    /// Ends the call with the return value 0, and with an output parameter if one is named.
    void succeed() const;
    void succeed(const char* outParameter, const CIMObjectPath& value) const;

  private:
    void take(const CIMParamValue&, std::initializer_list<MethodParameter> known) const;
    void traceEnd() const;

    const char* _name;
    const Array<CIMParamValue>& _inParameters;
    MethodResultResponseHandler& _handler;
};

}  // namespace Pegasus
