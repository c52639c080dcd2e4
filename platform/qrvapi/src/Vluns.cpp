#include "Vluns.h"

#include <algorithm>
#include <tuple>

namespace qrvapi {

bool Vlun::operator==(const Vlun& other) const {
    const auto fields = [](const Vlun& vlun) {
        return std::tie(vlun.volume, vlun.volumeSet, vlun.host, vlun.initiator, vlun.port, vlun.lun,
                        vlun.kind, vlun.portType, vlun.access);
    };
    return fields(*this) == fields(other);
}

bool Vluns::remove(const Vlun& vlun, bool isTemplate) {
    auto& list = listOf(isTemplate);
    const auto place = std::find(list.begin(), list.end(), vlun);
    if (place == list.end()) return false;
    list.erase(place);
    return true;
}

}  // namespace qrvapi
