#include <cstring>

#include "QRV_Common.h"
#include "QRV_Text.h"

namespace Pegasus {

namespace {

template <std::size_t SIZE>
void appendText(char (&field)[SIZE], const char* text) {
    std::strncat(field, text, SIZE - 1 - std::strlen(field));
}

/// "class:method"; the colon goes with either of them, and always fits.
void setMethod(api_evtparam_t& event, const char* className, const char* method) {
    copyText(event.method, className);
    if (className == nullptr && method == nullptr) return;
    event.method[sizeof event.method - 2] = '\0';
    appendText(event.method, ":");
    if (method != nullptr) appendText(event.method, method);
}

}  // namespace

int QRV_Common::setEventParam(api_evtparam_t* eventp, const char* className, const char* method,
                              const char* op, const char* user, const char* addr) {
    if (eventp == nullptr) {
        log_message(2,
                    "setEventParam: Unable to log event data. The control block pointer (eventp) "
                    "is null.\n");
        return 1;
    }
    copyText(eventp->inst_param, nullptr);
    setMethod(*eventp, className, method);
    copyText(eventp->inst_op, op);
    copyText(eventp->user, user);
    copyText(eventp->addr, addr);
    return 0;
}

int QRV_Common::setEventParam(api_evtparam_t* eventp, const char* className, const char* method,
                              const char* op, const char* user, const char* addr,
                              const char* evtText) {
    if (setEventParam(eventp, className, method, op, user, addr) == 0)
        copyText(eventp->inst_param, evtText);
    return 0;
}

int QRV_Common::setEventOp(api_evtparam_t* eventp, const char* op) {
    if (eventp == nullptr) {
        log_message(2,
                    "setEventOp: Unable to log event data. The control block pointer (eventp) is "
                    "null.\n");
        return 1;
    }
    copyText(eventp->inst_op, op);
    return 0;
}

}  // namespace Pegasus
