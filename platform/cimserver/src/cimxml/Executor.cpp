#include "cimxml/Executor.h"

#include "broker/ProviderCall.h"
#include "cimxml/Request.h"
#include "model/ObjectEncoder.h"
#include "model/Requests.h"

#include <Pegasus/Common/Exception.h>

namespace cimserver {

using namespace Pegasus;

namespace {

/// Runs each kind of request and gives what it delivers to the answer.
class Execution {
  public:
    Execution(LocalServer& server, const OperationContext& context,
              const CIMNamespaceName& nameSpace, Answer& answer)
        : _server(server), _context(context), _nameSpace(nameSpace), _answer(answer) {}

    void operator()(const GetClass& request) {
        const CIMClass result = _server.getClass(_context, _nameSpace, request.className,
                                                 request.localOnly, request.selection);
        _answer.add([&](std::string& out) { appendClass(out, result); });
    }

    void operator()(const EnumerateClasses& request) {
        _server.enumerateClasses(_context, _nameSpace, request.className, request.deep,
                                 request.localOnly, request.selection, [&](const CIMClass& item) {
                                     _answer.add([&](std::string& out) { appendClass(out, item); });
                                 });
    }

    void operator()(const EnumerateClassNames& request) {
        _server.enumerateClassNames(
            _context, _nameSpace, request.className, request.deep, [&](const CIMName& item) {
                _answer.add([&](std::string& out) { appendClassName(out, item); });
            });
    }

    void operator()(const GetInstance& request) {
        const CIMInstance result =
            _server.getInstance(_context, _nameSpace, request.path, request.selection);
        if (result.isUninitialized()) return;
        _answer.add([&](std::string& out) { appendInstance(out, result, request.selection); });
    }

    void operator()(const EnumerateInstances& request) {
        Selection selection = request.selection;
        selection.propertyList = _server.propertyListFor(_nameSpace, request.className,
                                                         request.deep, selection.propertyList);
        _server.enumerateInstances(
            _context, _nameSpace, request.className, selection, [&](const CIMInstance& item) {
                _answer.add([&](std::string& out) { appendNamedInstance(out, item, selection); });
            });
    }

    void operator()(const EnumerateInstanceNames& request) {
        _server.enumerateInstanceNames(
            _context, _nameSpace, request.className, [&](const CIMObjectPath& item) {
                _answer.add([&](std::string& out) { appendInstanceName(out, item); });
            });
    }

    void operator()(const CreateInstance& request) {
        const CIMObjectPath path = _server.createInstance(_context, _nameSpace, request.instance);
        _answer.add([&](std::string& out) { appendInstanceName(out, path); });
    }

    void operator()(const ModifyInstance& request) {
        _server.modifyInstance(_context, _nameSpace, request.instance, request.selection);
    }

    void operator()(const DeleteInstance& request) {
        _server.deleteInstance(_context, _nameSpace, request.path);
    }

    void operator()(const Associators& request) {
        _server.associators(_context, _nameSpace, request.object.path, request.filter,
                            request.selection, objectSink(request.selection));
    }

    void operator()(const AssociatorNames& request) {
        _server.associatorNames(_context, _nameSpace, request.object.path, request.filter,
                                pathSink(request.object));
    }

    void operator()(const References& request) {
        _server.references(_context, _nameSpace, request.object.path, request.filter,
                           request.selection, objectSink(request.selection));
    }

    void operator()(const ReferenceNames& request) {
        _server.referenceNames(_context, _nameSpace, request.object.path, request.filter,
                               pathSink(request.object));
    }

    void operator()(const GetProperty& request) {
        const CIMValue value = deliveredValue(
            _server.getInstance(_context, _nameSpace, request.path, onlyProperty(request.property)),
            request.property);
        _answer.add([&](std::string& out) { appendValue(out, value); });
    }

    void operator()(const SetProperty& request) {
        setProperty(_server, _context, _nameSpace, request.path, request.property, request.value);
    }

    void operator()(const InvokeMethod& request) {
        Array<CIMParamValue> results;
        const CIMValue value = _server.invokeMethod(_context, _nameSpace, request.path,
                                                    request.method, request.parameters, results);
        _answer.add([&](std::string& out) {
            if (!value.isNull()) appendReturnValue(out, value);
            for (Uint32 i = 0, n = results.size(); i < n; ++i) appendParameter(out, results[i]);
        });
    }

  private:
    Sink<CIMObject> objectSink(const Selection& selection) {
        return [&](const CIMObject& item) {
            _answer.add([&](std::string& out) { appendObjectWithPath(out, item, selection); });
        };
    }

    Sink<CIMObjectPath> pathSink(const ObjectName& source) {
        return [&](const CIMObjectPath& item) {
            _answer.add([&](std::string& out) { appendObjectPath(out, item, source.isClass); });
        };
    }

    LocalServer& _server;
    const OperationContext& _context;
    const CIMNamespaceName& _nameSpace;
    Answer& _answer;
};

// Runs `operation` and gives whatever it fails with as the error that goes to the client.
template <class Operation>
CIMException outcomeOf(Operation operation) {
    try {
        operation();
        return CIMException(CIM_ERR_SUCCESS);
    } catch (const Refusal&) {
        throw;
    } catch (const ClientGone&) {
        throw;
    } catch (...) {
        return exceptionInFlight();
    }
}

}  // namespace

void execute(LocalServer& server, const OperationContext& context, const Message& message,
             AnswerChannel& channel) {
    Answer answer(message, channel);
    const CIMException outcome = outcomeOf([&] {
        std::visit(Execution(server, context, message.nameSpace(), answer), decodeRequest(message));
    });
    if (outcome.getCode() == CIM_ERR_SUCCESS) {
        answer.succeed();
    } else {
        answer.fail(outcome);
    }
}

}  // namespace cimserver
