#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Identity.h"
#include "qrvapi/vluns.h"

namespace qrvapi {

struct Host;
struct Port;
struct Volume;
struct VolumeSet;

enum class VlunKind : std::uint8_t {
    matchedSet = API_VLUN_MATCHED_SET,
    hostSees = API_VLUN_HOST_SEES,
    hostSet = API_VLUN_HOST_SET,
    portPresents = API_VLUN_PORT_PRESENTS
};

/// One exported record. There may be millions, so it refers to all that has a name.
struct Vlun {
    const Volume* volume;        // null when a volume set is exported
    const VolumeSet* volumeSet;  // null when a volume is exported
    const Host* host;            // null for none
    const Initiator* initiator;  // null unless the record names one
    const Port* port;            // null for none
    std::uint16_t lun;
    VlunKind kind;
    std::uint8_t portType;  // a port_type_t
    std::uint8_t access;    // a vol_mode_t

    bool operator==(const Vlun& other) const;
};

/// What a VLUN is made from, by name.
struct VlunDefinition {
    VlunKind kind = VlunKind::hostSees;
    bool isTemplate = false;
    std::string volume;     // or
    std::string volumeSet;  // in a template
    std::string host;       // or
    std::string hostSet;    // each of its hosts
    lpid_t port = QRV_NO_PORT;
    std::optional<port_type_t> portType;  // told only where there is no port
    std::optional<Initiator> initiator;
    std::uint16_t lun = 0;
    vol_mode_t access = VOL_MODE_READWRITE;
};

/// All VLUNs in the order of their making: the active ones, then the templates.
class Vluns {
  public:
    Vluns() = default;
    Vluns(const Vluns&) = delete;
    Vluns& operator=(const Vluns&) = delete;

    void add(const Vlun& vlun, bool isTemplate) { listOf(isTemplate).push_back(vlun); }
    /// Takes out the first that is equal. Whether there was one.
    bool remove(const Vlun& vlun, bool isTemplate);

    const std::vector<Vlun>& active() const { return active_; }
    const std::vector<Vlun>& templates() const { return templates_; }

    /// The one copy of an initiator that VLUNs name.
    const Initiator* shared(const Initiator& initiator) {
        return &*initiators_.insert(initiator).first;
    }

  private:
    std::vector<Vlun>& listOf(bool isTemplate) { return isTemplate ? templates_ : active_; }

    std::vector<Vlun> active_;
    std::vector<Vlun> templates_;
    std::unordered_set<Initiator, InitiatorHash> initiators_;
};

}  // namespace qrvapi
