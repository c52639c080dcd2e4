#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "qrvapi/volumes.h"

namespace qrvapi {

struct Volume {
    qrv_u32 id = 0;
    std::string name;
    std::string wwn;  // 32 upper-case hexadecimal digits
    volType type = VOL_TYPE_BASE;
    qrv_u64 sizeMB = 0;
    std::string domain;
    std::string comment;
    bool locked = false;
    std::size_t vlunCount = 0;
};

struct VolumeDefinition {
    Volume volume;
    std::optional<qrv_u32> id;  // chosen by the array when absent
};

struct VolumeSet {
    std::string name;
    std::vector<const Volume*> members;
};

/// The array's volumes and their sets, whose addresses stay. Refuses as the model does.
class Volumes {
  public:
    Volumes() = default;
    Volumes(const Volumes&) = delete;
    Volumes& operator=(const Volumes&) = delete;

    void add(VolumeDefinition definition);
    void addSet(const std::string& name, const std::vector<std::string>& members);
    /// Removes those that are there, together, and gives the names of those that weren't.
    std::vector<std::string> remove(const std::vector<std::string>& names);

    Volume& volume(const std::string& name);
    VolumeSet& set(const std::string& name);
    const Volume* find(const std::string& name) const;
    const Volume* findWwn(const std::string& wwn) const;
    /// In the order of their IDs.
    const std::map<qrv_u32, Volume>& all() const { return byId_; }

  private:
    qrv_u32 freeId(std::optional<qrv_u32> wanted) const;
    void refuse(const Volume& volume) const;
    void erase(const Volume* volume);

    std::map<qrv_u32, Volume> byId_;
    std::unordered_map<std::string, Volume*> byName_;
    std::unordered_map<std::string, Volume*> byWwn_;
    std::map<std::string, VolumeSet> sets_;
};

}  // namespace qrvapi
