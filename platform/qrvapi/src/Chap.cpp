#include "Chap.h"

#include "Errors.h"
#include "Identity.h"
#include "Text.h"

namespace qrvapi {
namespace {

constexpr std::size_t shortestSecret = 12, longestSecret = 16, hexDigits = 32;

std::string hexBytes(std::string_view text) {
    if (text.size() != hexDigits) throw Refusal(ERR_API_HOST_CHAP_SECRET_INVALID);
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const auto byte = parseWwn(text.substr(i, 2));
        if (!byte) throw Refusal(ERR_API_HOST_CHAP_HEX_INVALID);
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

std::string asciiBytes(std::string_view text) {
    if (text.size() < shortestSecret || text.size() > longestSecret) {
        throw Refusal(ERR_API_HOST_CHAP_SECRET_INVALID);
    }
    return std::string(text);
}

void change(ChapSide& side, const api_setChap_t& change, const std::string& usualName) {
    switch (numberIn(change.op)) {
        case API_HOST_CHAP_DISABLE:
            side = {};
            return;
        case API_HOST_CHAP_ENABLE: {
            const auto name = fieldText(change.name);
            side = {true, std::string(name.empty() ? usualName : name),
                    secretBytes(fieldText(change.src), numberIn(change.secretType))};
            return;
        }
    }
    throw Refusal(ERR_API_INVALID_ARGUMENT, {"CHAP operation"});
}

}  // namespace

std::string secretBytes(std::string_view text, int type) {
    switch (type) {
        case API_HOST_CHAP_SECRET_ASCII:
            return asciiBytes(text);
        case API_HOST_CHAP_SECRET_HEX:
            return hexBytes(text);
    }
    throw Refusal(ERR_API_INVALID_ARGUMENT, {"CHAP secret type"});
}

HostChap changedChap(HostChap chap, const api_setHostChap_t& request, const std::string& hostName,
                     const std::string& systemName) {
    if (request.isInitChapSet != 0) change(chap.initiator, request.initChap, hostName);
    if (request.isTargetChapSet != 0) change(chap.target, request.targetChap, systemName);
    requireSound(chap);
    return chap;
}

void requireSound(const HostChap& chap) {
    if (!chap.target.enabled) return;
    if (!chap.initiator.enabled) throw Refusal(ERR_QRV_HOST_TARGETCHAP_ONLY);
    if (chap.initiator.secret == chap.target.secret) throw Refusal(ERR_QRV_HOST_CHAP_SECRETSMATCH);
}

}  // namespace qrvapi
