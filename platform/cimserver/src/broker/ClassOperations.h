// Reads of class declarations.
#pragma once

#include "broker/ClassRepository.h"

namespace cimserver {

class ClassOperations {
  public:
    explicit ClassOperations(const ClassRepository& repository) : _repository(repository) {}

    Pegasus::CIMClass get(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&, bool localOnly,
                          const Selection&) const;

    /// The subclasses of a class, all descendants when `deep`; of no class: the root classes.
    void enumerate(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&, bool deep,
                   bool localOnly, const Selection&, const Sink<Pegasus::CIMClass>&) const;
    void enumerateNames(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&, bool deep,
                        const Sink<Pegasus::CIMName>&) const;

  private:
    const ClassRepository& _repository;
};

}  // namespace cimserver
