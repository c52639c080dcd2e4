#include "Errors.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "Text.h"

namespace qrvapi {
namespace {

struct ErrorRow {
    api_ErrorCode_t code;
    std::string_view text;  // %1 to %5 stand for the words of the status
};

constexpr ErrorRow errorTable[] = {
    {ERR_UNKNOWN, "Unknown error"},
    {ERR_QRV_HOST_EXISTS, "Host %1 already exists"},
    {ERR_QRV_HOST_NONAME, "No host name was given"},
    {ERR_QRV_HOST_NOTFOUND, "Host %1 does not exist"},
    {ERR_QRV_HOST_NAMEINVALID, "\"%1\" is not a valid host name"},
    {ERR_QRV_HOST_IDEXISTS, "Host ID %1 is already in use"},
    {ERR_QRV_HOST_HAS_VLUNS, "Host %1 has VLUNs or VLUN templates"},
    {ERR_QRV_HOST_IN_SET, "Host %1 is in a host set"},
    {ERR_QRV_HOST_CHAP_SECRETSMATCH, "The initiator and target CHAP secrets must differ"},
    {ERR_QRV_HOST_TARGETCHAP_ONLY, "Target CHAP needs initiator CHAP"},
    {ERR_QRV_HOSTPATH_NOTFOUND, "Path %1 does not exist"},
    {ERR_QRV_HOSTPATH_EXISTS, "Path %1 on port %2 already exists"},
    {ERR_QRV_HOSTPATH_DUPLICATE, "Path %1 on port %2 is given twice"},
    {ERR_QRV_PERSONA_NOTFOUND, "Host persona %1 does not exist"},
    {ERR_QRV_PERSONA_EXISTS, "Host persona %1 already exists"},
    {ERR_QRV_DOMAIN_NOTFOUND, "Domain %1 does not exist"},
    {ERR_QRV_DOMAIN_EXISTS, "Domain %1 already exists"},
    {ERR_QRV_PORT_NOTFOUND, "Port %1 does not exist"},
    {ERR_QRV_PORT_EXISTS, "Port %1 already exists"},
    {ERR_QRV_PORT_TYPE, "Path %1 cannot be on port %2, which speaks another protocol"},
    {ERR_QRV_USER_NOTFOUND, "User %1 does not exist"},
    {ERR_QRV_PERMISSION_DENIED, "User %1 may not use the array"},
    {ERR_QRV_INTERNAL_ERROR, "Internal error: %1"},
    {ERR_QRV_USER_EXISTS, "User %1 already exists"},
    {ERR_QRV_SET_NOTFOUND, "Set %1 does not exist"},
    {ERR_QRV_SET_EXISTS, "Set %1 already exists"},
    {ERR_QRV_SET_EMPTY, "Set %1 is empty"},
    {ERR_QRV_VV_NOTFOUND, "Volume %1 does not exist"},
    {ERR_QRV_VV_EXISTS, "Volume %1 already exists"},
    {ERR_QRV_VV_HAS_VLUNS, "Volume %1 has VLUNs or VLUN templates"},
    {ERR_QRV_VLUN_NOTFOUND, "The VLUN does not exist"},
    {ERR_API_GETHOST_FAILED, "The hosts could not be read"},
    {ERR_API_INVALID_ARGUMENT, "Invalid argument: %1"},
    {ERR_API_NO_MEMORY, "Out of memory"},
    {ERR_API_WWN_INVALID, "\"%1\" is not a valid WWN"},
    {ERR_API_ISCSINAME_INVALID, "\"%1\" is not a valid iSCSI name"},
    {ERR_API_NO_SPACE, "The buffer is too small"},
    {ERR_API_VV_LOCKED_ERROR, "Volume %1 is locked"},
    {ERR_API_HOST_CHAP_SECRET_INVALID,
     "A CHAP secret has 12 to 16 characters or 32 hexadecimal digits"},
    {ERR_API_HOST_CHAP_HEX_INVALID, "The CHAP secret is not hexadecimal"},
};

std::string_view word(const api_StatusParms_t& parms, int index) {
    const bool present = index >= 0 && index < parms.count;
    return present ? std::string_view(parms.parm[index].value) : std::string_view();
}

std::string expand(std::string_view text, const api_StatusParms_t& parms) {
    std::string result;
    for (auto place = text.find('%'); place != text.npos; place = text.find('%')) {
        result.append(text.substr(0, place)).append(word(parms, text[place + 1] - '1'));
        text.remove_prefix(place + 2);
    }
    return result.append(text);
}

}  // namespace

api_Status_t makeStatus(api_ErrorCode_t code, std::initializer_list<std::string_view> words) {
    api_Status_t status{};
    status.code = code;
    for (const auto text : words) copyText(status.parms.parm[status.parms.count++].value, text);
    return status;
}

std::string errorText(const api_Status_t& status) {
    const auto row = std::find_if(std::begin(errorTable), std::end(errorTable),
                                  [&](const ErrorRow& entry) { return entry.code == status.code; });
    if (row == std::end(errorTable)) return "Error " + std::to_string(status.code);
    return expand(row->text, status.parms);
}

Refusal::Refusal(api_ErrorCode_t code, std::initializer_list<std::string_view> words)
    : status_(makeStatus(code, words)), text_(errorText(status_)) {}

api_Status_t statusOfCurrentException() noexcept {
    try {
        throw;
    } catch (const Refusal& refusal) {
        return refusal.status();
    } catch (const std::bad_alloc&) {
        return makeStatus(ERR_API_NO_MEMORY);
    } catch (const std::exception& error) {
        return makeStatus(ERR_QRV_INTERNAL_ERROR, {error.what()});
    }
}

}  // namespace qrvapi
