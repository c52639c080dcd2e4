#include "qrvapi/volumes.h"

#include <algorithm>
#include <set>

#include "Change.h"
#include "Text.h"

using namespace qrvapi;

namespace {

// ---- Records ------------------------------------------------------------------------------------

struct VolumeBlock {
    Records<api_vv_t> records;
    int count;
};

void fillVolume(api_vv_t& record, const Volume& volume) {
    copyText(record.elementName, volume.name);
    copyText(record.deviceID, volume.wwn);
    record.id = volume.id;
    record.type = volume.type;
    record.sizeMB = volume.sizeMB;
    copyText(record.domain, volume.domain);
    copyText(record.comment, volume.comment);
    record.isLocked = volume.locked ? 1 : 0;
}

VolumeBlock blockOf(const std::vector<const Volume*>& volumes) {
    if (volumes.empty()) return {nullptr, 0};
    auto records = newRecords<api_vv_t>(volumes.size());
    for (std::size_t i = 0; i < volumes.size(); ++i) fillVolume(records[i], *volumes[i]);
    return {std::move(records), static_cast<int>(volumes.size())};
}

void handOut(VolumeBlock block, int* count, api_vv_t** records) {
    *count = block.count;
    *records = handOutBlock(std::move(block.records));
}

// ---- Selection ----------------------------------------------------------------------------------

/// Volumes by ID, which is the array's order.
using Selection = std::map<qrv_u32, const Volume*>;

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

void select(Selection& selection, const Volume* volume) {
    if (volume != nullptr) selection.emplace(volume->id, volume);
}

Selection everything(const Volumes& volumes) {
    Selection selection;
    for (const auto& [id, volume] : volumes.all()) selection.emplace(id, &volume);
    return selection;
}

/// The volumes of a list of WWNs with vertical bars between them.
Selection volumesOf(const Volumes& volumes, std::string_view wwns) {
    Selection selection;
    while (!wwns.empty()) {
        const auto end = std::min(wwns.find('|'), wwns.size());
        select(selection, volumes.findWwn(upperCase(wwns.substr(0, end))));
        wwns.remove_prefix(std::min(end + 1, wwns.size()));
    }
    return selection;
}

void keepCommon(Selection& selection, const Selection& other) {
    for (auto entry = selection.begin(); entry != selection.end();) {
        entry = other.count(entry->first) != 0 ? std::next(entry) : selection.erase(entry);
    }
}

/// Those of a list that is out; a list that isn't has none.
qrv_u32 conditionsIn(const api_getvv_filters_t* filters) {
    const bool isList = filters != nullptr && Ledger::instance().isOut(filters->vvfilter);
    return isList ? std::min(filters->used_count, filters->init_count) : 0;
}

Selection select(const Volumes& volumes, const api_getvv_filters_t* filters) {
    const auto count = conditionsIn(filters);
    if (count == 0) return everything(volumes);
    auto selection = volumesOf(volumes, fieldText(filters->vvfilter[0].fval));
    for (qrv_u32 i = 1; i < count; ++i) {
        keepCommon(selection, volumesOf(volumes, fieldText(filters->vvfilter[i].fval)));
    }
    return selection;
}

Selection select(const Volumes& volumes, const std::string& name, std::string_view wwn) {
    if (name.empty() && wwn.empty()) return everything(volumes);
    Selection selection;
    select(selection, name.empty() ? volumes.findWwn(upperCase(wwn)) : volumes.find(name));
    return selection;
}

struct VolumeChunk {
    VolumeBlock block;
    qrv_u32 cursor;
};

/// The cursor is the least ID that may come next.
VolumeChunk readChunk(const Selection& selection, qrv_u32 cursor, qrv_u32 size) {
    std::vector<const Volume*> volumes;
    auto entry = selection.lower_bound(cursor);
    for (; entry != selection.end() && (size == 0 || volumes.size() < size); ++entry) {
        volumes.push_back(entry->second);
    }
    return {blockOf(volumes), entry == selection.end() ? 0 : entry->first};
}

// ---- Removal ------------------------------------------------------------------------------------

std::vector<std::string> namesOf(const api_name_t* names, unsigned count) {
    refuseUnless(count == 0 || names != nullptr, "names");
    std::vector<std::string> list;
    for (unsigned i = 0; i < count; ++i) list.emplace_back(fieldText(names[i].name));
    return list;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const auto& name : names) text += (text.empty() ? "" : ",") + name;
    return text;
}

}  // namespace

