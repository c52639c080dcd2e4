// Requests as text, answers as text, and nothing in between but the code under test.
#pragma once

#include "ScriptedServer.h"
#include "cimxml/Executor.h"
#include "http/CimService.h"

#include <string>

namespace cimserver::test {

/// An intrinsic call of `method` in root/t with these IPARAMVALUEs, in a whole message.
std::string message(const std::string& method, const std::string& parameters);

/// A METHODCALL of `method` at T.K="a" of root/t with these PARAMVALUEs, in a whole message.
std::string methodMessage(const std::string& method, const std::string& parameters);

/// The headers that belong to such messages.
CallHeaders headersOf(const std::string& method);
CallHeaders methodHeadersOf(const std::string& method);

/// Collects what an answer sends, one line for each event.
class Recorder final : public AnswerChannel {
  public:
    explicit Recorder(bool trailers = false) : _trailers(trailers) {}

    bool takesTrailers() const override { return _trailers; }
    void send(std::string& part) override;
    void finish(std::string& part) override;
    void finish(std::string& part, Pegasus::Uint32 code, const std::string& description) override;
    void breakOff() override;

    std::string text;    ///< all parts
    std::string events;  ///< "send ", "finish ", "finish 6 late ", "break "
    bool gone = false;   ///< send() throws from now on

  private:
    void take(std::string& part);

    bool _trailers;
};

/// What stands between the response element's tags after the message is executed.
std::string answerTo(LocalServer& server, const std::string& body, const CallHeaders& headers);

/// "400 request-not-valid" for a refused message, the answer otherwise.
std::string outcomeOf(LocalServer& server, const std::string& body, const CallHeaders& headers);

}  // namespace cimserver::test
