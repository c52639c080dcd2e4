#include <algorithm>
#include <iterator>
#include <tuple>

#include "Errors.h"
#include "Model.h"

namespace qrvapi {
namespace {

lpid_t portOf(const Path& path) {
    return path.port == nullptr ? QRV_NO_PORT : path.port->id;
}

bool inArrayOrder(const Path* left, const Path* right) {
    return std::tie(left->host->order, left->order) < std::tie(right->host->order, right->order);
}

void note(Descriptors& descriptors, const HostChange& change) {
    for (const auto& [place, text] : change.descriptors) descriptors.at(place) = text;
}

}  // namespace

// ---- Hosts --------------------------------------------------------------------------------------

void Model::hostsChange() {
    latestHosts_.write([](auto& latest) { latest.reset(); });
}

qrv_u32 Model::freeHostId(std::optional<qrv_u32> wanted) const {
    const auto id = wanted.value_or(nextHostId_);
    if (hostIds_.count(id) != 0) throw Refusal(ERR_QRV_HOST_IDEXISTS, {std::to_string(id)});
    return id;
}

void Model::refuseName(const std::string& name) const {
    if (name.empty()) throw Refusal(ERR_QRV_HOST_NONAME);
    if (!isHostName(name)) throw Refusal(ERR_QRV_HOST_NAMEINVALID, {name});
    if (hostsByName_.count(name) != 0) throw Refusal(ERR_QRV_HOST_EXISTS, {name});
}

void Model::addHost(HostDefinition definition) {
    refuseName(definition.name);
    const auto& itsPersona = persona(definition.persona);
    if (!definition.domain.empty()) requireDomain(definition.domain);
    requireSound(definition.chap);
    const auto id = freeHostId(definition.id);

    hostsChange();
    Host host;
    host.id = id;
    host.name = definition.name;
    host.domain = std::move(definition.domain);
    host.persona = &itsPersona;
    host.chap = std::move(definition.chap);
    host.descriptors = std::move(definition.descriptors);
    host.order = nextOrder_++;
    hosts_.push_back(std::move(host));
    hostsByName_.emplace(std::move(definition.name), std::prev(hosts_.end()));
    hostIds_.insert(id);
    nextHostId_ = std::max(nextHostId_, id + 1);
}

void Model::createHost(HostDefinition definition, const HostChange& change) {
    refuseName(definition.name);
    refuseInitiators(nullptr, change.initiators);
    if (change.chap != nullptr) {
        definition.chap = changedChap({}, *change.chap, definition.name, facts_.name);
    }
    note(definition.descriptors, change);
    addHost(std::move(definition));
    for (const auto& initiator : change.initiators) giveInitiator(hosts_.back(), initiator);
}

void Model::changeHost(const std::string& name, const HostChange& change) {
    const auto host = placeOf(name);
    const bool renamed = !change.name.empty() && change.name != name;
    if (renamed) refuseName(change.name);
    const auto* newPersona = change.persona ? &persona(*change.persona) : host->persona;
    auto chap = change.chap == nullptr
                    ? host->chap
                    : changedChap(host->chap, *change.chap, host->name, facts_.name);
    refuseInitiators(&*host, change.initiators);

    hostsChange();
    host->persona = newPersona;
    host->chap = std::move(chap);
    note(host->descriptors, change);
    for (const auto& initiator : change.initiators) giveInitiator(*host, initiator);
    if (renamed) rename(host, change.name);
}

void Model::setHostDomain(const std::string& name, const std::string& domain) {
    const auto host = placeOf(name);
    if (!domain.empty()) requireDomain(domain);
    hostsChange();
    host->domain = domain;
}

void Model::rename(HostPlace host, const std::string& name) {
    hostsByName_.emplace(name, host);
    hostsByName_.erase(host->name);
    host->name = name;
}

void Model::refuseRemoval(const Host& host) const {
    if (host.vlunCount != 0) throw Refusal(ERR_QRV_HOST_HAS_VLUNS, {host.name});
    if (host.setCount != 0) throw Refusal(ERR_QRV_HOST_IN_SET, {host.name});
}

void Model::removeHost(const std::string& name) {
    const auto gone = placeOf(name);
    refuseRemoval(*gone);
    hostsChange();
    for (auto path = gone->paths.begin(); path != gone->paths.end(); ++path) unindex(path);
    hostIds_.erase(gone->id);
    hostsByName_.erase(gone->name);
    hosts_.erase(gone);
}

void Model::releaseHost(const std::string& name) {
    auto& host = *placeOf(name);
    refuseRemoval(host);
    for (auto path = host.paths.begin(); path != host.paths.end();) path = release(path, host);
    removeHost(name);
}

void Model::addHostSet(const std::string& name, const std::vector<std::string>& members) {
    HostSet set{name, {}};
    for (const auto& member : members) set.members.push_back(&*placeOf(member));
    if (hostSets_.count(name) != 0) throw Refusal(ERR_QRV_SET_EXISTS, {name});
    for (auto* host : set.members) ++host->setCount;
    hostSets_.emplace(name, std::move(set));
}

Model::HostPlace Model::placeOf(const std::string& name) const {
    if (name.empty()) throw Refusal(ERR_QRV_HOST_NONAME);
    const auto entry = hostsByName_.find(name);
    if (entry == hostsByName_.end()) throw Refusal(ERR_QRV_HOST_NOTFOUND, {name});
    return entry->second;
}

const Host& Model::host(const std::string& name) const {
    return *placeOf(name);
}

const Host* Model::findHost(const std::string& name) const {
    const auto entry = hostsByName_.find(name);
    return entry == hostsByName_.end() ? nullptr : &*entry->second;
}

const Host& Model::pathHolder(const std::string& hostName) const {
    return hostName.empty() ? unassigned_ : *placeOf(hostName);
}

Host& Model::pathHolder(const std::string& hostName) {
    return hostName.empty() ? unassigned_ : *placeOf(hostName);
}

// ---- Paths --------------------------------------------------------------------------------------

const Port* Model::portFor(const PathDefinition& path) const {
    if (path.port == QRV_NO_PORT) return nullptr;
    const auto& known = port(path.port);
    if (known.type != path.initiator.type) {
        throw Refusal(ERR_QRV_PORT_TYPE, {path.initiator.text(), portIdText(path.port)});
    }
    return &known;
}

void Model::refuseSecondPath(const Host& host, const PathDefinition& path) const {
    for (const auto* other : pathsOf(path.initiator)) {
        if (portOf(*other) != path.port) continue;
        const auto code =
            other->host == &host ? ERR_QRV_HOSTPATH_DUPLICATE : ERR_QRV_HOSTPATH_EXISTS;
        throw Refusal(code, {path.initiator.text(), portIdText(path.port)});
    }
}

void Model::refuseInitiators(const Host* host, const std::vector<Initiator>& initiators) const {
    std::unordered_set<Initiator, InitiatorHash> given;
    for (const auto& initiator : initiators) {
        if (!given.insert(initiator).second) {
            throw Refusal(ERR_QRV_HOSTPATH_DUPLICATE, {initiator.text(), portIdText(QRV_NO_PORT)});
        }
        for (const auto* path : pathsOf(initiator)) {
            if (path->host == &unassigned_) continue;
            const auto code =
                path->host == host ? ERR_QRV_HOSTPATH_DUPLICATE : ERR_QRV_HOSTPATH_EXISTS;
            throw Refusal(code, {initiator.text(), portIdText(portOf(*path))});
        }
    }
}

void Model::addPath(const std::string& hostName, const PathDefinition& path) {
    auto& host = pathHolder(hostName);
    const auto* port = portFor(path);
    refuseSecondPath(host, path);
    hostsChange();
    host.paths.push_back({&host, nextOrder_++, path.initiator, port, path.ipv4});
    pathIndex_.emplace(path.initiator.hash(), std::prev(host.paths.end()));
}

void Model::giveInitiator(Host& host, const Initiator& initiator) {
    const auto seen = placesOf(initiator);
    for (const auto path : seen) move(path, unassigned_, host);
    if (seen.empty()) addPath(host.name, {initiator, QRV_NO_PORT, 0});
}

void Model::move(PathPlace path, Host& from, Host& to) {
    hostsChange();
    to.paths.splice(to.paths.end(), from.paths, path);
    path->host = &to;
    path->order = nextOrder_++;
}

Model::PathPlace Model::release(PathPlace path, Host& host) {
    const auto next = std::next(path);
    if (path->port != nullptr) {
        move(path, host, unassigned_);
    } else {
        unindex(path);
        host.paths.erase(path);
    }
    return next;
}

void Model::releasePath(const std::string& hostName, const Initiator& initiator) {
    auto& host = *placeOf(hostName);
    bool found = false;
    for (const auto path : placesOf(initiator)) {
        if (path->host != &host) continue;
        release(path, host);
        found = true;
    }
    if (!found) throw Refusal(ERR_QRV_HOSTPATH_NOTFOUND, {initiator.text()});
}

void Model::requirePath(const std::string& hostName, const Initiator& initiator,
                        std::optional<lpid_t> port) const {
    const auto& paths = pathHolder(hostName).paths;
    const bool there = std::any_of(paths.begin(), paths.end(), [&](const Path& path) {
        return path.initiator == initiator && (!port || portOf(path) == *port);
    });
    if (!there) throw Refusal(ERR_QRV_HOSTPATH_NOTFOUND, {initiator.text()});
}

void Model::removePath(const std::string& hostName, const Initiator& initiator,
                       std::optional<lpid_t> port) {
    requirePath(hostName, initiator, port);
    auto& host = pathHolder(hostName);
    for (auto path = host.paths.begin(); path != host.paths.end();) {
        const bool leaves = path->initiator == initiator && (!port || portOf(*path) == *port);
        if (leaves) unindex(path);
        path = leaves ? host.paths.erase(path) : std::next(path);
    }
}

void Model::unindex(PathPlace path) {
    hostsChange();
    const auto [first, last] = pathIndex_.equal_range(path->initiator.hash());
    pathIndex_.erase(
        std::find_if(first, last, [&](const auto& entry) { return entry.second == path; }));
}

std::vector<Model::PathPlace> Model::placesOf(const Initiator& initiator) const {
    std::vector<PathPlace> places;
    const auto [first, last] = pathIndex_.equal_range(initiator.hash());
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second->initiator == initiator) places.push_back(entry->second);
    }
    std::sort(places.begin(), places.end(),
              [](auto left, auto right) { return inArrayOrder(&*left, &*right); });
    return places;
}

std::vector<const Path*> Model::pathsOf(const Initiator& initiator) const {
    std::vector<const Path*> paths;
    for (const auto place : placesOf(initiator)) paths.push_back(&*place);
    return paths;
}

}  // namespace qrvapi
