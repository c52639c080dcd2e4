// Answers of a server that a client cannot use.
#pragma once

#include <Pegasus/Client/Linkage.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// An answer that does not hold what its operation returns.
class PEGASUS_CLIENT_LINKAGE CIMClientXmlException : public Exception {
  public:
    CIMClientXmlException(const String& message);
};

PEGASUS_NAMESPACE_END
