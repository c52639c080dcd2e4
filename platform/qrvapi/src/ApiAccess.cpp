#include <algorithm>
#include <array>
#include <string_view>

#include "Call.h"
#include "Simulator.h"
#include "Text.h"
#include "qrvapi/access.h"

using namespace qrvapi;

namespace {

/// What the array keeps rights for, in order.
constexpr std::array<std::string_view, 13> classesWithRights = {
    "cim_privilegemanagementservice",
    "cim_storagehardwareidmanagementservice",
    "cim_systemspecificcollection",
    "qrv_allocatedfromstoragepool",
    "qrv_iscsicontroller",
    "qrv_privilegemanagementservice",
    "qrv_replicationservice",
    "qrv_replicationservicecapabilities",
    "qrv_scsicontroller",
    "qrv_storageconfigurationservice",
    "qrv_storagehardwareidcollection",
    "qrv_storagehardwareidmanagementservice",
    "qrv_storagesetting"};

bool isServerItself(const Model& model, const std::string& name) {
    return name.empty() || name == model.serverUser();
}

/// The rights of a user that the array knows.
std::optional<Rights> rightsOf(const Model& model, const std::string& name) {
    if (const auto* user = model.findUser(name)) return user->rights;
    return isServerItself(model, name) ? std::optional(Rights::read) : std::nullopt;
}

int openFor(const Model& model, const std::string& name) {
    const auto rights = rightsOf(model, name);
    if (!rights) throw Refusal(ERR_QRV_USER_NOTFOUND, {name});
    if (rights == Rights::none) throw Refusal(ERR_QRV_PERMISSION_DENIED, {name});
    return ERR_UNKNOWN;
}

int authorize(const Model& model, const std::string& name, std::string_view method) {
    const auto rights = rightsOf(model, name);
    if (!rights) return API_CIMUSER_AUTHORIZATION_USER_NOTFOUND;
    if (rights != Rights::all) return API_CIMUSER_AUTHORIZATION_UNAUTH_USER;
    const auto className = method.substr(0, method.find('.'));
    return std::binary_search(classesWithRights.begin(), classesWithRights.end(), className)
               ? API_CIMUSER_AUTHORIZATION_SUCCESS
               : API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD;
}

}  // namespace

int api_qrvOpenForCimserver(const char* user) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.text("user", user); };
    return codeCall(Function::api_qrvOpenForCimserver, describeArguments, [&] {
        if (user == nullptr) throw Refusal(ERR_QRV_USER_NOTFOUND);
        return Simulator::instance().read([&](const Model& model) { return openFor(model, user); });
    });
}

int api_authorizeCIMUser(const char* user, const char* clientAddress, const char* method) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.text("user", user).text("clientAddress", clientAddress).text("method", method);
    };
    return codeCall(Function::api_authorizeCIMUser, describeArguments, [&]() -> int {
        if (user == nullptr) return API_CIMUSER_AUTHORIZATION_USER_NOTFOUND;
        return Simulator::instance().read(
            [&](const Model& model) { return authorize(model, user, orEmpty(method)); });
    });
}
