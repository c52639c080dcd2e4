// The providers of one library, by name: what the library's entry looks into.
#pragma once

#include <Pegasus/Provider/CIMProvider.h>

#include <cstddef>

namespace Pegasus {

/// One provider of a library.
struct ProviderEntry {
    const char* name;
    CIMProvider* (*create)();
};

/// For the tables: a provider of a class that needs nothing to be made.
template <class Provider>
CIMProvider* create() {
    return new Provider();
}

/// Creates the provider of that name, in whatever case, or returns null when the library has none.
template <std::size_t COUNT>
CIMProvider* createProvider(const ProviderEntry (&table)[COUNT], const String& name) {
    for (const ProviderEntry& entry : table)
        if (String::equalNoCase(name, entry.name)) return entry.create();
    return nullptr;
}

}  // namespace Pegasus
