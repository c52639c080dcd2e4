// The message that answers a request, written while the operation delivers.
#pragma once

#include "cimxml/Message.h"

#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace cimserver {

/// The client has gone, or doesn't read: nobody waits for the rest of the answer.
class ClientGone : public std::runtime_error {
  public:
    ClientGone() : std::runtime_error("the client has gone") {}
};

/// The way of an answer to its client. send() and finish() take the text away and leave `part`
/// empty; they block while the client is slow, and throw ClientGone when it has gone.
class AnswerChannel {
  public:
    virtual ~AnswerChannel() = default;

    /// Whether the client takes errors in trailers behind the answer. Then nothing needs to be held
    /// back.
    virtual bool takesTrailers() const = 0;

    /// Sends a part of an answer that goes on.
    virtual void send(std::string& part) = 0;

    /// Sends the last part, which is the whole answer when nothing was sent before.
    virtual void finish(std::string& part) = 0;

    /// Sends the last part with the error in trailers.
    virtual void finish(std::string& part, Pegasus::Uint32 code,
                        const std::string& description) = 0;

    /// Lets the client see that the answer it has begun to get is no whole one.
    virtual void breakOff() = 0;
};

/// Writes one answer. The error that an operation ends with replaces what was delivered before, as
/// long as nothing of it has left; that is why the beginning of an answer is held back.
class Answer {
  public:
    /// Until this much is there, an answer is held back so that an error can still replace it.
    static constexpr std::size_t kHoldBytes = 256 << 10;
    /// Afterwards it leaves in parts of this size.
    static constexpr std::size_t kPartBytes = 64 << 10;

    Answer(const Message& message, AnswerChannel& channel);

    /// Adds one object to the return value: `append` is called with the string to append it to.
    template <class Append>
    void add(Append append) {
        openReturnValue();
        append(_text);
        if (_text.size() >= _limit) sendPart();
    }

    /// Ends the answer as a success.
    void succeed();

    /// Ends the answer with an error.
    void fail(const Pegasus::CIMException& error);

  private:
    void begin();
    void openReturnValue();
    void closeReturnValue();
    void end();
    void sendPart();

    const Message& _message;
    AnswerChannel& _channel;
    std::string _text;
    std::size_t _limit;
    bool _returnsValue = false;
    bool _sent = false;
};

/// The text that goes with an error: the status's name and the message, cut when it is very long.
std::string errorDescription(const Pegasus::CIMException& error);

}  // namespace cimserver
