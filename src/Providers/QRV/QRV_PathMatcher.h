// Matching object paths that were built elsewhere: with a host or without, with references as
// references or as strings.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <optional>

namespace Pegasus {

/// One path, prepared for being matched against many.
///
/// Two paths match when they name the same object: hosts don't count, neither the path's own nor
/// that of a path in one of its keys, and it makes no difference whether such a key is a reference
/// or a string. The namespace counts, so a path without one doesn't match the same path with one.
class PathMatcher {
  public:
    explicit PathMatcher(const CIMObjectPath& target) : _target(target) {}

    bool matches(const CIMObjectPath& candidate) const;

  private:
    CIMObjectPath _target;                             ///< as given
    mutable std::optional<CIMObjectPath> _normalized;  ///< as it is compared, once that is needed
};

/// The path as one of another class with the same keys, for a request that may name an instance by
/// its class's parent.
CIMObjectPath underClass(const CIMObjectPath& path, const CIMName& className);

/// The first of the instances that `instanceName` names; nothing when there is none.
Array<CIMInstance> matching(const CIMObjectPath& instanceName, const Array<CIMInstance>& instances);

}  // namespace Pegasus
