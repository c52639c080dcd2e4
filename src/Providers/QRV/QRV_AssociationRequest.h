// What an association provider takes for a valid request.
//
// The classes differ in which names they take, not in how they are checked: each provider states
// its names as one AssociationRules table.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/String.h>

#include <initializer_list>
#include <vector>

namespace Pegasus {

/// Names of classes, compared without case.
class ClassNames {
  public:
    ClassNames(std::initializer_list<const char*> names) : _names(names.begin(), names.end()) {}

    bool contains(const CIMName& name) const;
    bool empty() const { return _names.empty(); }

  private:
    std::vector<CIMName> _names;
};

/// What the source object's class says about the rest of a request.
struct SourceSide {
    CIMName sourceClass;
    const char* role = nullptr;        ///< the one role it can play; null: either
    const char* resultRole = nullptr;  ///< the one role of what is asked for; null: either
    ClassNames onlyResults = {};       ///< the result classes it may ask for; empty: all
    ClassNames ownSide = {};           ///< result classes that lie on its own side: refused
};

/// The names an association provider takes. An empty name in a request passes everywhere.
struct AssociationRules {
    ClassNames identifiedSources;  ///< source classes whose InstanceID has to name something
    const char* roles[2];          ///< the roles of the association's ends, compared without case
    ClassNames referenceResults;   ///< result classes of references and referenceNames
    ClassNames associatorResults;  ///< result classes of associators and associatorNames
    bool mayAskForSourceClass;     ///< whether the result class may be the source's own
    std::vector<SourceSide> sides;
};

/// One of the four association operations, as the provider got it.
struct AssociationRequest {
    const char* operation;  ///< "associators", "associatorNames", "references" or "referenceNames"
    CIMObjectPath objectName;
    CIMName associationClass;  ///< logged only: the server has routed by it
    CIMName resultClass;
    String role;
    String resultRole;

    bool wantsAssociations() const;  ///< references or referenceNames: the associations themselves
};

/// Whether the provider refuses the request.
bool isRefused(const AssociationRules& rules, const AssociationRequest& request);

}  // namespace Pegasus
