// What the header of an HTTP request tells about the CIM operation in its body.
#pragma once

#include "cimxml/Message.h"
#include "http/Response.h"

#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>

#include <optional>
#include <string>

namespace cimserver {

using HttpRequest = boost::beast::http::request<boost::beast::http::string_body>;
using HttpRequestHead = boost::beast::http::request_header<>;

struct CallHead {
    CallHeaders call;
    ResponseStyle style;
};

/// Reads the header of a request for a CIM operation. Throws Refusal when it isn't one.
CallHead readCallHead(const HttpRequestHead& head);

/// Whether the connection ends with the answer to this request.
bool endsConnection(const HttpRequest& request);

/// User and password of a request.
struct Credentials {
    std::string user;
    std::string password;
};

/// The credentials of Basic authentication; nothing when there are none, or none that can be read.
std::optional<Credentials> readCredentials(const HttpRequestHead& head);

}  // namespace cimserver
