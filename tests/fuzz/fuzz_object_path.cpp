// What is an object path stays the same path when it is written and read again.
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "Require.h"

using namespace Pegasus;

namespace {

std::optional<CIMObjectPath> readPath(const char* text, Uint32 size) {
    try {
        return CIMObjectPath(String(text, size));
    } catch (const Exception&) {
        return std::nullopt;  // no UTF-8, or no path
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* text = static_cast<const char*>(static_cast<const void*>(data));
    if (const auto path = readPath(text, Uint32(size))) {
        const CIMObjectPath again(path->toString());
        require(again.identical(*path));
        require(again.toString() == path->toString());
        require(again.makeHashCode() == path->makeHashCode());
        // As a key, its text becomes the one that the path is written as.
        const CIMKeyBinding key("Key", String(text, Uint32(size)), CIMKeyBinding::REFERENCE);
        const CIMObjectPath link(String(), {}, "Link", Array<CIMKeyBinding>(&key, 1));
        require(link.getKeyBindings()[0].getValue() == path->toString());
    }
    return 0;
}
