#pragma once

#include <string>
#include <string_view>

namespace qrvapi {

/// Whether a kept password is a hash, as crypt(5) describes them, and not the password itself.
inline bool isHash(std::string_view kept) {
    return !kept.empty() && kept.front() == '$';
}

/// Whether a hash is whole and of a method that is still safe.
bool isUsableHash(const std::string& hash);

/// Whether this is the password that was kept, in a time that tells nothing about either. A hash
/// takes as long as its method wants.
bool isPassword(const std::string& given, const std::string& kept);

}  // namespace qrvapi
