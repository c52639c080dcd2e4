// The host name in a collection's InstanceID.
#pragma once

#include <Pegasus/Common/String.h>

namespace Pegasus {

/// What follows the first colon, or all of a text without one. The vendor mark in front isn't
/// looked at.
inline String textBehindColon(const String& instanceID) {
    const Uint32 colon = instanceID.find(':');
    return colon == PEG_NOT_FOUND ? instanceID : instanceID.subString(colon + 1);
}

}  // namespace Pegasus
