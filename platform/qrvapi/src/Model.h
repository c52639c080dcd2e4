#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "Chap.h"
#include "EventLog.h"
#include "Guarded.h"
#include "Identity.h"
#include "Vluns.h"
#include "Volumes.h"
#include "qrvapi/system.h"
#include "qrvapi/types.h"

namespace qrvapi {

enum class Rights { none, read, all };

struct User {
    std::string name;
    std::string password;  // or its hash
    Rights rights = Rights::none;
};

struct Port {
    lpid_t id = QRV_NO_PORT;
    port_type_t type = PORT_TYPE_UNKNOWN;
    qrv_u64 address = 0;    // WWN or SAS address
    std::string iscsiName;  // of an iSCSI port
};

struct Persona {
    unsigned number = 0;
    std::string name;
    qrv_u32 capabilities = 0;
    bool supported = true;
    std::vector<std::string> operatingSystems;
};

struct Host;

/// An initiator as it is seen on one port, or on none.
struct Path {
    const Host* host;
    std::uint64_t order;  // among all paths that ever were
    Initiator initiator;
    const Port* port;  // null for none
    qrv_u32 ipv4;      // network byte order
};

/// What an administrator noted: location, IP address, operating system, model, contact, comment.
using Descriptors = std::array<std::string, 6>;

struct Host {
    qrv_u32 id = QRV_NO_HOST;
    std::string name;
    std::string domain;
    const Persona* persona = nullptr;
    HostChap chap;
    Descriptors descriptors;
    std::uint64_t order = 0;  // among all hosts that ever were
    std::list<Path> paths;
    std::size_t vlunCount = 0;
    std::size_t setCount = 0;
};

struct HostDefinition {
    std::string name;
    std::optional<qrv_u32> id;  // chosen by the array when absent
    std::string domain;
    unsigned persona = 0;
    HostChap chap;
    Descriptors descriptors;
};

/// What is to become of a host; what is absent or empty stays.
struct HostChange {
    std::string name;
    std::optional<unsigned> persona;
    const api_setHostChap_t* chap = nullptr;
    std::map<std::size_t, std::string> descriptors;  // by their place in Descriptors
    std::vector<Initiator> initiators;               // that the host gets
};

struct PathDefinition {
    Initiator initiator;
    lpid_t port = QRV_NO_PORT;
    qrv_u32 ipv4 = 0;
};

struct HostSet {
    std::string name;
    std::vector<Host*> members;
};

struct DomainSet {
    qrv_u32 id = 0;
    std::string name;
    std::string comment;
    std::vector<std::string> members;
};

class HostSnapshot;
/// What walks share; null until the first asks.
using LatestHosts = Guarded<std::shared_ptr<const HostSnapshot>>;

/// The array's state and the rules that keep it sound. Operations that are refused throw Refusal
/// and change nothing. Not safe for threads by itself.
class Model {
  public:
    Model();
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    // ---- The array itself -----------------------------------------------------------------------

    void addUser(User user);
    void setServerUser(std::string name) { serverUser_ = std::move(name); }
    void setFacts(const api_SystemFacts_t& facts) { facts_ = facts; }
    void addPort(const Port& port);
    void addPersona(Persona persona);
    void addDomain(const std::string& name);
    /// Without an ID the array chooses one.
    void addDomainSet(DomainSet set, std::optional<qrv_u32> id);

    const api_SystemFacts_t& facts() const { return facts_; }
    const std::string& serverUser() const { return serverUser_; }
    const User* findUser(const std::string& name) const;
    /// What one of the users has for a password; empty without users.
    std::string somePassword() const {
        return users_.empty() ? std::string() : users_.begin()->second.password;
    }
    const std::map<lpid_t, Port>& ports() const { return ports_; }
    const std::map<unsigned, Persona>& personas() const { return personas_; }
    const std::map<qrv_u32, DomainSet>& domainSets() const { return domainSets_; }
    void requireDomain(const std::string& name) const;

    EventLog& eventLog() { return eventLog_; }
    const EventLog& eventLog() const { return eventLog_; }

    // ---- Hosts and paths ------------------------------------------------------------------------

    void addHost(HostDefinition host);
    /// Makes a host as a client does: with notes, CHAP and initiators out of `change`.
    void createHost(HostDefinition host, const HostChange& change);
    void changeHost(const std::string& name, const HostChange& change);
    /// An empty domain takes the host out of its own.
    void setHostDomain(const std::string& name, const std::string& domain);
    void removeHost(const std::string& name);
    /// Removes a host; its initiators stay on the ports that see them, as paths of no host.
    void releaseHost(const std::string& name);
    void addHostSet(const std::string& name, const std::vector<std::string>& members);