int api_getVVs(const char* name, const char* deviceID, int* count, api_vv_t** records,
               int reserved) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.text("name", name).text("deviceID", deviceID);
    };
    return codeCall(Function::api_getVVs, describeArguments, [&] {
        refuseUnless(count != nullptr && records != nullptr, "count and records");
        refuseUnless(reserved == 1, "reserved");
        const std::string wanted(orEmpty(name));
        handOut(Simulator::instance().read([&](const Model& model) {
            const auto selection = select(model.volumes(), wanted, orEmpty(deviceID));
            return readChunk(selection, 0, 0).block;
        }),
                count, records);
        return 0;
    });
}

int api_getVVs_chunk(qrv_u32* cursor, qrv_u32 chunkSize, const api_getvv_filters_t* filters,
                     int* count, api_vv_t** records, int reserved) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.number("chunkSize", chunkSize);
        for (qrv_u32 i = 0; i < conditionsIn(filters); ++i) {
            arguments.text("filter", filters->vvfilter[i].fval);
        }
    };
    return codeCall(Function::api_getVVs_chunk, describeArguments, [&] {
        refuseUnless(cursor != nullptr && count != nullptr && records != nullptr,
                     "cursor, count and records");
        refuseUnless(reserved == 1, "reserved");
        refuseUnless(filters == nullptr || Ledger::instance().isOut(filters->vvfilter), "filters");
        auto chunk = Simulator::instance().read([&](const Model& model) {
            return readChunk(select(model.volumes(), filters), *cursor, chunkSize);
        });
        *cursor = chunk.cursor;
        handOut(std::move(chunk.block), count, records);
        return 0;
    });
}

int api_getvv_filter_init(api_getvv_filters_t* filters, qrv_u32 count) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.number("count", count); };
    return codeCall(Function::api_getvv_filter_init, describeArguments, [&] {
        refuseUnless(filters != nullptr && count != 0, "filters and count");
        auto conditions = newRecords<api_getvv_filter_t>(count);
        Ledger::instance().handOutList(conditions.get());
        *filters = {count, 0, 0, 0, conditions.release()};
        return 0;
    });
}

int api_getvv_filter_add(api_getvv_filters_t* filters, int field, int op, const char* value) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.number("field", field).number("op", op).text("value", value);
    };
    return codeCall(Function::api_getvv_filter_add, describeArguments, [&] {
        refuseUnless(filters != nullptr && Ledger::instance().isOut(filters->vvfilter) &&
                         filters->used_count < filters->init_count,
                     "filters");
        refuseUnless(field == API_VV_FIELD_DEVICEID && op == API_VV_OP_EQUALS_ANY, "field and op");
        const auto text = orEmpty(value);
        auto& condition = filters->vvfilter[filters->used_count];
        refuseUnless(text.size() < sizeof condition.fval, "value");
        condition = {field, op, static_cast<qrv_u32>(text.size()), {}};
        copyText(condition.fval, text);
        ++filters->used_count;
        filters->total_fvallen += condition.fval_len;
        return 0;
    });
}

void api_getvv_filter_free(api_getvv_filters_t* filters) {
    plainCall(Function::api_getvv_filter_free, noArguments, [&] {
        if (filters == nullptr) return;
        auto* conditions = filters->vvfilter;
        *filters = {};
        giveBackList(Function::api_getvv_filter_free, conditions);
    });
}

int api_removeVVs(api_evtparam_t* event, const api_name_t* names, unsigned int count, qrv_u8 noWait,
                  int reserved) {
    const auto describeArguments = [&](Arguments& arguments) {
        const auto list = names == nullptr ? std::string() : joined(namesOf(names, count));
        arguments.event(event).text("names", list.c_str()).number("count", count);
        arguments.number("noWait", noWait);
    };
    return codeCall(Function::api_removeVVs, describeArguments, [&]() -> int {
        refuseUnless(reserved == 0, "reserved");
        const auto list = namesOf(names, count);
        std::vector<std::string> missing;
        changeWithEvent(Function::api_removeVVs, event, [&](Model& model) {
            missing = model.volumes().remove(list);
            const auto words = "volumes " + joined(list) + ": removed";
            if (list.empty()) return std::string();
            return missing.empty() ? words : words + " but for " + joined(missing);
        });
        return missing.empty() ? 0 : API_VV_SOME_NOTFOUND;
    });
}
