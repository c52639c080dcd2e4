// What a provider hands its results to.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/OperationContext.h>

PEGASUS_NAMESPACE_BEGIN

/// Takes the results of one operation. The provider uses it during the operation and on its thread
/// only. Every call may throw, and ends the operation then unless the provider catches it.
class PEGASUS_COMMON_LINKAGE ResponseHandler {
  public:
    virtual ~ResponseHandler();

    /// Says that results will come; without effect.
    virtual void processing() = 0;

    /// Says that all results are delivered. What was not completed does not reach the client.
    virtual void complete() = 0;

    /// Context that goes back with the results.
    void setContext(const OperationContext& context) { _context = context; }

  protected:
    ResponseHandler();
    ResponseHandler(const ResponseHandler&);
    ResponseHandler& operator=(const ResponseHandler&);

    OperationContext getContext() const { return _context; }

  private:
    OperationContext _context;
};

class PEGASUS_COMMON_LINKAGE InstanceResponseHandler : virtual public ResponseHandler {
  public:
    InstanceResponseHandler();
    ~InstanceResponseHandler() override;

    virtual void deliver(const CIMInstance& instance) = 0;
    virtual void deliver(const Array<CIMInstance>& instances) = 0;
};

class PEGASUS_COMMON_LINKAGE ObjectPathResponseHandler : virtual public ResponseHandler {
  public:
    ObjectPathResponseHandler();
    ~ObjectPathResponseHandler() override;

    virtual void deliver(const CIMObjectPath& objectPath) = 0;
    virtual void deliver(const Array<CIMObjectPath>& objectPaths) = 0;
};

class PEGASUS_COMMON_LINKAGE ObjectResponseHandler : virtual public ResponseHandler {
  public:
    ObjectResponseHandler();
    ~ObjectResponseHandler() override;

    virtual void deliver(const CIMObject& object) = 0;
    virtual void deliver(const Array<CIMObject>& objects) = 0;
};

class PEGASUS_COMMON_LINKAGE MethodResultResponseHandler : virtual public ResponseHandler {
  public:
    MethodResultResponseHandler();
    ~MethodResultResponseHandler() override;

    virtual void deliverParamValue(const CIMParamValue& outParamValue) = 0;
    virtual void deliverParamValue(const Array<CIMParamValue>& outParamValues) = 0;

    /// The return value; of several the last counts.
    virtual void deliver(const CIMValue& returnValue) = 0;
};

PEGASUS_NAMESPACE_END
