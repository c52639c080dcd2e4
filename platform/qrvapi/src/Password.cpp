#include "Password.h"

#include <crypt.h>
#include <cstring>

#include <memory>

namespace qrvapi {
namespace {

struct Wipe {
    void operator()(crypt_data* work) const {
        explicit_bzero(work, sizeof *work);
        delete work;
    }
};

/// The hash of a password by the method and with the salt of another; empty when it has none.
std::string hashLike(const std::string& hash, const std::string& password) {
    if (password.find('\0') != std::string::npos) return {};
    const std::unique_ptr<crypt_data, Wipe> work(new crypt_data{});
    const char* const made = crypt_rn(password.c_str(), hash.c_str(), work.get(), sizeof *work);
    return made == nullptr ? std::string() : made;
}

/// Compares in a time that depends on the given text only.
bool equalInConstantTime(std::string_view given, std::string_view secret) {
    unsigned difference = given.size() == secret.size() ? 0 : 1;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const char expected = secret.empty() ? '\0' : secret[i % secret.size()];
        difference |= static_cast<unsigned>(given[i] ^ expected);
    }
    return difference == 0;
}

}  // namespace

bool isUsableHash(const std::string& hash) {
    return crypt_checksalt(hash.c_str()) == CRYPT_SALT_OK &&
           hashLike(hash, "").size() == hash.size();
}

bool isPassword(const std::string& given, const std::string& kept) {
    return equalInConstantTime(isHash(kept) ? hashLike(kept, given) : given, kept);
}

}  // namespace qrvapi
