// The texts of HTTP responses.
#pragma once

#include "cimxml/Refusal.h"

#include <cstddef>
#include <string>

namespace cimserver {

/// What the head of an answer depends on.
struct ResponseStyle {
    unsigned version = 11;        ///< of the request: 10 or 11
    bool close = false;           ///< the connection ends with this answer
    std::string extensionPrefix;  ///< "NN-" for a request with M-POST, else empty
    bool trailers = false;        ///< errors may follow in trailers
};

/// The head of an answer whose length is known.
std::string answerHead(const ResponseStyle&, std::size_t length);

/// The head of an answer that is sent while it is produced: chunked, or up to the end of the
/// connection for a client of HTTP/1.0.
std::string streamedAnswerHead(const ResponseStyle&);

/// A response without content, CIMError and PGErrorDetail as the refusal has them.
std::string refusalText(const Refusal&, bool close);

/// The response to missing or wrong credentials.
std::string unauthorizedText(const std::string& realm, bool hadCredentials, bool close);

}  // namespace cimserver
