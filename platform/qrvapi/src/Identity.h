#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "qrvapi/types.h"

namespace qrvapi {

/// Reads one to sixteen hexadecimal digits.
std::optional<qrv_u64> parseWwn(std::string_view text);
/// Sixteen upper-case hexadecimal digits.
std::string wwnText(qrv_u64 wwn);

/// Reads "node:slot:port": nodes 0 to 7, slots 0 to 31, ports 1 to 15.
std::optional<lpid_t> parsePortId(std::string_view text);
/// The reverse; "none" for QRV_NO_PORT.
std::string portIdText(lpid_t port);

/// Reads dotted decimal into network byte order.
std::optional<qrv_u32> parseIpv4(const std::string& text);
std::string ipv4Text(qrv_u32 address);

/// Without case, as iSCSI names are.
bool equalWithoutCase(std::string_view left, std::string_view right);
bool isIscsiName(std::string_view text);
/// Neither nothing nor a number that stands for none.
bool isWwn(qrv_u64 number);
bool isHostName(std::string_view text);

/// Who is at the host's end of a path. Compares as the protocols do: iSCSI names without case.
struct Initiator {
    port_type_t type = PORT_TYPE_UNKNOWN;
    qrv_u64 address = 0;    // WWN or SAS address
    std::string iscsiName;  // with the case it was given in

    std::size_t hash() const;
    std::string text() const;
    bool operator==(const Initiator& other) const;
};

struct InitiatorHash {
    std::size_t operator()(const Initiator& initiator) const { return initiator.hash(); }
};

Initiator fcInitiator(qrv_u64 wwn);
Initiator iscsiInitiator(std::string_view name);

}  // namespace qrvapi
