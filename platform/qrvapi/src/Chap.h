#pragma once

#include <string>
#include <string_view>

#include "qrvapi/hostchanges.h"

namespace qrvapi {

/// One direction of CHAP. The secret is in bytes and leaves the array nowhere.
struct ChapSide {
    bool enabled = false;
    std::string name;
    std::string secret;
};

struct HostChap {
    ChapSide initiator;
    ChapSide target;
};

/// Reads a secret as its writer gave it; `type` is an api_chapSecretType_t. Throws Refusal.
std::string secretBytes(std::string_view text, int type);

/// What a change makes of `chap`; empty names become `hostName` and `systemName`. Throws Refusal.
HostChap changedChap(HostChap chap, const api_setHostChap_t& change, const std::string& hostName,
                     const std::string& systemName);

/// Throws Refusal when the two directions don't go together.
void requireSound(const HostChap& chap);

}  // namespace qrvapi
