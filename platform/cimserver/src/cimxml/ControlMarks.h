// Control characters in XML. They are none of its characters, yet strings of clients and providers
// hold them, and answers write them as references.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cimserver {

/// The text with a noncharacter, which XML may hold, in place of each control character and of each
/// reference to one; nothing when there are none, or when the text holds such noncharacters itself.
/// NUL stays as it is.
std::optional<std::string> withMarks(std::string_view xml);

/// Writes the text, with control characters in place of their marks, and gives its length, which is
/// that of the text at most.
std::size_t writeWithoutMarks(std::string_view text, char* out);

}  // namespace cimserver
