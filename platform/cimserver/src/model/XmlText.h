// Character data of CIM-XML: escaped UTF-8, appended to a string.
#pragma once

#include <Pegasus/Common/String.h>

#include <string>
#include <string_view>

namespace cimserver {

/// Appends text so that a reader gets back exactly the same, in an element or in an attribute: the
/// five entities, control characters as references, and a reference for each blank that a reader
/// might drop (at the ends, and every second one in a row). A lone surrogate becomes U+FFFD.
PEGASUS_EXPORT void appendEscaped(std::string& out, const Pegasus::String& text);

/// The same for text that is UTF-8 already.
PEGASUS_EXPORT void appendEscaped(std::string& out, std::string_view utf8);

}  // namespace cimserver
