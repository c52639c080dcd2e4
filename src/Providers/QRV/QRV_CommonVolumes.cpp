#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "QRV_Text.h"
#include "QRV_VolumeRemoval.h"

namespace Pegasus {

namespace {

/// Stands between two identifiers in a filter value.
constexpr char SEPARATOR = '|';

constexpr std::size_t MAX_FILTER_VALUE = sizeof api_getvv_filter_t::fval - 1;

/// Whether a key can name a volume. A separator in it would name several, and so would none at all.
bool isIdentifier(const std::string& text) {
    return !text.empty() && text.size() <= MAX_FILTER_VALUE &&
           text.find(SEPARATOR) == std::string::npos;
}

/// Puts an identifier into the last filter value, or into one more when it doesn't fit.
void addIdentifier(std::vector<std::string>& values, const std::string& identifier) {
    if (values.empty() || values.back().size() + 1 + identifier.size() > MAX_FILTER_VALUE)
        values.push_back(identifier);
    else
        values.back() += SEPARATOR + identifier;
}

/// The volumes' identifiers, as few filter values as hold them. Volumes that no identifier can
/// belong to are left out, like those that the array doesn't know.
std::vector<std::string> filterValues(const Array<CIMObjectPath>& volumes) {
    std::vector<std::string> values;
    for (Uint32 i = 0; i < volumes.size(); ++i) {
        const CString key = QRV_Common::getStringProperty(volumes[i], "DeviceID").getCString();
        const std::string identifier = static_cast<const char*>(key);
        if (isIdentifier(identifier)) addIdentifier(values, identifier);
    }
    return values;
}

/// Appends the names of the volumes that one filter value selects.
int appendNames(const std::string& value, qrv_u32 room, Array<String>& names) {
    VolumeFilters filters;
    if (api_getvv_filter_init(filters.receive(), room) != 0)
        return volumesFailed("Cannot create filter list");
    if (api_getvv_filter_add(filters.change(), API_VV_FIELD_DEVICEID, API_VV_OP_EQUALS_ANY,
                             value.c_str()) != 0)
        return volumesFailed("Cannot update filter list");

    qrv_u32 cursor = 0;
    int count = 0;
    api_vv_t* records = nullptr;
    const int failed =
        callArray([&] { return api_getVVs_chunk(&cursor, 0, &*filters, &count, &records, 1); });
    if (failed != 0) return volumesFailed("Failed to query volume");
    for (const api_vv_t& volume : VolumeRecords(records, count)) names.append(volume.elementName);
    return VOLUMES_DONE;
}

using NameBlock = std::unique_ptr<api_name_t[], FreeBlock>;

/// The names in the form that api_removeVVs takes; null when there is no memory.
NameBlock nameBlock(const Array<String>& names) {
    NameBlock block(static_cast<api_name_t*>(std::calloc(names.size(), sizeof(api_name_t))));
    for (Uint32 i = 0; block != nullptr && i < names.size(); ++i)
        copyText(block[i].name, names[i].getCString());
    return block;
}

}  // namespace

int QRV_Common::fillInVVNames(Array<CIMObjectPath>& memberVols, Array<String>& vvNames) {
    if (memberVols.size() == 0) {
        log_message(3, "Empty volume list\n");
        return VOLUMES_NONE_GIVEN;
    }
    std::vector<std::string> values;
    try {
        values = filterValues(memberVols);
    } catch (const std::bad_alloc&) {
        return volumesFailed(
            "QRV_Common::fillInVVNames: Unable to allocate memory for source VV Paths");
    }
    for (const std::string& value : values)
        if (const int failure = appendNames(value, memberVols.size() + 1, vvNames)) return failure;
    return vvNames.size() == 0 ? VOLUMES_FAILED : VOLUMES_DONE;
}

int QRV_Common::fillInVVNames(Array<CIMObjectPath>& memberVols, api_name_t** vvNames,
                              unsigned int* memberCount) {
    if (vvNames == nullptr || memberCount == nullptr)
        return volumesFailed("Invalid parameter memberCount or vvNames");
    *memberCount = 0;
    *vvNames = nullptr;
    Array<String> names;
    if (fillInVVNames(memberVols, names) != 0) return VOLUMES_FAILED;
    *vvNames = nameBlock(names).release();
    if (*vvNames == nullptr) return volumesFailed("Unable to allocate vvNames");
    *memberCount = names.size();
    return VOLUMES_DONE;
}

int QRV_Common::removeVVs(api_evtparam_t* apiEventp, Array<CIMObjectPath>& volRefs, Uint32 noWait) {
    return removeVolumes(apiEventp, volRefs, noWait,
                         [](std::chrono::seconds time) { std::this_thread::sleep_for(time); });
}

void QRV_Common::setMfgFRU(const api_mfg_t* mfg, int saleable, CIMInstance& instance) {
    if (api_is_eos() == 0 || mfg == nullptr) return;
    if (saleable != 0) {
        setPropertyValue(instance, "SaleableSerialNumber", String(mfg->saleable_serial));
        setPropertyValue(instance, "SaleableProductNumber", String(mfg->saleable_product));
    }
    setPropertyValue(instance, "SparePartNumber", String(mfg->spare_part));
    setPropertyValue(instance, "ModelName", String(mfg->orvelis_model_name));
    setPropertyValue(instance, "AssemblyRevision", String(mfg->asmbly_rev));
    setPropertyValue(instance, "Checksum", String(mfg->checksum));
}

}  // namespace Pegasus
