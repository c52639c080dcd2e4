// Lets callers in.
#pragma once

#include "http/Authenticator.h"
#include "http/CallHead.h"
#include "http/SecretDigest.h"
#include "http/Throttle.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/thread_pool.hpp>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace cimserver {

enum class Verdict {
    Admitted,
    Refused,
    Busy  ///< too many attempts of this address are waiting; nobody has looked at this one
};

/// Finds out who may call. A check of a password is made to be slow, so it has a thread of its own,
/// and credentials that were right are remembered, as digests, while they are in use. All functions
/// are called on the I/O thread, and so is what check() is given.
class Gatekeeper {
  public:
    using Then = std::function<void(Verdict)>;

    Gatekeeper(boost::asio::io_context& io, Authenticator authenticator)
        : _io(io), _authenticator(std::move(authenticator)) {}
    ~Gatekeeper() { close(); }

    bool admitsEverybody() const { return !_authenticator.verify; }

    /// Calls `then`, at once when it can.
    void check(const std::optional<Credentials>& credentials, const std::string& address,
               Then then);

    /// Ends all checks without a verdict.
    void close();

  private:
    using Clock = Throttle::Clock;
    using Digest = SecretDigest::Value;

    /// Same credentials that come several times at once are looked at once. Whatever is to go on
    /// with the attempt holds it, so that it ends, and lets those go who wait, when nothing does.
    struct Attempt {
        Attempt(boost::asio::io_context& io, const Digest& digestOfBoth,
                const Credentials& userAndPassword, const std::string& client)
            : digest(digestOfBoth), credentials(userAndPassword), address(client), timer(io) {}

        const Digest digest;
        const Credentials credentials;
        const std::string address;
        boost::asio::steady_timer timer;
        std::vector<Then> waiting;
    };
    using AttemptPtr = std::shared_ptr<Attempt>;

    Digest digestOf(const Credentials& credentials) const;
    bool remembers(const Digest& digest);
    void remember(const Digest& digest);
    void begin(const AttemptPtr& attempt);
    void verify(const AttemptPtr& attempt);
    bool isRight(const Credentials& credentials) const noexcept;
    void conclude(const AttemptPtr& attempt, bool matches);
    void end(const AttemptPtr& attempt, Verdict verdict);

    boost::asio::io_context& _io;
    Authenticator _authenticator;
    SecretDigest _digest;
    Throttle _throttle;
    std::unordered_map<Digest, Clock::time_point, SecretDigest::Hash> _remembered;  ///< last use
    std::unordered_map<Digest, std::weak_ptr<Attempt>, SecretDigest::Hash> _attempts;
    boost::asio::thread_pool _verifier{1};
};

}  // namespace cimserver
