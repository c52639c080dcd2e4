#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
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
};

/// QRV_NO_PORT for none.
lpid_t portOf(const Vlun& vlun);

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

/// Places in a list, in ascending order.
using Places = std::vector<std::uint32_t>;

/// Where in a list the VLUNs with each key are.
template <class Key>
class PlaceIndex {
  public:
    void add(Key key, std::size_t place);
    /// Takes a place out; those behind it move up.
    void remove(Key key, std::size_t place);
    const Places& of(Key key) const;

  private:
    std::unordered_map<Key, Places> places_;
};

/// VLUNs in the order of their making. Those of one host or port are found without the others.
class VlunList {
  public:
    void add(const Vlun& vlun);
    /// Takes out the first that is the same but for the type of its port, which counts only where
    /// it is told: a derived one follows the paths that the host had. Whether there was one.
    bool remove(const Vlun& vlun, std::optional<port_type_t> portType);

    std::size_t size() const { return vluns_.size(); }
    const Vlun& operator[](std::size_t place) const { return vluns_[place]; }
    const Places& ofHost(const Host* host) const { return byHost_.of(host); }
    /// QRV_NO_PORT for those on none.
    const Places& onPort(lpid_t port) const { return byPort_.of(port); }

  private:
    std::vector<Vlun> vluns_;
    PlaceIndex<const Host*> byHost_;
    PlaceIndex<lpid_t> byPort_;
};

/// All VLUNs: the active ones and the templates.
class Vluns {
  public:
    Vluns() = default;
    Vluns(const Vluns&) = delete;
    Vluns& operator=(const Vluns&) = delete;

    VlunList& list(bool ofTemplates) { return ofTemplates ? templates_ : active_; }
    const VlunList& active() const { return active_; }
    const VlunList& templates() const { return templates_; }

    /// The one copy of an initiator that VLUNs name.
    const Initiator* shared(const Initiator& initiator) {
        return &*initiators_.insert(initiator).first;
    }

  private:
    VlunList active_;
    VlunList templates_;
    std::unordered_set<Initiator, InitiatorHash> initiators_;
};

}  // namespace qrvapi
