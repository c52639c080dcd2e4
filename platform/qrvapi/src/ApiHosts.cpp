#include "qrvapi/hosts.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Call.h"
#include "HostRecords.h"
#include "Simulator.h"
#include "Text.h"

using namespace qrvapi;

namespace {

void fillHardwareId(api_hardwareID_t& record, const Path& path) {
    copyText(record.hostName, path.host->name);
    record.hostpersona = path.host->persona == nullptr ? 0 : path.host->persona->number;
    fillPath(record.pathInfo, path);
}

// ---- Selection ----------------------------------------------------------------------------------

struct HostQuery {
    std::string hostName;
    qrv_u64 wwn;
    std::string_view iscsiName;
    bool withUnassigned;
    bool brief;
};

struct HostSelection {
    std::vector<const Host*> hosts;
    std::vector<const Path*> unassigned;
};

void refuseSeveral(std::initializer_list<bool> selectors) {
    if (std::count(selectors.begin(), selectors.end(), true) > 1) {
        throw Refusal(ERR_API_INVALID_ARGUMENT, {"more than one selection"});
    }
}

HostSelection hostsOf(const Model& model, const Initiator& initiator, bool withUnassigned) {
    HostSelection selection;
    for (const auto* path : model.pathsOf(initiator)) {
        if (path->host == &model.unassigned()) {
            if (withUnassigned) selection.unassigned.push_back(path);
        } else if (selection.hosts.empty() || selection.hosts.back() != path->host) {
            selection.hosts.push_back(path->host);
        }
    }
    if (selection.hosts.empty() && selection.unassigned.empty()) {
        throw Refusal(ERR_QRV_HOSTPATH_NOTFOUND, {initiator.text()});
    }
    return selection;
}

HostSelection allHosts(const Model& model, bool withUnassigned) {
    HostSelection selection;
    for (const auto& host : model.hosts()) selection.hosts.push_back(&host);
    if (!withUnassigned) return selection;
    for (const auto& path : model.unassigned().paths) selection.unassigned.push_back(&path);
    return selection;
}

HostSelection select(const Model& model, const HostQuery& query) {
    const bool byName = !query.hostName.empty();
    const bool byWwn = query.wwn != QRV_NO_WWN;
    const bool byIscsiName = !query.iscsiName.empty();
    refuseSeveral({byName, byWwn, byIscsiName});
    if (byName) return {{&model.host(query.hostName)}, {}};
    if (byWwn) return hostsOf(model, fcInitiator(query.wwn), query.withUnassigned);
    if (byIscsiName) return hostsOf(model, iscsiInitiator(query.iscsiName), query.withUnassigned);
    return allHosts(model, query.withUnassigned);
}

std::size_t pathCount(const HostSelection& selection) {
    auto count = selection.unassigned.size();
    for (const auto* host : selection.hosts) count += host->paths.size();
    return count;
}

HostList briefList(const HostSelection& selection) {
    HostList list(selection.hosts.size(), 0);
    for (const auto* host : selection.hosts) list.addBriefly(*host);
    return list;
}

HostList wholeList(const Model& model, const HostSelection& selection) {
    const bool unassigned = !selection.unassigned.empty();
    HostList list(selection.hosts.size() + unassigned, pathCount(selection));
    for (const auto* host : selection.hosts) list.addWhole(*host);
    if (unassigned) list.addUnassigned(model.unassigned(), selection.unassigned);
    return list;
}

api_HostsInfo_t readHosts(const Model& model, const HostQuery& query) {
    const auto selection = select(model, query);
    if (selection.hosts.empty() && selection.unassigned.empty()) return {};
    auto list = query.brief ? briefList(selection) : wholeList(model, selection);
    return list.handOut();
}

// ---- Paths --------------------------------------------------------------------------------------

struct PathQuery {
    std::optional<Initiator> initiator;
    std::string hostName;
    bool withUnassigned;
};

std::optional<Initiator> filterOf(std::string_view wwn, std::string_view iscsiName) {
    refuseSeveral({!wwn.empty(), !iscsiName.empty()});
    if (!iscsiName.empty()) return iscsiInitiator(iscsiName);
    if (wwn.empty()) return std::nullopt;
    const auto number = parseWwn(wwn);
    if (!number) throw Refusal(ERR_API_WWN_INVALID, {wwn});
    return fcInitiator(*number);
}

void append(std::vector<const Path*>& paths, const Host& host) {
    for (const auto& path : host.paths) paths.push_back(&path);
}

std::vector<const Path*> allPaths(const Model& model, const PathQuery& query) {
    std::vector<const Path*> paths;
    if (!query.hostName.empty()) {
        append(paths, model.host(query.hostName));
        return paths;
    }
    paths.reserve(model.pathCount());
    for (const auto& host : model.hosts()) append(paths, host);
    if (query.withUnassigned) append(paths, model.unassigned());
    return paths;
}

std::vector<const Path*> pathsOfInitiator(const Model& model, const PathQuery& query) {
    const auto* const host = query.hostName.empty() ? nullptr : &model.host(query.hostName);
    const auto isUnwanted = [&](const Path* path) {
        if (host != nullptr) return path->host != host;
        return path->host == &model.unassigned() && !query.withUnassigned;
    };
    auto paths = model.pathsOf(*query.initiator);
    paths.erase(std::remove_if(paths.begin(), paths.end(), isUnwanted), paths.end());
    return paths;
}

struct PathBlock {
    Records<api_hardwareID_t> records;
    int count;
};

PathBlock readPaths(const Model& model, const PathQuery& query) {
    const auto paths = query.initiator ? pathsOfInitiator(model, query) : allPaths(model, query);
    if (paths.empty()) return {nullptr, 0};
    auto records = newRecords<api_hardwareID_t>(paths.size());
    for (std::size_t i = 0; i < paths.size(); ++i) fillHardwareId(records[i], *paths[i]);
    return {std::move(records), static_cast<int>(paths.size())};
}

}  // namespace

