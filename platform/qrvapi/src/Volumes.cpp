#include "Volumes.h"

#include <algorithm>
#include <set>

#include "Errors.h"

namespace qrvapi {
namespace {

Volume* found(const std::unordered_map<std::string, Volume*>& index, const std::string& key) {
    const auto entry = index.find(key);
    return entry == index.end() ? nullptr : entry->second;
}

/// Whether a volume may go.
void requireRemovable(const Volume& volume) {
    if (volume.locked) throw Refusal(ERR_API_VV_LOCKED_ERROR, {volume.name});
    if (volume.vlunCount != 0) throw Refusal(ERR_QRV_VV_HAS_VLUNS, {volume.name});
}

}  // namespace

qrv_u32 Volumes::freeId(std::optional<qrv_u32> wanted) const {
    if (!wanted) return byId_.empty() ? 0 : byId_.rbegin()->first + 1;
    if (byId_.count(*wanted) != 0) throw Refusal(ERR_QRV_VV_EXISTS, {std::to_string(*wanted)});
    return *wanted;
}

void Volumes::refuse(const Volume& volume) const {
    if (find(volume.name) != nullptr) throw Refusal(ERR_QRV_VV_EXISTS, {volume.name});
    if (findWwn(volume.wwn) != nullptr) throw Refusal(ERR_QRV_VV_EXISTS, {volume.wwn});
}

void Volumes::add(VolumeDefinition definition) {
    auto& volume = definition.volume;
    refuse(volume);
    volume.id = freeId(definition.id);
    auto& stored = byId_.emplace(volume.id, std::move(volume)).first->second;
    byName_.emplace(stored.name, &stored);
    byWwn_.emplace(stored.wwn, &stored);
}

void Volumes::addSet(const std::string& name, const std::vector<std::string>& members) {
    VolumeSet set{name, {}};
    for (const auto& member : members) set.members.push_back(&volume(member));
    if (!sets_.emplace(name, std::move(set)).second) throw Refusal(ERR_QRV_SET_EXISTS, {name});
}

std::vector<std::string> Volumes::remove(const std::vector<std::string>& names) {
    std::set<const Volume*> leaving;
    std::vector<std::string> missing;
    for (const auto& name : names) {
        const auto* volume = find(name);
        if (volume == nullptr) {
            missing.push_back(name);
            continue;
        }
        requireRemovable(*volume);
        leaving.insert(volume);
    }
    if (leaving.empty() && !missing.empty()) throw Refusal(ERR_QRV_VV_NOTFOUND, {missing.front()});
    for (const auto* volume : leaving) erase(volume);
    return missing;
}

void Volumes::erase(const Volume* volume) {
    for (auto& [name, set] : sets_) {
        auto& members = set.members;
        members.erase(std::remove(members.begin(), members.end(), volume), members.end());
    }
    byName_.erase(volume->name);
    byWwn_.erase(volume->wwn);
    byId_.erase(volume->id);
}

Volume& Volumes::volume(const std::string& name) {
    auto* const volume = found(byName_, name);
    if (volume == nullptr) throw Refusal(ERR_QRV_VV_NOTFOUND, {name});
    return *volume;
}

VolumeSet& Volumes::set(const std::string& name) {
    const auto entry = sets_.find(name);
    if (entry == sets_.end()) throw Refusal(ERR_QRV_SET_NOTFOUND, {name});
    return entry->second;
}

const Volume* Volumes::find(const std::string& name) const {
    return found(byName_, name);
}

const Volume* Volumes::findWwn(const std::string& wwn) const {
    return found(byWwn_, wwn);
}

}  // namespace qrvapi
