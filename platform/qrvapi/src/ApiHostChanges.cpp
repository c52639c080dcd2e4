#include "Change.h"
#include "Text.h"
#include "qrvapi/hostchanges.h"

using namespace qrvapi;

namespace {

// ---- Arguments ----------------------------------------------------------------------------------

struct InitiatorLists {
    int wwnCount;
    const qrv_u64* wwns;
    int iscsiCount;
    const iscsi_name_t* iscsiNames;
};

std::string asText(qrv_u64 wwn) {
    return wwnText(wwn);
}

std::string asText(const iscsi_name_t& name) {
    return std::string(fieldText(name));
}

template <class Item>
std::string listText(int count, const Item* items) {
    std::string text;
    for (int i = 0; items != nullptr && i < count; ++i) {
        text += (i == 0 ? "" : ",") + asText(items[i]);
    }
    return text;
}

/// A change of CHAP without its secret.
std::string chapText(bool isSet, const api_setChap_t& side) {
    if (!isSet) return "none";
    if (numberIn(side.op) != API_HOST_CHAP_ENABLE) return "disable";
    const bool hex = numberIn(side.secretType) == API_HOST_CHAP_SECRET_HEX;
    return std::string("enable name=") + std::string(fieldText(side.name)) +
           " type=" + (hex ? "hex" : "ascii") + " secret=***";
}

void describeChap(Arguments& arguments, const api_setHostChap_t* chap) {
    const api_setHostChap_t none{};
    const auto& request = chap == nullptr ? none : *chap;
    arguments.text("initChap", chapText(request.isInitChapSet != 0, request.initChap).c_str());
    arguments.text("targetChap",
                   chapText(request.isTargetChapSet != 0, request.targetChap).c_str());
}

void describeNotes(Arguments& arguments, long long count, const objdesc* descs) {
    arguments.number("descCount", count);
    for (long long i = 0; descs != nullptr && i < count; ++i) {
        const auto text =
            std::to_string(descs[i].od_type) + "=" + std::string(fieldText(descs[i].od_value));
        arguments.text("desc", text.c_str());
    }
}

void describeInitiators(Arguments& arguments, const InitiatorLists& lists) {
    arguments.number("wwnCount", lists.wwnCount);
    arguments.text("wwns", listText(lists.wwnCount, lists.wwns).c_str());
    arguments.number("iscsiCount", lists.iscsiCount);
    arguments.text("iscsiNames", listText(lists.iscsiCount, lists.iscsiNames).c_str());
}

// ---- What a change asks for ---------------------------------------------------------------------

Initiator initiatorOf(qrv_u64 wwn) {
    if (!isWwn(wwn)) throw Refusal(ERR_API_WWN_INVALID, {wwnText(wwn)});
    return fcInitiator(wwn);
}

Initiator initiatorOf(const iscsi_name_t& name) {
    const auto text = fieldText(name);
    if (!isIscsiName(text)) throw Refusal(ERR_API_ISCSINAME_INVALID, {text});
    return iscsiInitiator(text);
}

std::vector<Initiator> initiatorsOf(const InitiatorLists& lists) {
    refuseUnless(lists.wwnCount >= 0 && (lists.wwnCount == 0 || lists.wwns), "wwns");
    refuseUnless(lists.iscsiCount >= 0 && (lists.iscsiCount == 0 || lists.iscsiNames),
                 "iscsiNames");
    std::vector<Initiator> initiators;
    initiators.reserve(static_cast<std::size_t>(lists.wwnCount));
    for (int i = 0; i < lists.wwnCount; ++i) initiators.push_back(initiatorOf(lists.wwns[i]));
    for (int i = 0; i < lists.iscsiCount; ++i) {
        initiators.push_back(initiatorOf(lists.iscsiNames[i]));
    }
    return initiators;
}

std::map<std::size_t, std::string> notesOf(long long count, const objdesc* descs) {
    refuseUnless(count >= 0 && (count == 0 || descs != nullptr), "descs");
    std::map<std::size_t, std::string> notes;
    for (long long i = 0; i < count; ++i) {
        if (descs[i].od_type == OBJDESC_NONE) continue;
        refuseUnless(descs[i].od_type <= OBJDESC_HOST_COMMENT, "od_type");
        notes[descs[i].od_type - OBJDESC_HOST_LOCATION] = fieldText(descs[i].od_value);
    }
    return notes;
}

// ---- What it says in the event log --------------------------------------------------------------

void addWords(std::string& words, const std::string& more) {
    words += (words.empty() ? "" : ", ") + more;
}

std::string wordsOf(const std::vector<Initiator>& initiators) {
    std::string words;
    for (const auto& initiator : initiators) addWords(words, "path " + initiator.text());
    return words;
}

std::string wordsOf(const HostChange& change) {
    std::string words = wordsOf(change.initiators);
    if (change.persona) addWords(words, "persona " + std::to_string(*change.persona));
    if (change.chap != nullptr && change.chap->isInitChapSet != 0)
        addWords(words, "initiator CHAP");
    if (change.chap != nullptr && change.chap->isTargetChapSet != 0) addWords(words, "target CHAP");
    if (!change.descriptors.empty()) addWords(words, "notes");
    if (!change.name.empty()) addWords(words, "name " + change.name);
    return words;
}

std::string about(std::string_view hostName, const std::string& words) {
    return words.empty() ? words : "host " + std::string(hostName) + ": " + words;
}

}  // namespace

