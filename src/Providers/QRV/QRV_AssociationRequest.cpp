#include "QRV_AssociationRequest.h"

#include <algorithm>

#include "QRV_Common.h"

namespace Pegasus {

namespace {

bool isNamed(const String& name, const char* expected) {
    return expected == nullptr || String::equalNoCase(name, expected);
}

bool isIdentified(const AssociationRules& rules, const CIMObjectPath& source) {
    if (!rules.identifiedSources.contains(source.getClassName())) return true;
    const String instanceID = QRV_Common::getStringProperty(source, "InstanceID");
    return QRV_Common::extractFromInstanceID(instanceID).size() > 0;
}

/// An empty role says nothing; another one has to be one of the two, and the one of its side.
bool isRole(const AssociationRules& rules, const String& role, const char* ofSide) {
    if (role.size() == 0) return true;
    const bool known =
        String::equalNoCase(role, rules.roles[0]) || String::equalNoCase(role, rules.roles[1]);
    return known && isNamed(role, ofSide);
}

const SourceSide* sideOf(const AssociationRules& rules, const CIMName& sourceClass) {
    const auto side =
        std::find_if(rules.sides.begin(), rules.sides.end(),
                     [&](const SourceSide& each) { return each.sourceClass.equal(sourceClass); });
    return side == rules.sides.end() ? nullptr : &*side;
}

bool isAssociatorResult(const AssociationRules& rules, const AssociationRequest& request,
                        const SourceSide* side) {
    const CIMName& result = request.resultClass;
    if (!rules.associatorResults.contains(result)) return false;
    if (!rules.mayAskForSourceClass && result.equal(request.objectName.getClassName()))
        return false;
    if (side == nullptr) return true;
    return !side->ownSide.contains(result) &&
           (side->onlyResults.empty() || side->onlyResults.contains(result));
}

bool isResultClass(const AssociationRules& rules, const AssociationRequest& request,
                   const SourceSide* side) {
    if (request.resultClass.isNull()) return true;
    return request.wantsAssociations() ? rules.referenceResults.contains(request.resultClass)
                                       : isAssociatorResult(rules, request, side);
}

}  // namespace

bool ClassNames::contains(const CIMName& name) const {
    return std::any_of(_names.begin(), _names.end(),
                       [&](const CIMName& each) { return each.equal(name); });
}

bool AssociationRequest::wantsAssociations() const {
    return String::equalNoCase(operation, "references") ||
           String::equalNoCase(operation, "referenceNames");
}

bool isRefused(const AssociationRules& rules, const AssociationRequest& request) {
    const SourceSide* const side = sideOf(rules, request.objectName.getClassName());
    const bool accepted =
        isIdentified(rules, request.objectName) &&
        isRole(rules, request.role, side == nullptr ? nullptr : side->role) &&
        isRole(rules, request.resultRole, side == nullptr ? nullptr : side->resultRole) &&
        isResultClass(rules, request, side);
    return !accepted;
}

}  // namespace Pegasus