api_Status_t api_getHosts(const char* hostName, qrv_u64 wwn, const char* iscsiName,
                          api_HostsInfo_t* info, int withUnassigned, int brief) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.text("hostName", hostName).wwn("wwn", wwn).text("iscsiName", iscsiName);
        arguments.number("withUnassigned", withUnassigned).number("brief", brief);
    };
    return statusCall(Function::api_getHosts, describeArguments, [&] {
        if (info == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"info"});
        const HostQuery query{std::string(orEmpty(hostName)), wwn, orEmpty(iscsiName),
                              withUnassigned != 0 && brief == 0, brief != 0};
        *info =
            Simulator::instance().read([&](const Model& model) { return readHosts(model, query); });
    });
}

void api_freeHosts(api_HostsInfo_t* info) {
    plainCall(Function::api_freeHosts, noArguments, [&] {
        if (info == nullptr) return;
        info->count = 0;
        giveBackList(Function::api_freeHosts, info->hosts);
    });
}

int api_getHostPaths(const char* wwn, const char* iscsiName, const char* hostName, int* count,
                     api_hardwareID_t** records, int withUnassigned) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.text("wwn", wwn).text("iscsiName", iscsiName).text("hostName", hostName);
        arguments.number("withUnassigned", withUnassigned);
    };
    return codeCall(Function::api_getHostPaths, describeArguments, [&] {
        if (count == nullptr || records == nullptr) {
            throw Refusal(ERR_API_INVALID_ARGUMENT, {"count and records"});
        }
        const PathQuery query{filterOf(orEmpty(wwn), orEmpty(iscsiName)),
                              std::string(orEmpty(hostName)), withUnassigned != 0};
        auto block =
            Simulator::instance().read([&](const Model& model) { return readPaths(model, query); });
        *count = block.count;
        *records = handOutBlock(std::move(block.records));
        return 0;
    });
}
