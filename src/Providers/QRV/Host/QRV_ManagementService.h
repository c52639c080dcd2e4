// What the services of the system have in common: one instance each, hosted by the storage system.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>

namespace Pegasus {

/// What identifies a service.
struct ServiceIdentity {
    CIMName serviceClass;
    String systemName;
    String name;

    CIMObjectPath path(const String& systemAddress) const;
};

/// Who answers for the array; a text that the array doesn't give is empty.
struct ServiceOwner {
    String contact;
    String name;
};

ServiceOwner readServiceOwner();

/// Sets the properties that all services have.
void describeService(CIMInstance& instance, const ServiceIdentity& identity,
                     const ServiceOwner& owner);

}  // namespace Pegasus
