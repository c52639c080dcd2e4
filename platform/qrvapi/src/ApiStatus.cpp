#include <algorithm>

#include "Call.h"
#include "Text.h"
#include "qrvapi/status.h"

using namespace qrvapi;

void api_initStatus(api_Status_t* status) {
    plainCall(Function::api_initStatus, noArguments, [&] {
        if (status != nullptr) *status = makeStatus(ERR_UNKNOWN);
    });
}

void errinfo_set_str(api_Status_t* status, int code, const char* text) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.number("code", code).text("text", text);
    };
    plainCall(Function::errinfo_set_str, describeArguments, [&] {
        if (status == nullptr) return;
        const auto number = static_cast<api_ErrorCode_t>(code);
        *status = text == nullptr ? makeStatus(number) : makeStatus(number, {text});
    });
}

void api_getErrorTextNoNL(char* buffer, size_t size, const api_Status_t* status) {
    if (buffer == nullptr || size == 0) return;
    buffer[0] = '\0';
    if (status == nullptr) return;
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.number("code", status->code);
    };
    plainCall(Function::api_getErrorTextNoNL, describeArguments, [&] {
        const auto text = errorText(*status);
        buffer[text.copy(buffer, size - 1)] = '\0';
    });
}
