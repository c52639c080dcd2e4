#include "Vluns.h"

#include <algorithm>
#include <tuple>

#include "Model.h"

namespace qrvapi {

namespace {

auto identityOf(const Vlun& vlun) {
    return std::tie(vlun.volume, vlun.volumeSet, vlun.host, vlun.initiator, vlun.port, vlun.lun,
                    vlun.kind, vlun.access);
}

}  // namespace

lpid_t portOf(const Vlun& vlun) {
    return vlun.port == nullptr ? QRV_NO_PORT : vlun.port->id;
}

template <class Key>
void PlaceIndex<Key>::add(Key key, std::size_t place) {
    places_[key].push_back(static_cast<std::uint32_t>(place));
}

template <class Key>
void PlaceIndex<Key>::remove(Key key, std::size_t place) {
    const auto from = [place](Places& places) {
        return std::lower_bound(places.begin(), places.end(), place);
    };
    const auto entry = places_.find(key);
    entry->second.erase(from(entry->second));
    if (entry->second.empty()) places_.erase(entry);
    for (auto& [other, places] : places_) {
        std::for_each(from(places), places.end(), [](auto& behind) { --behind; });
    }
}

template <class Key>
const Places& PlaceIndex<Key>::of(Key key) const {
    static const Places none;
    const auto entry = places_.find(key);
    return entry == places_.end() ? none : entry->second;
}

template class PlaceIndex<const Host*>;
template class PlaceIndex<lpid_t>;

void VlunList::add(const Vlun& vlun) {
    vluns_.push_back(vlun);
    byHost_.add(vlun.host, vluns_.size() - 1);
    byPort_.add(portOf(vlun), vluns_.size() - 1);
}

bool VlunList::remove(const Vlun& vlun, std::optional<port_type_t> portType) {
    const auto found = std::find_if(vluns_.begin(), vluns_.end(), [&](const Vlun& each) {
        return identityOf(each) == identityOf(vlun) && (!portType || each.portType == *portType);
    });
    if (found == vluns_.end()) return false;
    const auto place = static_cast<std::size_t>(found - vluns_.begin());
    byHost_.remove(vlun.host, place);
    byPort_.remove(portOf(vlun), place);
    vluns_.erase(found);
    return true;
}

}  // namespace qrvapi
