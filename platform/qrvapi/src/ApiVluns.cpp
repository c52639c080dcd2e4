#include "qrvapi/vluns.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

#include "Call.h"
#include "HostRecords.h"
#include "Simulator.h"
#include "StringTable.h"
#include "Text.h"
#include "VlunRecords.h"

using namespace qrvapi;

namespace {

void describeQuery(Arguments& arguments, const api_VLUNsInfo* query) {
    if (query == nullptr) return;
    if (query->vvnameIsSet) arguments.text("vvname", query->vvname);
    if (query->hostnameIsSet) arguments.text("hostname", query->hostname);
    if (query->lunIsSet) arguments.number("lun", query->lun);
    if (query->portIsSet) arguments.text("port", portIdText(query->port).c_str());
    if (query->vluntypeIsSet) arguments.number("vluntype", query->vluntype);
}

// ---- The filters of a question ------------------------------------------------------------------

std::string exportedName(const Vlun& vlun) {
    return vlun.volume != nullptr ? vlun.volume->name : "set:" + vlun.volumeSet->name;
}

/// Refers to the question and the model.
class Filter {
  public:
    Filter(const api_VLUNsInfo& query, const Model& model)
        : query_(query),
          volume_(fieldText(query.vvname)),
          host_(model.findHost(std::string(fieldText(query.hostname)))) {}

    /// Where in a list VLUNs may be that are admitted; null for anywhere.
    const Places* placesIn(const VlunList& list) const {
        const auto* const ofHost = query_.hostnameIsSet ? &list.ofHost(host_) : nullptr;
        const auto* const onPort = query_.portIsSet ? &list.onPort(query_.port) : nullptr;
        if (ofHost == nullptr || onPort == nullptr) return ofHost == nullptr ? onPort : ofHost;
        return ofHost->size() < onPort->size() ? ofHost : onPort;
    }

    bool admits(const Vlun& vlun) const {
        return (!query_.hostnameIsSet || (host_ != nullptr && vlun.host == host_)) &&
               (!query_.vluntypeIsSet || static_cast<unsigned>(vlun.kind) == query_.vluntype) &&
               (!query_.portIsSet || portOf(vlun) == query_.port) &&
               (!query_.lunIsSet || vlun.lun == query_.lun) &&
               (!query_.vvnameIsSet || exportedName(vlun) == volume_);
    }

  private:
    const api_VLUNsInfo& query_;
    std::string_view volume_;
    const Host* host_;
};

// ---- Records ------------------------------------------------------------------------------------

struct Found {
    const Vlun* vlun;
    bool isTemplate;
};

struct VlunBlock {
    Records<api_vlun_t> records;
    unsigned count;
};

template <class HostIndex>
VlunBlock blockOf(const std::vector<Found>& found, HostIndex&& hostIndex) {
    if (found.empty()) return {nullptr, 0};
    auto records = newRecords<api_vlun_t>(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        const auto& [vlun, isTemplate] = found[i];
        fillVlun(records[i], *vlun, isTemplate, hostIndex(vlun->host));
    }
    return {std::move(records), static_cast<unsigned>(found.size())};
}

void handOut(VlunBlock block, api_VLUNsInfo* query) {
    query->count = block.count;
    query->vluns = handOutBlock(std::move(block.records));
}

/// Two VLUNs with the same key make one controller.
std::string controllerKey(const Vlun& vlun) {
    const auto host = vlun.host == nullptr ? QRV_NO_HOST : vlun.host->id;
    return deviceIdOf(vlun) + "/" + std::to_string(vlun.portType) + "/" + std::to_string(host);
}

/// Whether a VLUN is the first of its controller. The table keeps what has been seen.
bool isNewController(StringTable& seen, const Vlun& vlun) {
    const auto key = controllerKey(vlun);
    if (seen.contains(key)) return false;
    seen.put(key, 1);
    return true;
}

// ---- Walks --------------------------------------------------------------------------------------

/// A list of VLUNs, of which a filter may look at some places only.
class Stretch {
  public:
    Stretch(const VlunList& list, const Filter& filter)
        : list_(list), places_(filter.placesIn(list)) {}

    std::size_t length() const { return list_.size(); }
    const Vlun& at(std::size_t place) const { return list_[place]; }

    /// Looks at places from `place` on until `look` answers no. Whether it never did.
    template <class Look>
    bool follow(std::size_t place, Look&& look) const {
        if (places_ == nullptr) {
            while (place < length() && look(place)) ++place;
            return place >= length();
        }
        const auto first = std::lower_bound(places_->begin(), places_->end(), place);
        return std::all_of(first, places_->end(), look);
    }

