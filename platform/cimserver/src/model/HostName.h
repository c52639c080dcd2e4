// Which texts name a host.
#pragma once

#include <Pegasus/Common/String.h>

namespace cimserver {

/// Whether the text is a host name, an IPv4 address or a bracketed IPv6 address, with or without a
/// port. The last label of a name must not be a number, or it is an address that is wrong.
bool isHost(const Pegasus::String& text);

}  // namespace cimserver