api_Status_t api_createHost(api_evtparam_t* event, const char* hostName, int wwnCount,
                            const qrv_u64* wwns, int iscsiCount, const iscsi_name_t* iscsiNames,
                            int reservedNumber, const api_setHostChap_t* chap, const void* reserved,
                            const objdesc* descs, int descCount, qrv_u32 persona,
                            const char* domain) {
    const InitiatorLists lists{wwnCount, wwns, iscsiCount, iscsiNames};
    const auto describeArguments = [&](Arguments& arguments) {
        describeInitiators(arguments.event(event).text("hostName", hostName), lists);
        describeChap(arguments, chap);
        describeNotes(arguments, descCount, descs);
        arguments.number("persona", persona).text("domain", domain);
    };
    return statusCall(Function::api_createHost, describeArguments, [&] {
        refuseUnless(reservedNumber == 0 && reserved == nullptr, "reserved");
        HostDefinition host;
        host.name = orEmpty(hostName);
        host.persona = persona;
        host.domain = orEmpty(domain);
        HostChange change;
        change.initiators = initiatorsOf(lists);
        change.chap = chap;
        change.descriptors = notesOf(descCount, descs);
        changeWithEvent(Function::api_createHost, event, [&](Model& model) {
            model.createHost(host, change);
            const auto words = wordsOf(change);
            return about(host.name, words.empty() ? "created" : "created with " + words);
        });
    });
}

api_Status_t api_addPath(api_evtparam_t* event, const char* hostName, int wwnCount,
                         const qrv_u64* wwns, int iscsiCount, const iscsi_name_t* iscsiNames,
                         int reservedNumber, const api_setHostChap_t* chap, const void* reserved,
                         const objdesc* desc) {
    const InitiatorLists lists{wwnCount, wwns, iscsiCount, iscsiNames};
    const auto describeArguments = [&](Arguments& arguments) {
        describeInitiators(arguments.event(event).text("hostName", hostName), lists);
        describeChap(arguments, chap);
        describeNotes(arguments, desc == nullptr ? 0 : 1, desc);
    };
    return statusCall(Function::api_addPath, describeArguments, [&] {
        refuseUnless(reservedNumber == 0 && reserved == nullptr, "reserved");
        HostChange change;
        change.initiators = initiatorsOf(lists);
        change.chap = chap;
        change.descriptors = notesOf(desc == nullptr ? 0 : 1, desc);
        changeWithEvent(Function::api_addPath, event, [&](Model& model) {
            model.changeHost(std::string(orEmpty(hostName)), change);
            return about(orEmpty(hostName), wordsOf(change));
        });
    });
}

api_Status_t api_removePath(api_evtparam_t* event, const char* hostName, int isIscsi, qrv_u64 wwn,
                            const char* iscsiName, int reservedNumber) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.event(event).text("hostName", hostName).number("isIscsi", isIscsi);
        arguments.wwn("wwn", wwn).text("iscsiName", iscsiName);
    };
    return statusCall(Function::api_removePath, describeArguments, [&] {
        refuseUnless(reservedNumber == 0, "reserved");
        const auto initiator = isIscsi != 0 ? iscsiInitiator(orEmpty(iscsiName)) : fcInitiator(wwn);
        changeWithEvent(Function::api_removePath, event, [&](Model& model) {
            model.releasePath(std::string(orEmpty(hostName)), initiator);
            return about(orEmpty(hostName), "without path " + initiator.text());
        });
    });
}

api_Status_t api_setHost(api_evtparam_t* event, const char* hostName, const api_setHostChap_t* chap,
                         unsigned int descCount, const objdesc* descs, qrv_u32 host_cap_flag,
                         qrv_u32 host_cap_value, const char* newName) {
    const auto describeArguments = [&](Arguments& arguments) {
        describeChap(arguments.event(event).text("hostName", hostName), chap);
        describeNotes(arguments, descCount, descs);
        arguments.number("host_cap_flag", host_cap_flag).number("host_cap_value", host_cap_value);
        arguments.text("newName", newName);
    };
    return statusCall(Function::api_setHost, describeArguments, [&] {
        refuseUnless((host_cap_flag & ~API_HOST_CAP_PERSONA) == 0, "host_cap_flag");
        HostChange change;
        if (host_cap_flag != 0) change.persona = host_cap_value;
        change.name = orEmpty(newName);
        change.chap = chap;
        change.descriptors = notesOf(descCount, descs);
        changeWithEvent(Function::api_setHost, event, [&](Model& model) {
            model.changeHost(std::string(orEmpty(hostName)), change);
            return about(orEmpty(hostName), wordsOf(change));
        });
    });
}

api_Status_t api_setHostDomain(api_evtparam_t* event, const char* hostName, const char* domain) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.event(event).text("hostName", hostName).text("domain", domain);
    };
    return statusCall(Function::api_setHostDomain, describeArguments, [&] {
        const auto wanted = orEmpty(domain);
        if (wanted.empty()) throw Refusal(ERR_QRV_DOMAIN_NOTFOUND, {wanted});
        const std::string newDomain(wanted == "-unset" ? std::string_view() : wanted);
        changeWithEvent(Function::api_setHostDomain, event, [&](Model& model) {
            model.setHostDomain(std::string(orEmpty(hostName)), newDomain);
            return about(orEmpty(hostName), "domain " + std::string(wanted));
        });
    });
}

api_Status_t api_removeHost(api_evtparam_t* event, const char* hostName) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.event(event).text("hostName", hostName);
    };
    return statusCall(Function::api_removeHost, describeArguments, [&] {
        changeWithEvent(Function::api_removeHost, event, [&](Model& model) {
            model.releaseHost(std::string(orEmpty(hostName)));
            return about(orEmpty(hostName), "removed");
        });
    });
}
