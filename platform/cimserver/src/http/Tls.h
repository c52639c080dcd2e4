// What the server needs to encrypt.
#pragma once

#include <boost/asio/ssl/context.hpp>

#include <memory>
#include <string>

namespace cimserver {

/// Reads a certificate with its chain and the private key, both PEM, for TLS 1.2 and 1.3. The key
/// is opened, read and forgotten here but for what OpenSSL keeps, and from then on neither another
/// process of the user nor a core file gets at this one's memory.
///
/// Throws std::runtime_error when a file can't be used, when others than owner and group may read
/// the key, or when the two don't belong together.
std::shared_ptr<boost::asio::ssl::context> makeTlsContext(const std::string& certificateFile,
                                                          const std::string& keyFile);

}  // namespace cimserver
