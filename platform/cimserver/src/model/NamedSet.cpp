#include "model/NamedSet.h"

using namespace Pegasus;

namespace cimserver {

void Member::refuseName(const char* kind) {
    throw Exception(String("Attempted to change the name of a ") + kind +
                    " already in a container.");
}

void refuseDuplicate(const char* kind, const CIMName& name) {
    throw AlreadyExistsException(String(kind) + " \"" + name.getString() + "\"");
}

}  // namespace cimserver
