#include <arpa/inet.h>

#include <cstdlib>

#include "Call.h"
#include "Identity.h"
#include "Text.h"
#include "qrvapi/conversions.h"

using namespace qrvapi;

namespace {

/// The canonical form of an address of the family, or the empty text.
std::string canonical(int family, const char* address) {
    unsigned char binary[sizeof(in6_addr)];
    char text[INET6_ADDRSTRLEN];
    if (inet_pton(family, address, binary) != 1) return {};
    return inet_ntop(family, binary, text, sizeof text);
}

/// Whether a text and its NUL fitted, and so were written.
bool writeWhole(const std::string& text, char* buffer, int size) {
    if (size <= 0 || text.size() >= static_cast<std::size_t>(size)) return false;
    buffer[text.copy(buffer, text.size())] = '\0';
    return true;
}

int checkAddress(const char* host, char* buffer, int size) {
    if (host == nullptr || buffer == nullptr) return API_IP_INVALID;
    const auto ipv6 = canonical(AF_INET6, host);
    const auto text = ipv6.empty() ? canonical(AF_INET, host) : ipv6;
    if (text.empty() || !writeWhole(text, buffer, size)) return API_IP_INVALID;
    return ipv6.empty() ? API_IPV4_OK : API_IPV6_OK;
}

}  // namespace

api_Status_t api_wwnStringToInt(const char* text, int* digits, qrv_u64* wwn) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.text("text", text); };
    return statusCall(Function::api_wwnStringToInt, describeArguments, [&] {
        if (wwn == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"wwn"});
        const auto number = parseWwn(orEmpty(text));
        if (!number || !isWwn(*number)) throw Refusal(ERR_API_WWN_INVALID, {orEmpty(text)});
        *wwn = *number;
        if (digits != nullptr) *digits = static_cast<int>(orEmpty(text).size());
    });
}

int api_wwnIntToString(int reserved, qrv_u64 wwn, char* buffer, size_t size) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.wwn("wwn", wwn); };
    return codeCall(Function::api_wwnIntToString, describeArguments, [&] {
        const auto text = wwnText(wwn);
        if (reserved != 0 || buffer == nullptr || size <= text.size()) {
            throw Refusal(ERR_API_INVALID_ARGUMENT, {"buffer, size and reserved"});
        }
        buffer[text.copy(buffer, text.size())] = '\0';
        return 0;
    });
}

int validateConvertIP(const char* host, char* buffer, int size) {
    int kind = API_IP_INVALID;
    const auto describeArguments = [&](Arguments& arguments) { arguments.text("host", host); };
    plainCall(Function::validateConvertIP, describeArguments,
              [&] { kind = checkAddress(host, buffer, size); });
    return kind;
}

void free_if_not_null(void* block) {
    plainCall(Function::free_if_not_null, noArguments, [&] { std::free(block); });
}