    /// An empty host name means the paths of no host. An initiator may be on several ports, but on
    /// one port it belongs to one host.
    void addPath(const std::string& hostName, const PathDefinition& path);
    /// Without a port all paths of the initiator to that host go.
    void removePath(const std::string& hostName, const Initiator& initiator,
                    std::optional<lpid_t> port);
    /// Refuses as removePath() would.
    void requirePath(const std::string& hostName, const Initiator& initiator,
                     std::optional<lpid_t> port) const;
    /// Takes an initiator from a host; it stays on the ports that see it, as paths of no host.
    void releasePath(const std::string& hostName, const Initiator& initiator);

    /// Refuses the empty and the unknown name.
    const Host& host(const std::string& name) const;
    /// Null for an unknown name.
    const Host* findHost(const std::string& name) const;
    const std::list<Host>& hosts() const { return hosts_; }
    /// Becomes null with every change of a host or a path.
    LatestHosts& latestHosts() const { return latestHosts_; }
    /// Holds the paths of no host; has neither name nor ID nor persona.
    const Host& unassigned() const { return unassigned_; }
    /// All paths of one initiator, in the array's order, those of no host last.
    std::vector<const Path*> pathsOf(const Initiator& initiator) const;
    std::size_t pathCount() const { return pathIndex_.size(); }

    // ---- Volumes and VLUNs ----------------------------------------------------------------------

    void addVolume(VolumeDefinition volume);
    /// One record, or one for each host of the host set.
    void addVlun(const VlunDefinition& vlun);
    void removeVlun(const VlunDefinition& vlun);

    Volumes& volumes() { return volumes_; }
    const Volumes& volumes() const { return volumes_; }
    const Vluns& vluns() const { return vluns_; }

  private:
    using HostPlace = std::list<Host>::iterator;
    using PathPlace = std::list<Path>::iterator;

    /// To be called before anything changes that a reader sees of hosts and paths.
    void hostsChange();
    HostPlace placeOf(const std::string& name) const;
    const Host& pathHolder(const std::string& hostName) const;
    Host& pathHolder(const std::string& hostName);
    const Persona& persona(unsigned number) const;
    const Port& port(lpid_t id) const;
    const Port* portFor(const PathDefinition& path) const;
    void refuseName(const std::string& name) const;
    void refuseSecondPath(const Host& host, const PathDefinition& path) const;
    void refuseInitiators(const Host* host, const std::vector<Initiator>& initiators) const;
    void refuseRemoval(const Host& host) const;
    qrv_u32 freeHostId(std::optional<qrv_u32> wanted) const;
    void rename(HostPlace host, const std::string& name);
    void giveInitiator(Host& host, const Initiator& initiator);
    void move(PathPlace path, Host& from, Host& to);
    /// Leaves the path with no host, or takes it out when no port sees it; gives the next.
    PathPlace release(PathPlace path, Host& host);
    void unindex(PathPlace path);
    std::vector<PathPlace> placesOf(const Initiator& initiator) const;
    Vlun recordOf(const VlunDefinition& vlun);
    std::vector<Host*> hostsOf(const VlunDefinition& vlun);
    template <class Visitor>
    void forEachRecord(const VlunDefinition& vlun, Visitor&& visit);

    api_SystemFacts_t facts_{};
    std::string serverUser_;
    std::map<std::string, User> users_;
    std::map<lpid_t, Port> ports_;
    std::map<unsigned, Persona> personas_;
    std::set<std::string> domains_;
    std::map<qrv_u32, DomainSet> domainSets_;
    std::list<Host> hosts_;
    Host unassigned_;
    mutable LatestHosts latestHosts_;
    std::unordered_map<std::string, HostPlace> hostsByName_;
    std::unordered_set<qrv_u32> hostIds_;
    std::map<std::string, HostSet> hostSets_;
    std::unordered_multimap<std::size_t, PathPlace> pathIndex_;  // by the initiator's hash
    qrv_u32 nextHostId_ = 0;
    std::uint64_t nextOrder_ = 0;
    Volumes volumes_;
    Vluns vluns_;
    EventLog eventLog_;
};

}  // namespace qrvapi
