#include "QRV_WriteFrame.h"

#include <cstdio>
#include <cstring>

#include "QRV_CimServer.h"
#include "QRV_Common.h"
#include "QRV_Text.h"

namespace Pegasus {

namespace {

constexpr std::size_t TEXT_SIZE = 512;

}  // namespace

api_evtparam_t beginChange(const ProviderFrame& frame, const OperationContext& context,
                           const CIMName& className, const String& operation, Uint32 line) {
    openArray(frame, context, line);
    authorize(frame, context, className, operation, line);
    const IdentityContainer identity(context.get(IdentityContainer::NAME));
    api_evtparam_t event{};
    QRV_Common::setEventParam(&event, className.getString().getCString(), operation.getCString(),
                              "", identity.getUserName().getCString(),
                              clientAddress(identity).getCString());
    return event;
}

String errorText(const api_Status_t& status, const char* prefix) {
    char text[TEXT_SIZE];
    std::snprintf(text, sizeof text, "%s", prefix);
    const std::size_t used = std::strlen(text);
    api_getErrorTextNoNL(text + used, sizeof text - used, &status);
    return arrayText(text);
}

String errorTextOrBusy(const ArrayAnswer& answer, const char* prefix) {
    return answer.waitResult == 0 ? errorText(answer.status, prefix)
                                  : String(prefix) + "Access busy.";
}

}  // namespace Pegasus
