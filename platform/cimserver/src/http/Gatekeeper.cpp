#include "http/Gatekeeper.h"

#include <boost/asio/post.hpp>

#include <algorithm>
#include <utility>

namespace cimserver {

namespace asio = boost::asio;

namespace {

constexpr std::chrono::minutes kMemory{5};  // of credentials, after their last use
constexpr std::size_t kMostRemembered = 256;

}  // namespace

void Gatekeeper::check(const std::optional<Credentials>& credentials, const std::string& address,
                       Then then) {
    if (admitsEverybody()) return then(Verdict::Admitted);
    if (!credentials) return then(Verdict::Refused);
    const Digest digest = digestOf(*credentials);
    if (remembers(digest)) return then(Verdict::Admitted);
    const auto [attempt, isNew] = _attempts.try_emplace(digest, _io);
    attempt->second.waiting.push_back(std::move(then));
    if (isNew) begin(digest, *credentials, address);
}

void Gatekeeper::close() {
    _attempts.clear();
    _verifier.stop();
    _verifier.join();
}

Gatekeeper::Digest Gatekeeper::digestOf(const Credentials& credentials) const {
    const std::uint64_t version = _authenticator.version ? _authenticator.version() : 0;
    return _digest.of({std::to_string(version), credentials.user, credentials.password});
}

bool Gatekeeper::remembers(const Digest& digest) {
    const auto found = _remembered.find(digest);
    if (found == _remembered.end()) return false;
    const auto now = Clock::now();
    if (now - std::exchange(found->second, now) <= kMemory) return true;
    _remembered.erase(found);
    return false;
}

void Gatekeeper::remember(const Digest& digest) {
    if (_remembered.size() >= kMostRemembered) {
        _remembered.erase(
            std::min_element(_remembered.begin(), _remembered.end(),
                             [](const auto& a, const auto& b) { return a.second < b.second; }));
    }
    _remembered[digest] = Clock::now();
}

void Gatekeeper::begin(const Digest& digest, const Credentials& credentials,
                       const std::string& address) {
    const auto wait = _throttle.begin(address, credentials.user, Clock::now());
    if (!wait) return end(digest, Verdict::Busy);
    auto& timer = _attempts.at(digest).timer;
    timer.expires_after(*wait);
    timer.async_wait([this, digest, credentials, address](const boost::system::error_code& error) {
        if (!error) verify(digest, credentials, address);
    });
}

void Gatekeeper::verify(const Digest& digest, const Credentials& credentials,
                        const std::string& address) {
    asio::post(_verifier, [this, digest, credentials, address] {
        const bool matches = isRight(credentials);
        asio::post(_io, [this, digest, user = credentials.user, address, matches] {
            if (matches) {
                _throttle.forgive(address, user);
                remember(digest);
            }
            end(digest, matches ? Verdict::Admitted : Verdict::Refused);
        });
    });
}

// On the verifier's thread. Whoever cannot be checked is not let in.
bool Gatekeeper::isRight(const Credentials& credentials) const noexcept try {
    return _authenticator.verify(credentials.user, credentials.password);
} catch (...) {
    return false;
}

void Gatekeeper::end(const Digest& digest, Verdict verdict) {
    const auto attempt = _attempts.extract(digest);
    if (attempt.empty()) return;
    for (const Then& then : attempt.mapped().waiting) then(verdict);
}

}  // namespace cimserver
