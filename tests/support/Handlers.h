// Response handlers that keep what a provider does to them.
#pragma once

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <qrvapi_control.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace qrvtest {

/// What a handler saw, in order: "processing", one text for each thing delivered, "complete".
class Recording {
  public:
    /// Lets the `nth` deliver throw CIM_ERR_FAILED "client hung up", or what isn't Pegasus's own.
    void failDeliver(unsigned nth, bool foreign = false) {
        _failAt = nth;
        _foreign = foreign;
    }

    const std::vector<std::string>& events() const { return _events; }
    /// How often a handler was given something.
    unsigned deliveries() const { return _deliveries; }
    /// Whether anything was delivered while a string table was locked.
    bool underTable() const { return _underTable; }
    void note(std::string event) { _events.push_back(std::move(event)); }
    /// Delivering may take as long as the client likes: the gate would keep all others waiting.
    void noteDelivered(std::string text) {
        const qrvapi::control::Locks held = qrvapi::control::heldByThisThread();
        if (held.gate) throw std::logic_error("delivered under the access gate");
        _underTable = _underTable || held.tables > 0;
        ++_deliveries;
        if (_failAt != 0 && --_failAt == 0) hangUp();
        note(std::move(text));
    }

  private:
    [[noreturn]] void hangUp() const {
        if (_foreign) throw std::runtime_error("broken");
        throw Pegasus::CIMException(Pegasus::CIM_ERR_FAILED, "client hung up");
    }

    unsigned _failAt = 0;
    bool _foreign = false, _underTable = false;
    unsigned _deliveries = 0;
    std::vector<std::string> _events;
};

/// Text of an instance: its path, then each property that has a value, each on a line of its own.
std::string textOf(const Pegasus::CIMInstance&);
std::string textOf(const Pegasus::CIMObject&);
std::string textOf(const Pegasus::CIMObjectPath&);

/// What stands between the separators, without empty parts.
std::vector<std::string> split(const std::string& text, char separator = ' ');

/// The same lines sorted, so that a test doesn't lean on the schema's order of properties.
std::string sortedLines(const std::string& text);
std::vector<std::string> sortedLines(std::vector<std::string> texts);

/// The handler of one operation kind; `Base` is a response handler and `Result` what it takes.
template <class Base, class Result>
class RecordingHandler : public Base {
  public:
    explicit RecordingHandler(Recording& recording) : _recording(recording) {}

    void processing() override { _recording.note("processing"); }
    void complete() override { _recording.note("complete"); }
    void deliver(const Result& result) override { _recording.noteDelivered(textOf(result)); }
    void deliver(const Pegasus::Array<Result>& results) override {
        for (Pegasus::Uint32 i = 0; i < results.size(); ++i) deliver(results[i]);
    }

  private:
    Recording& _recording;
};

using InstanceRecorder = RecordingHandler<Pegasus::InstanceResponseHandler, Pegasus::CIMInstance>;
using ObjectRecorder = RecordingHandler<Pegasus::ObjectResponseHandler, Pegasus::CIMObject>;
using PathRecorder = RecordingHandler<Pegasus::ObjectPathResponseHandler, Pegasus::CIMObjectPath>;

/// The handler of a method call: an output parameter is delivered as "NAME=value", the return value
/// as "return value".
class MethodRecorder : public Pegasus::MethodResultResponseHandler {
  public:
    explicit MethodRecorder(Recording& recording) : _recording(recording) {}

    void processing() override { _recording.note("processing"); }
    void complete() override { _recording.note("complete"); }
    void deliverParamValue(const Pegasus::CIMParamValue&) override;
    void deliverParamValue(const Pegasus::Array<Pegasus::CIMParamValue>&) override;
    void deliver(const Pegasus::CIMValue&) override;

  private:
    Recording& _recording;
};

}  // namespace qrvtest