  private:
    const VlunList& list_;
    const Places* places_;
};

/// The VLUNs that a walk goes through: the active ones, the templates, or both in that order.
class Road {
  public:
    Road(const Vluns& vluns, const Filter& filter, bool active, bool templates)
        : active_(active ? vluns.active() : none(), filter),
          templates_(templates ? vluns.templates() : none(), filter) {}

    std::size_t length() const { return active_.length() + templates_.length(); }

    /// As that of a stretch, with what is there: `look(place, found)`.
    template <class Look>
    bool follow(std::size_t place, Look&& look) const {
        const auto turn = active_.length();
        return active_.follow(place, [&](std::size_t at) {
            return look(at, Found{&active_.at(at), false});
        }) && templates_.follow(std::max(place, turn) - turn, [&](std::size_t at) {
            return look(turn + at, Found{&templates_.at(at), true});
        });
    }

  private:
    static const VlunList& none() {
        static const VlunList list;
        return list;
    }

    Stretch active_;
    Stretch templates_;
};

/// Goes on from `place` until `limit` VLUNs are wanted or the road ends, and moves `place` behind
/// the last of them or to the end.
template <class Wanted>
std::vector<Found> collect(const Road& road, std::size_t& place, std::size_t limit,
                           Wanted&& wanted) {
    std::vector<Found> found;
    if (limit == 0) return found;
    const bool ended = road.follow(place, [&](std::size_t at, const Found& next) {
        if (wanted(*next.vlun)) found.push_back(next);
        place = at + 1;
        return found.size() < limit;
    });
    if (ended) place = road.length();
    return found;
}

/// Stands in a walk's record and keeps the hosts of the walk's start.
struct WalkTable : hashtable {
    using hashtable::hashtable;

    std::shared_ptr<const HostSnapshot> hosts;
};

/// The library's side of a walk's record.
class Walk {
  public:
    explicit Walk(api_spc_param_data* param) : param_(param) {
        refuseUnless(param != nullptr && Ledger::instance().isOut(param->hostHashTable),
                     "the walk's record isn't prepared");
        hosts_ = &static_cast<WalkTable*>(param->hostHashTable)->hosts;
    }

    /// Fixes the hosts that the records point to, at the first chunk.
    void begin(const Model& model) {
        if (*hosts_ != nullptr) return;
        auto hosts = HostSnapshot::of(model);
        Ledger::instance().handOutList(hosts_);
        *hosts_ = std::move(hosts);
        param_->allHosts = (*hosts_)->list();
        param_->sysid = model.facts().id;
    }

    VlunBlock blockOf(const std::vector<Found>& found) const {
        return ::blockOf(found, [&](const Host* host) { return (*hosts_)->indexOf(host); });
    }

    StringTable& seen() { return *param_->stringHashTable; }

    void advance(const VlunBlock& block) {
        param_->spc_count += static_cast<int>(block.count);
        ++param_->mcallRetry;
    }

  private:
    api_spc_param_data* param_;
    std::shared_ptr<const HostSnapshot>* hosts_;
};

std::size_t chunkLimit(qrv_u32 wanted) {
    const auto most = wanted == 0 ? std::numeric_limits<std::size_t>::max() : wanted;
    return std::min(most, Instruments::instance().nextChunkLimit());
}

/// A walk's place in the caller's cursor, in which 0 is the start and the end.
std::size_t placeOf(qrv_u32 cursor) {
    return cursor == 0 ? 0 : cursor - 1;
}

qrv_u32 cursorOf(std::size_t place, const Road& road) {
    return place >= road.length() ? 0 : static_cast<qrv_u32>(place + 1);
}

struct Chunk {
    VlunBlock block;
    qrv_u32 cursor;
};

template <class Wanted>
Chunk readChunk(Walk& walk, const Road& road, qrv_u32 cursor, qrv_u32 size, Wanted&& wanted) {
    auto place = placeOf(cursor);
    auto block = walk.blockOf(collect(road, place, chunkLimit(size), wanted));
    walk.advance(block);
    return {std::move(block), cursorOf(place, road)};
}

VlunBlock readControllers(const Model& model, const api_VLUNsInfo& query) {
    const Filter filter(query, model);
    const Road road(model.vluns(), filter, true, true);
    StringTable seen(500, 0.75F);
    std::size_t place = 0;
    const auto found = collect(road, place, road.length(), [&](const Vlun& vlun) {
        return filter.admits(vlun) && isNewController(seen, vlun);
    });
    return blockOf(found, [](const Host*) { return QRV_NO_HOST; });
}

Chunk readControllerChunk(const Model& model, const api_VLUNsInfo& query, Walk walk, qrv_u32 cursor,
                          qrv_u32 size) {
    walk.begin(model);
    const Filter filter(query, model);
    const Road road(model.vluns(), filter, true, true);
    return readChunk(walk, road, cursor, size, [&](const Vlun& vlun) {
        return filter.admits(vlun) && isNewController(walk.seen(), vlun);
    });
}

Chunk readVlunChunk(const Model& model, const api_VLUNsInfo& query, bool templates, Walk walk,
                    qrv_u32 cursor, qrv_u32 size) {
    walk.begin(model);
    const Filter filter(query, model);
    const Road road(model.vluns(), filter, !templates, templates);
    return readChunk(walk, road, cursor, size,
                     [&](const Vlun& vlun) { return filter.admits(vlun); });
}

// ---- The record of a walk -----------------------------------------------------------------------

template <class Table>
std::unique_ptr<Table> newTable(std::size_t size) {
    failAllocationIfAsked();
    return std::make_unique<Table>(size, 0.75F);
}

}  // namespace

