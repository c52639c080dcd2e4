#include "broker/ClassAssociations.h"

#include "broker/FoldedName.h"

#include <algorithm>
#include <unordered_set>

namespace cimserver {

using namespace Pegasus;

namespace {

struct End {
    CIMName role;
    CIMName className;

    bool plays(const String& wanted) const {
        return wanted.size() == 0 || String::equalNoCase(role.getString(), wanted);
    }
};

std::vector<End> endsOf(const CIMConstClass& association) {
    std::vector<End> ends;
    for (Uint32 i = 0; i != association.getPropertyCount(); ++i) {
        const CIMConstProperty property = association.getProperty(i);
        if (property.getType() == CIMTYPE_REFERENCE)
            ends.push_back({property.getName(), property.getReferenceClassName()});
    }
    return ends;
}

}  // namespace

std::vector<CIMName> ClassAssociations::referencing(const CIMNamespaceName& nameSpace,
                                                    const CIMName& source,
                                                    const CIMName& association,
                                                    const String& role) const {
    std::vector<CIMName> found;
    for (const auto& name : _repository.associationsOf(nameSpace, source, association)) {
        const auto ends = endsOf(_repository.resolvedClass(nameSpace, name));
        if (std::any_of(ends.begin(), ends.end(), [&](const End& end) {
                return end.plays(role) && _repository.isA(nameSpace, source, end.className);
            }))
            found.push_back(name);
    }
    return found;
}

std::vector<CIMName> ClassAssociations::associated(const CIMNamespaceName& nameSpace,
                                                   const CIMName& source,
                                                   const AssociationFilter& filter) const {
    const auto isNear = [&](const End& end) {
        return end.plays(filter.role) && _repository.isA(nameSpace, source, end.className);
    };
    const auto isWanted = [&](const End& end) {
        return end.plays(filter.resultRole) &&
               (filter.resultClass.isNull() ||
                _repository.isA(nameSpace, end.className, filter.resultClass));
    };
    std::vector<CIMName> found;
    std::unordered_set<CIMName, FoldedHash, FoldedEqual> seen;
    for (const auto& name :
         _repository.associationsOf(nameSpace, source, filter.associationClass)) {
        const auto ends = endsOf(_repository.resolvedClass(nameSpace, name));
        for (const End& far : ends) {
            const bool reached = std::any_of(ends.begin(), ends.end(), [&](const End& near) {
                return &near != &far && isNear(near);
            });
            if (reached && isWanted(far) && seen.insert(far.className).second)
                found.push_back(far.className);
        }
    }
    return found;
}

}  // namespace cimserver
