// The rights that the server has in its operating system.
#pragma once

#include <string>

namespace cimserver {

/// Keeps this thread, and all that it starts, from ever gaining rights; called before there are
/// others, it holds for the process. Throws std::system_error when it can't.
void forbidNewRights();

/// When root runs this process, makes it one of `user` for good, with the groups of that user; does
/// nothing otherwise. Throws std::runtime_error with the reason when it can't.
void leaveRoot(const std::string& user);

}  // namespace cimserver