int api_initSPCParamData(api_spc_param_data* param) {
    if (param != nullptr) *param = {};
    return codeCall(Function::api_initSPCParamData, noArguments, [&] {
        refuseUnless(param != nullptr, "param");
        auto seen = newTable<hashtable>(500);
        auto hosts = newTable<WalkTable>(0);
        Ledger::instance().handOutList(hosts.get());
        param->stringHashTable = seen.release();
        param->hostHashTable = hosts.release();
        return 0;
    });
}

void api_freeSPCParamData(api_spc_param_data* param) {
    plainCall(Function::api_freeSPCParamData, noArguments, [&] {
        if (param == nullptr || param->hostHashTable == nullptr) return;
        auto gone = std::exchange(*param, {});
        if (!Ledger::instance().takeBackList(gone.hostHashTable)) {
            return Ledger::instance().report(
                "api_freeSPCParamData was given a record that isn't out");
        }
        const std::unique_ptr<hashtable> seen(gone.stringHashTable);
        const std::unique_ptr<WalkTable> hosts(static_cast<WalkTable*>(gone.hostHashTable));
        Ledger::instance().takeBackList(&hosts->hosts);
    });
}

int api_getSCSIProtocolControllers(api_VLUNsInfo* query) {
    const auto describeArguments = [&](Arguments& arguments) { describeQuery(arguments, query); };
    return codeCall(Function::api_getSCSIProtocolControllers, describeArguments, [&] {
        refuseUnless(query != nullptr, "query");
        handOut(Simulator::instance().read(
                    [&](const Model& model) { return readControllers(model, *query); }),
                query);
        return 0;
    });
}

int api_getSCSIProtocolControllers_chunk(api_VLUNsInfo* query, api_spc_param_data* param,
                                         qrv_u32* cursor_id, qrv_u32 chunk_size) {
    const auto describeArguments = [&](Arguments& arguments) {
        describeQuery(arguments, query);
        arguments.number("chunk_size", chunk_size);
    };
    return codeCall(Function::api_getSCSIProtocolControllers_chunk, describeArguments, [&] {
        refuseUnless(query != nullptr && cursor_id != nullptr, "query and cursor");
        auto chunk = Simulator::instance().read([&](const Model& model) {
            return readControllerChunk(model, *query, Walk(param), *cursor_id, chunk_size);
        });
        *cursor_id = chunk.cursor;
        handOut(std::move(chunk.block), query);
        return 0;
    });
}

int api_getActiveAndTemplateVLUNs_chunk(api_VLUNsInfo* query, qrv_u32* query_switch,
                                        api_spc_param_data* param, qrv_u32* cursor_id,
                                        qrv_u32 chunk_size) {
    const auto describeArguments = [&](Arguments& arguments) {
        describeQuery(arguments, query);
        arguments.number("chunk_size", chunk_size);
    };
    return codeCall(Function::api_getActiveAndTemplateVLUNs_chunk, describeArguments, [&] {
        refuseUnless(query != nullptr && query_switch != nullptr && cursor_id != nullptr,
                     "query, switch and cursor");
        refuseUnless(*query_switch < 2, "the walk is at its end");
        auto chunk = Simulator::instance().read([&](const Model& model) {
            return readVlunChunk(model, *query, *query_switch == 1, Walk(param), *cursor_id,
                                 chunk_size);
        });
        *cursor_id = chunk.cursor;
        if (chunk.cursor == 0) ++*query_switch;
        handOut(std::move(chunk.block), query);
        return 0;
    });
}

void api_freeVLUNs(api_VLUNsInfo* query) {
    plainCall(Function::api_freeVLUNs, noArguments, [&] {
        if (query == nullptr || query->vluns == nullptr) return;
        query->count = 0;
        auto* const records = std::exchange(query->vluns, nullptr);
        if (Ledger::instance().mayBeOut(records)) return std::free(records);
        Ledger::instance().report("api_freeVLUNs was given records that aren't out");
    });
}
