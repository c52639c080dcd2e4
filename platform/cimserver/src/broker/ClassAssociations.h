// Associations between classes, as their declarations tell.
#pragma once

#include "broker/ClassRepository.h"

namespace cimserver {

/// An association class ties a class that one of its references is declared for, or a descendant of
/// that, to the classes of its other references.
class ClassAssociations {
  public:
    explicit ClassAssociations(const ClassRepository& repository) : _repository(repository) {}

    /// The association classes that `source` takes part in, in the role if one is given.
    std::vector<Pegasus::CIMName> referencing(const Pegasus::CIMNamespaceName& nameSpace,
                                              const Pegasus::CIMName& source,
                                              const Pegasus::CIMName& association,
                                              const Pegasus::String& role) const;

    /// The classes at the other ends, each once, as the references declare them.
    std::vector<Pegasus::CIMName> associated(const Pegasus::CIMNamespaceName& nameSpace,
                                             const Pegasus::CIMName& source,
                                             const AssociationFilter& filter) const;

  private:
    const ClassRepository& _repository;
};

}  // namespace cimserver
