// A request that is answered with an HTTP status instead of a CIM-XML message.
#pragma once

#include <stdexcept>
#include <string>

namespace cimserver {

/// The request cannot be understood as a CIM operation. The client gets the HTTP status, the
/// CIMError header when `cimError` is not empty, and what() as PGErrorDetail.
class Refusal : public std::runtime_error {
  public:
    Refusal(unsigned status, std::string cimError, const std::string& detail)
        : std::runtime_error(detail), _status(status), _cimError(std::move(cimError)) {}

    unsigned status() const { return _status; }
    const std::string& cimError() const { return _cimError; }

  private:
    unsigned _status;
    std::string _cimError;
};

/// The CIMError header for text that is no XML.
constexpr const char* kNotWellFormed = "request-not-well-formed";

/// Well-formed XML that is not a request of the CIM-XML grammar.
inline Refusal notValid(const std::string& detail) {
    return Refusal(400, "request-not-valid", detail);
}

/// The HTTP headers and the message do not tell the same.
inline Refusal headerMismatch(const std::string& detail) {
    return Refusal(400, "header-mismatch", detail);
}

}  // namespace cimserver
