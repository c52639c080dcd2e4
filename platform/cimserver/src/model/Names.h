// Which texts are names.
#pragma once

#include <Pegasus/Common/Char16.h>

namespace cimserver {

/// Whether the text can name a class, property or key, or stand between the slashes of a namespace.
bool isName(const Pegasus::Char16* begin, const Pegasus::Char16* end) noexcept;

}  // namespace cimserver
