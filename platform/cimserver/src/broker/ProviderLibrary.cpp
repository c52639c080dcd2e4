#include "broker/ProviderLibrary.h"

#include "broker/ProviderCall.h"

#include <dlfcn.h>

#include <filesystem>

namespace cimserver {

using Pegasus::CIM_ERR_FAILED;
using Pegasus::CIMException;
using Pegasus::CIMProvider;
using Pegasus::String;

namespace {

using CreateProvider = CIMProvider*(const String&);

constexpr int kOpenMode = RTLD_NOW | RTLD_LOCAL;

// A library that this process has opened stays usable when the process may no longer read its file.
bool isOpen(const std::string& file) {
    void* const handle = dlopen(file.c_str(), kOpenMode | RTLD_NOLOAD);
    return handle && dlclose(handle) == 0;
}

std::string locate(const std::string& directory, const ProviderId& id) {
    const std::string name = "lib" + id.location + ".so";
    for (const char* version : {"", ".1"}) {
        const auto file = std::filesystem::path(directory) / (name + version);
        std::error_code unreadable;
        if (isOpen(file) || std::filesystem::exists(file, unreadable)) return file.string();
    }
    const std::string message =
        "File \"" + name + "\" was not found for provider module \"" + id.module + "\".";
    throw CIMException(CIM_ERR_FAILED, message.c_str());
}

CIMProvider* call(CreateProvider* entry, const ProviderId& id) try {
    return entry(id.provider.c_str());
} catch (...) {
    throw exceptionInFlight();
}

}  // namespace

void ProviderLibrary::Close::operator()(void* handle) const {
    dlclose(handle);
}

ProviderLibrary::ProviderLibrary(const std::string& directory, const ProviderId& id)
    : _file(locate(directory, id)), _handle(dlopen(_file.c_str(), kOpenMode)) {
    if (!_handle) fail(id, std::string("Cannot load library, error: ") + dlerror());
}

CIMProvider* ProviderLibrary::create(const ProviderId& id) const {
    const auto entry =
        reinterpret_cast<CreateProvider*>(dlsym(_handle.get(), "PegasusCreateProvider"));
    if (!entry) fail(id, "entry point not found.");
    CIMProvider* const provider = call(entry, id);
    if (!provider) fail(id, "provider is not a CIMProvider.");
    return provider;
}

void ProviderLibrary::fail(const ProviderId& id, const std::string& reason) const {
    const std::string message = "ProviderLoadFailure (" + _file + ":" + id.provider + "):" + reason;
    throw CIMException(CIM_ERR_FAILED, message.c_str());
}

}  // namespace cimserver
