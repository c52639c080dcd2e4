// A digest with a key that only this process has.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <string_view>

namespace cimserver {

/// Says whether two texts are the same without keeping them, and spreads texts of strangers over
/// places that they cannot choose.
class SecretDigest {
  public:
    using Value = std::array<unsigned char, 32>;

    /// Hashes a value, of which every byte is as good as another, for an unordered container.
    struct Hash {
        std::size_t operator()(const Value& value) const {
            std::size_t part = 0;
            std::memcpy(&part, value.data(), sizeof(part));
            return part;
        }
    };

    /// Takes a key at random. Throws std::runtime_error when the system has none to give.
    SecretDigest();
    explicit SecretDigest(const Value& key) : _key(key) {}

    /// The digest of several texts; where one ends and the next begins counts.
    Value of(std::initializer_list<std::string_view> texts) const;

  private:
    Value _key;
};

}  // namespace cimserver
