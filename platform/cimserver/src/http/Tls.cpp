#include "http/Tls.h"

#include <fcntl.h>
#include <openssl/crypto.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace cimserver {

namespace ssl = boost::asio::ssl;

namespace {

constexpr std::size_t kMostKeyBytes = 64 << 10;

std::runtime_error unusable(const char* what, const std::string& file, const std::string& reason) {
    return std::runtime_error("cannot use the TLS " + std::string(what) + " " + file + ": " +
                              reason);
}

class File {
  public:
    explicit File(const std::string& name) : _descriptor(open(name.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (_descriptor < 0) throw std::system_error(errno, std::generic_category());
    }
    ~File() { close(_descriptor); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    bool isOpenToOthers() const {
        struct stat facts {};
        return fstat(_descriptor, &facts) != 0 || (facts.st_mode & S_IRWXO) != 0;
    }

    std::size_t readInto(std::vector<char>& room) const {
        std::size_t length = 0;
        while (length < room.size()) {
            const ssize_t got = read(_descriptor, room.data() + length, room.size() - length);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) throw std::system_error(errno, std::generic_category());
            if (got == 0) break;
            length += static_cast<std::size_t>(got);
        }
        return length;
    }

  private:
    int _descriptor;
};

/// Room for a secret, of which nothing stays in memory.
struct Secret {
    std::vector<char> room = std::vector<char>(kMostKeyBytes);
    ~Secret() { OPENSSL_cleanse(room.data(), room.size()); }
};

void useKey(ssl::context& context, const std::string& name) {
    Secret secret;
    boost::system::error_code error;
    try {
        const File file(name);
        if (file.isOpenToOthers()) throw unusable("key", name, "everybody may read it (chmod o=)");
        const std::size_t length = file.readInto(secret.room);
        if (length == kMostKeyBytes) throw unusable("key", name, "too long");
        context.use_private_key(boost::asio::buffer(secret.room.data(), length), ssl::context::pem,
                                error);
    } catch (const std::system_error& failure) {
        throw unusable("key", name, failure.code().message());
    }
    if (error) throw unusable("key", name, error.message());
}

void useCertificate(ssl::context& context, const std::string& name) {
    boost::system::error_code error;
    try {
        const File readable(name);
        context.use_certificate_chain_file(name, error);
    } catch (const std::system_error& failure) {
        throw unusable("certificate", name, failure.code().message());
    }
    if (error) throw unusable("certificate", name, error.message());
}

// TLS 1.2 with forward secrecy and authenticated encryption only; all of TLS 1.3 has both. No
// session outlives its connection, neither here nor in a ticket with the client.
void restrict(ssl::context& context) {
    SSL_CTX* const native = context.native_handle();
    SSL_CTX_set_min_proto_version(native, TLS1_2_VERSION);
    SSL_CTX_set_cipher_list(native, "ECDHE+AESGCM:ECDHE+CHACHA20");
    SSL_CTX_set_options(native, SSL_OP_NO_RENEGOTIATION | SSL_OP_CIPHER_SERVER_PREFERENCE |
                                    SSL_OP_NO_COMPRESSION | SSL_OP_NO_TICKET);
    SSL_CTX_set_num_tickets(native, 0);
    SSL_CTX_set_session_cache_mode(native, SSL_SESS_CACHE_OFF);
    SSL_CTX_set_mode(native, SSL_MODE_RELEASE_BUFFERS);
}

}  // namespace

std::shared_ptr<ssl::context> makeTlsContext(const std::string& certificateFile,
                                             const std::string& keyFile) {
    prctl(PR_SET_DUMPABLE, 0);
    auto context = std::make_shared<ssl::context>(ssl::context::tls_server);
    restrict(*context);
    // A key under a password would have OpenSSL ask for it at a terminal.
    context->set_password_callback(
        [](std::size_t, ssl::context::password_purpose) { return std::string(); });
    useCertificate(*context, certificateFile);
    useKey(*context, keyFile);
    return context;
}

}  // namespace cimserver
