#include "Call.h"
#include "Simulator.h"
#include "Text.h"
#include "qrvapi/sets.h"

using namespace qrvapi;

namespace {

using MemberName = char[32];

struct MemberRecord {
    MemberName name;
};

using SetRecords = NestedRecords<api_set_t, MemberRecord>;

std::vector<const DomainSet*> setsOf(const Model& model, std::string_view name) {
    std::vector<const DomainSet*> sets;
    for (const auto& [id, set] : model.domainSets()) {
        if (name.empty() || set.name == name) sets.push_back(&set);
    }
    if (sets.empty() && !name.empty()) throw Refusal(ERR_QRV_SET_NOTFOUND, {name});
    return sets;
}

void addSet(SetRecords& records, const DomainSet& set) {
    auto& record = records.addOuter();
    record.type = SET_TYPE_DOMAIN;
    record.id = set.id;
    copyText(record.name, set.name);
    copyText(record.comment, set.comment);
    record.count = static_cast<qrv_u32>(set.members.size());
    record.values = &records.innerPlace()->name;
    for (const auto& member : set.members) copyText(records.addInner().name, member);
}

api_setlist readSets(const Model& model, std::string_view name) {
    const auto sets = setsOf(model, name);
    if (sets.empty()) return {SET_TYPE_DOMAIN, 0, nullptr};
    std::size_t members = 0;
    for (const auto* set : sets) members += set->members.size();
    SetRecords records(sets.size(), members);
    for (const auto* set : sets) addSet(records, *set);
    return {SET_TYPE_DOMAIN, records.count(), records.handOut()};
}

}  // namespace

api_Status_t api_getDomainSets(const char* setName, int reserved, api_setlist* list) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.text("setName", setName);
    };
    return statusCall(Function::api_getDomainSets, describeArguments, [&] {
        if (list == nullptr || reserved != 0) {
            throw Refusal(ERR_API_INVALID_ARGUMENT, {"list and reserved"});
        }
        *list = Simulator::instance().read(
            [&](const Model& model) { return readSets(model, orEmpty(setName)); });
    });
}

void api_freeSets(api_setlist* list) {
    plainCall(Function::api_freeSets, noArguments, [&] {
        if (list == nullptr) return;
        list->count = 0;
        giveBackList(Function::api_freeSets, list->sets);
    });
}
