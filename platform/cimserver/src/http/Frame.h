// Bytes on their way to a client.
#pragma once

#include <string>

namespace cimserver {

/// Consecutive bytes in up to three pieces, so that a long text is not copied to stand between two
/// short ones.
struct Frame {
    std::string head;
    std::string body;
    std::string tail;
};

/// What becomes of the connection once an answer is through.
enum class Ending {
    KeepAlive,
    Close,
    Reset,  ///< closed so that the client cannot take what it got for a whole answer
};

/// The sending side of a connection, for the thread that produces an answer.
class ByteSink {
  public:
    virtual ~ByteSink() = default;

    /// Sends a frame. Returns before it has left, but blocks until the frame before it has: so no
    /// more than two are in memory. Throws ClientGone when the client has gone or reads too slowly.
    virtual void write(Frame frame) = 0;
};

}  // namespace cimserver
