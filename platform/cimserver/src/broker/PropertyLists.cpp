#include "broker/PropertyLists.h"

#include "broker/FoldedName.h"

#include <unordered_set>

namespace cimserver {

using namespace Pegasus;

CIMPropertyList withoutDuplicates(const CIMPropertyList& list) {
    if (list.size() < 2) return list;
    std::unordered_set<CIMName, FoldedHash, FoldedEqual> seen;
    Array<CIMName> names;
    for (Uint32 i = 0; i != list.size(); ++i)
        if (seen.insert(list[i]).second) names.append(list[i]);
    return CIMPropertyList(names);
}

CIMPropertyList allProperties(const CIMConstClass& cimClass) {
    Array<CIMName> names;
    for (Uint32 i = 0; i != cimClass.getPropertyCount(); ++i)
        names.append(cimClass.getProperty(i).getName());
    return CIMPropertyList(names);
}

}  // namespace cimserver
