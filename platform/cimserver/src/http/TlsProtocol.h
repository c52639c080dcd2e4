// How connections that are encrypted begin and end.
#pragma once

#include "http/Session.h"

#include <boost/beast/ssl/ssl_stream.hpp>

namespace cimserver {

using TlsStream = boost::beast::ssl_stream<boost::beast::tcp_stream>;

template <>
struct StreamProtocol<TlsStream> {
    template <class Then>
    static void begin(TlsStream& stream, Then then) {
        stream.async_handshake(boost::asio::ssl::stream_base::server, std::move(then));
    }

    /// Waits for the client's own good-bye, for as long as the stream's deadline lets it.
    template <class Then>
    static void endSending(TlsStream& stream, Then then) {
        stream.async_shutdown([&stream, then = std::move(then)](boost::beast::error_code) {
            StreamProtocol<boost::beast::tcp_stream>::endSending(stream.next_layer(), then);
        });
    }
};

}  // namespace cimserver
