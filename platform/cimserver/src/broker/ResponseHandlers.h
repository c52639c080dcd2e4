// The response handlers that providers deliver to.
//
// processing() means nothing. A deliver or complete that breaks the rules throws CIM_ERR_FAILED
// into the provider. Only what complete() has released counts, with one exception: streams pass on
// every full chunk at once, so that an answer of any length takes no memory.
#pragma once

#include "broker/Delivery.h"
#include "model/LocalServer.h"

#include <Pegasus/Common/ResponseHandler.h>

#include <optional>
#include <vector>

namespace cimserver {

/// Throw CIM_ERR_FAILED "The object is not initialized." when there is nothing in what was
/// delivered.
void requireContent(const Pegasus::CIMInstance&);
void requireContent(const Pegasus::CIMObject&);
void requireContent(const Pegasus::CIMObjectPath&);
void requireContent(const Pegasus::CIMParamValue&);
void requireContent(const Pegasus::CIMValue&);

[[noreturn]] void throwTooFewDelivered();
[[noreturn]] void throwTooManyDelivered();

/// Any number of results, passed on to a sink in order. Less than a full chunk is held back until
/// the provider has returned: it is passed on if complete() was called after it was delivered, and
/// lost if not or if the provider throws. Once the sink has thrown, every deliver throws the same
/// again.
template <class Base, class T>
class StreamHandler final : public Base, public Delivery {
  public:
    explicit StreamHandler(const Sink<T>& sink) : _sink(sink) {}

    void processing() override {}
    void complete() override { _released = _chunk.size(); }

    void deliver(const T& object) override {
        rethrowSinkFailure();
        requireContent(object);
        _chunk.push_back(object);
        if (_chunk.size() == chunkSize) passOn(chunkSize);
    }

    void deliver(const Pegasus::Array<T>& objects) override {
        for (Pegasus::Uint32 i = 0, n = objects.size(); i != n; ++i) deliver(objects[i]);
    }

    void finish() override {
        rethrowSinkFailure();
        passOn(_released);
    }

  private:
    static constexpr std::size_t chunkSize = 100;

    void passOn(std::size_t count) try {
        for (std::size_t i = 0; i != count; ++i) _sink(_chunk[i]);
        _chunk.clear();
        _released = 0;
    } catch (...) {
        keepSinkFailure();
        throw;
    }

    const Sink<T>& _sink;
    std::vector<T> _chunk;
    std::size_t _released = 0;
};

/// Exactly one result. complete() releases it and asks for the next one.
template <class Base, class T>
class SingleHandler final : public Base, public Delivery {
  public:
    void processing() override {}

    void complete() override {
        if (!_pending) throwTooFewDelivered();
        _result = *_pending;
        _pending.reset();
    }

    void deliver(const T& object) override {
        requireContent(object);
        if (_pending) throwTooManyDelivered();
        _pending = object;
    }

    void deliver(const Pegasus::Array<T>& objects) override {
        for (Pegasus::Uint32 i = 0, n = objects.size(); i != n; ++i) deliver(objects[i]);
    }

    /// A default-constructed T when the provider released none.
    const T& result() const { return _result; }

  private:
    std::optional<T> _pending;
    T _result;
};

/// No result, only the end of the operation.
class AcknowledgeHandler final : public Pegasus::ResponseHandler, public Delivery {
  public:
    void processing() override {}
    void complete() override {}
};

/// The return value, the last one delivered, and the output parameters of a method.
class MethodHandler final : public Pegasus::MethodResultResponseHandler, public Delivery {
  public:
    void processing() override {}
    void complete() override;
    void deliver(const Pegasus::CIMValue& returnValue) override;
    void deliverParamValue(const Pegasus::CIMParamValue& parameter) override;
    void deliverParamValue(const Pegasus::Array<Pegasus::CIMParamValue>& parameters) override;

    /// Null when the provider released none.
    const Pegasus::CIMValue& returnValue() const { return _released.returnValue; }
    const Pegasus::Array<Pegasus::CIMParamValue>& parameters() const {
        return _released.parameters;
    }

  private:
    struct Result {
        Pegasus::CIMValue returnValue;
        Pegasus::Array<Pegasus::CIMParamValue> parameters;
    };
    Result _pending;
    Result _released;
};

using InstanceStream = StreamHandler<Pegasus::InstanceResponseHandler, Pegasus::CIMInstance>;
using ObjectStream = StreamHandler<Pegasus::ObjectResponseHandler, Pegasus::CIMObject>;
using PathStream = StreamHandler<Pegasus::ObjectPathResponseHandler, Pegasus::CIMObjectPath>;
using SingleInstance = SingleHandler<Pegasus::InstanceResponseHandler, Pegasus::CIMInstance>;
using SinglePath = SingleHandler<Pegasus::ObjectPathResponseHandler, Pegasus::CIMObjectPath>;

}  // namespace cimserver
