// The code of URIs, which CIM-XML uses in HTTP headers.
#pragma once

#include <string>
#include <string_view>

namespace cimserver {

/// The text with every byte as %XX that is not an unreserved URI character.
std::string percentEncoded(std::string_view text);

/// The text with %XX replaced by the byte it stands for. Throws std::invalid_argument when it is
/// malformed.
std::string percentDecoded(std::string_view text);

}  // namespace cimserver
