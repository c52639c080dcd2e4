// The constructors and destructors of the interfaces, kept in one library so that each class has
// one identity in all of them.
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/CIMProvider.h>

PEGASUS_NAMESPACE_BEGIN

ResponseHandler::ResponseHandler() = default;
ResponseHandler::ResponseHandler(const ResponseHandler&) = default;
ResponseHandler& ResponseHandler::operator=(const ResponseHandler&) = default;
ResponseHandler::~ResponseHandler() = default;

InstanceResponseHandler::InstanceResponseHandler() = default;
InstanceResponseHandler::~InstanceResponseHandler() = default;

ObjectPathResponseHandler::ObjectPathResponseHandler() = default;
ObjectPathResponseHandler::~ObjectPathResponseHandler() = default;

ObjectResponseHandler::ObjectResponseHandler() = default;
ObjectResponseHandler::~ObjectResponseHandler() = default;

MethodResultResponseHandler::MethodResultResponseHandler() = default;
MethodResultResponseHandler::~MethodResultResponseHandler() = default;

CIMProvider::CIMProvider() = default;
CIMProvider::~CIMProvider() = default;

CIMInstanceProvider::CIMInstanceProvider() = default;
CIMInstanceProvider::~CIMInstanceProvider() = default;

CIMAssociationProvider::CIMAssociationProvider() = default;
CIMAssociationProvider::~CIMAssociationProvider() = default;

CIMMethodProvider::CIMMethodProvider() = default;
CIMMethodProvider::~CIMMethodProvider() = default;

PEGASUS_NAMESPACE_END
