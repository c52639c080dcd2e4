// Any bytes as the key of an initiator, a host, a persona or a domain set: what is there is found
// by its own InstanceID, and nothing that isn't.
#include "KeyedInstance.h"

#include <cstddef>
#include <cstdint>
#include <set>

using namespace Pegasus;

namespace {

const struct {
    const char* className;
    const char* ending;
    std::set<std::string> known;
} CLASSES[] = {
    {"QRV_StorageHardwareID", "Provider", {"ORVELIS:FC-00000000000000A1", "ORVELIS:iSCSI-iqn.a"}},
    {"QRV_StorageHardwareIDCollection", "Provider", {"ORVELIS:alpha"}},
    {"QRV_StorageClientSettingData", "Provider", {"ORVELIS:PERSONA-1"}},
    {"QRV_StorageDomainGroup", "", {"ORVELIS:coast"}},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(static_cast<const char*>(static_cast<const void*>(data)), size);
    String key;
    try {
        key = String(text.data(), Uint32(size));
    } catch (const Exception&) {
        return 0;  // no UTF-8
    }
    for (const auto& each : CLASSES) {
        const String found = findInstance(each.className, key, each.ending);
        const std::string id = static_cast<const char*>(found.getCString());
        require(each.known.count(text) == 0 || id == text);
        require(id.empty() || each.known.count(id) == 1);
    }
    return 0;
}
