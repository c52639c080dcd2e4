// Any text is either read or refused with a MofError that names a place.
#include "mof/MofReader.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

constexpr const char* Declarations = R"(
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);
Qualifier Description : string = null, Scope(any), Flavor(Translatable);
Qualifier EmbeddedInstance : string = null, Scope(property);
Qualifier EmbeddedObject : boolean = false, Scope(property);
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
class A { [Key] string K; uint8 N[2]; };
)";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    cimserver::ClassRepository repository;
    cimserver::MofReader reader(repository);
    reader.readText(Declarations, "declarations", "root/fuzz");
    try {
        reader.readText({reinterpret_cast<const char*>(data), size}, "input", "root/fuzz");
    } catch (const cimserver::MofError& e) {
        if (std::string(e.what()).rfind("input:", 0) != 0) std::abort();
    }
    return 0;
}
