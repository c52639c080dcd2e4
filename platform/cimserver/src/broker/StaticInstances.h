// The instances that stand in the repository, for classes that no provider answers for.
#pragma once

#include "broker/ClassRepository.h"

namespace cimserver {

/// Answers as a provider would; everything given out is a copy. They cannot be changed.
class StaticInstances {
  public:
    explicit StaticInstances(const ClassRepository& repository) : _repository(repository) {}

    /// Throws CIM_ERR_NOT_FOUND with the path, without host and namespace.
    Pegasus::CIMInstance get(const Pegasus::CIMNamespaceName& nameSpace,
                             const Pegasus::CIMObjectPath& path) const;

    void enumerate(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
                   const Sink<Pegasus::CIMInstance>& sink) const;
    void enumerateNames(const Pegasus::CIMNamespaceName& nameSpace,
                        const Pegasus::CIMName& className,
                        const Sink<Pegasus::CIMObjectPath>& sink) const;

    /// Throw: CIM_ERR_FAILED for an abstract class, CIM_ERR_NOT_FOUND for an instance that is not
    /// there, else CIM_ERR_NOT_SUPPORTED.
    [[noreturn]] void refuseCreation(const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMName& className) const;
    [[noreturn]] void refuseChange(const Pegasus::CIMNamespaceName& nameSpace,
                                   const Pegasus::CIMObjectPath& path) const;

  private:
    const Pegasus::CIMInstance& find(const Pegasus::CIMNamespaceName& nameSpace,
                                     const Pegasus::CIMObjectPath& path) const;

    const ClassRepository& _repository;
};

}  // namespace cimserver
