// Names as hash keys: two names that differ only in ASCII case are one key.
#pragma once

#include <Pegasus/Common/CIMName.h>

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace cimserver {

/// FNV-1a over the UTF-16 units of a name, upper-case ASCII letters taken as lower case.
struct FoldedHash {
    std::size_t operator()(const Pegasus::CIMName& name) const { return hash(name.getString()); }
    std::size_t operator()(const Pegasus::CIMNamespaceName& name) const {
        return hash(name.getString());
    }

  private:
    static std::uint64_t folded(Pegasus::Uint16 unit) {
        return unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit;
    }
    static std::size_t hash(const Pegasus::String& text) {
        std::uint64_t h = 0xcbf29ce484222325U;
        const Pegasus::Char16* unit = text.getChar16Data();
        for (const Pegasus::Char16* end = unit + text.size(); unit != end; ++unit)
            h = (h ^ folded(*unit)) * 0x100000001b3U;
        return h;
    }
};

struct FoldedEqual {
    template <class Name>
    bool operator()(const Name& a, const Name& b) const {
        return a.equal(b);
    }
};

template <class Name, class T>
using FoldedMap = std::unordered_map<Name, T, FoldedHash, FoldedEqual>;

}  // namespace cimserver
