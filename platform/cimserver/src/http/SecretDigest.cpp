#include "http/SecretDigest.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

#include <stdexcept>
#include <string>

namespace cimserver {

SecretDigest::SecretDigest() {
    if (RAND_bytes(_key.data(), static_cast<int>(_key.size())) != 1) {
        throw std::runtime_error("no random numbers");
    }
}

SecretDigest::Value SecretDigest::of(std::initializer_list<std::string_view> texts) const {
    std::string all;
    for (const std::string_view text : texts) {
        all += std::to_string(text.size()) + ":";
        all += text;
    }
    Value value;
    const auto* bytes = reinterpret_cast<const unsigned char*>(all.data());
    const bool done = HMAC(EVP_sha256(), _key.data(), static_cast<int>(_key.size()), bytes,
                           all.size(), value.data(), nullptr) != nullptr;
    OPENSSL_cleanse(all.data(), all.size());
    if (!done) throw std::runtime_error("no digest");
    return value;
}

}  // namespace cimserver
