#include "Call.h"
#include "Simulator.h"
#include "Text.h"
#include "qrvapi/ports.h"

using namespace qrvapi;

namespace {

std::vector<const Port*> iscsiPortsOf(const Model& model) {
    std::vector<const Port*> ports;
    for (const auto& [id, port] : model.ports()) {
        if (port.type == PORT_TYPE_ISCSI) ports.push_back(&port);
    }
    return ports;
}

struct PortBlock {
    Records<api_ISCSIPort_t> records;
    unsigned count;
};

PortBlock readIscsiPorts(const Model& model) {
    const auto ports = iscsiPortsOf(model);
    if (ports.empty()) return {nullptr, 0};
    auto records = newRecords<api_ISCSIPort_t>(ports.size());
    for (std::size_t i = 0; i < ports.size(); ++i) {
        copyText(records[i].deviceID, portIdText(ports[i]->id));
        records[i].portID = ports[i]->id;
        copyText(records[i].iscsiName, ports[i]->iscsiName);
    }
    return {std::move(records), static_cast<unsigned>(ports.size())};
}

/// The ID of the first port that is wanted.
template <class Wanted>
lpid_t findPort(std::string_view name, Wanted&& wanted) {
    return Simulator::instance().read([&](const Model& model) {
        for (const auto& [id, port] : model.ports()) {
            if (wanted(port)) return id;
        }
        throw Refusal(ERR_QRV_PORT_NOTFOUND, {name});
    });
}

void requireAnswer(const void* place) {
    if (place == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"port"});
}

}  // namespace

int api_getISCSIPorts(api_ISCSIPortsInfo_t* info) {
    return codeCall(Function::api_getISCSIPorts, noArguments, [&] {
        if (info == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"info"});
        auto block = Simulator::instance().read(readIscsiPorts);
        *info = {block.count, handOutBlock(std::move(block.records))};
        return 0;
    });
}

int api_convertStrLPIDtoPortID(const char* text, qrv_u16* port) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.text("text", text); };
    return codeCall(Function::api_convertStrLPIDtoPortID, describeArguments, [&] {
        requireAnswer(port);
        const auto number = parsePortId(orEmpty(text));
        if (!number) throw Refusal(ERR_API_INVALID_ARGUMENT, {"text"});
        *port = *number;
        return 0;
    });
}

int api_getFCPortLPID(qrv_u64 wwn, lpid_t* port) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.wwn("wwn", wwn); };
    return codeCall(Function::api_getFCPortLPID, describeArguments, [&] {
        requireAnswer(port);
        *port = findPort(wwnText(wwn), [&](const Port& each) {
            return each.type == PORT_TYPE_FC && each.address == wwn;
        });
        return 0;
    });
}

int api_getiSCSIPortLPID(const char* name, lpid_t* port) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.text("name", name); };
    return codeCall(Function::api_getiSCSIPortLPID, describeArguments, [&] {
        requireAnswer(port);
        *port = findPort(orEmpty(name), [&](const Port& each) {
            return each.type == PORT_TYPE_ISCSI && equalWithoutCase(each.iscsiName, orEmpty(name));
        });
        return 0;
    });
}
