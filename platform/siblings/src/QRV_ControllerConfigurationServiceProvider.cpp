#include "QRV_ControllerConfigurationServiceProvider.h"

#include <QRV_ArrayGate.h>
#include <QRV_ArrayRecords.h>

#include <cctype>
#include <cstdio>

namespace Pegasus {

namespace {

/// A name of 16 digits for an initiator of any length: FNV-1a over its text, ignoring case.
Uint64 digestOf(const char* text) {
    Uint64 digest = 14695981039346656037ULL;
    for (; *text != '\0'; ++text) {
        digest ^= static_cast<unsigned char>(std::tolower(static_cast<unsigned char>(*text)));
        digest *= 1099511628211ULL;
    }
    return digest;
}

/// Whether a host has the name, as far as the array tells; its refusal to take the name settles the
/// rest.
bool isTaken(const char* hostName) {
    HostList hosts;
    return !callArrayForStatus([&] {
                return api_getHosts(hostName, QRV_NO_WWN, nullptr, hosts.receive(), 0, 1);
            }).failed();
}

}  // namespace

String QRV_ControllerConfigurationServiceProvider::generateHostName(String& storageID,
                                                                    Boolean isFC) {
    constexpr unsigned int attempts = 100;
    const Uint64 digest = digestOf(storageID.getCString());
    const char* const kind = isFC ? "FC" : "iSCSI";
    char name[sizeof(api_Host_t::name)];
    std::snprintf(name, sizeof name, "%s_%016llX", kind, digest);
    for (unsigned int i = 2; i < attempts && isTaken(name); ++i)
        std::snprintf(name, sizeof name, "%s_%016llX_%u", kind, digest, i);
    return name;
}

}  // namespace Pegasus
