#include <arpa/inet.h>

#include <algorithm>

#include "Call.h"
#include "Simulator.h"
#include "qrvapi/system.h"

using namespace qrvapi;

namespace {

api_SystemFacts_t readFacts() {
    return Simulator::instance().read([](const Model& model) { return model.facts(); });
}

/// A call that fills one place from the array's facts.
template <class Place, class Fill>
int factCall(Function function, Place* place, Fill&& fill) noexcept {
    return codeCall(function, noArguments, [&] {
        if (place == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"null"});
        fill(readFacts());
        return 0;
    });
}

template <std::size_t Size>
void copyField(const char (&field)[Size], char* buffer) {
    std::copy_n(field, Size, buffer);
}

api_ipaddr_t addressesOf(const api_SystemFacts_t& facts) {
    api_ipaddr_t addresses{};
    const bool hasIpv6 = inet_pton(AF_INET6, facts.ipv6Address, addresses.ipv6_addr) == 1;
    addresses.dual_flag = hasIpv6 ? 3 : 1;
    addresses.ipv4_addr = parseIpv4(facts.ipv4Address).value_or(0);
    return addresses;
}

}  // namespace

int api_getSystemFacts(api_SystemFacts_t* facts) {
    return factCall(Function::api_getSystemFacts, facts,
                    [&](const api_SystemFacts_t& known) { *facts = known; });
}

int api_getSystemContact(char* buffer) {
    return factCall(Function::api_getSystemContact, buffer,
                    [&](const api_SystemFacts_t& facts) { copyField(facts.contact, buffer); });
}

int api_getOwnerName(char* buffer) {
    return factCall(Function::api_getOwnerName, buffer,
                    [&](const api_SystemFacts_t& facts) { copyField(facts.owner, buffer); });
}

int api_getSystemDualIP(api_ipaddr_t* address) {
    return factCall(Function::api_getSystemDualIP, address,
                    [&](const api_SystemFacts_t& facts) { *address = addressesOf(facts); });
}

int cluster_num_nodes_alive(int* count) {
    return factCall(Function::cluster_num_nodes_alive, count, [&](const api_SystemFacts_t& facts) {
        *count = static_cast<int>(facts.nodeCount);
    });
}

int api_is_eos() {
    int answer = 0;
    plainCall(Function::api_is_eos, noArguments, [&] { answer = readFacts().hasUnitRecords; });
    return answer;
}
