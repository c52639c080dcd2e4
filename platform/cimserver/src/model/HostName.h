// Which texts name a host.
#pragma once

#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

#include <cstddef>

namespace cimserver {

/// Whether the text is a host name, an IPv4 address or a bracketed IPv6 address, with or without a
/// port. The last label of a name must not be a number, or it is an address that is wrong.
bool isHost(const Pegasus::String& text);

/// Whether it is a host name, with no port.
bool isHostName(const Pegasus::Char16* text, std::size_t size);

/// The name of this computer, as paths name it.
PEGASUS_EXPORT Pegasus::String ownHostName();

}  // namespace cimserver
