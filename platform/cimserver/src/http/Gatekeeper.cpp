#include "http/Gatekeeper.h"

#include "http/PostPatiently.h"

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
    std::weak_ptr<Attempt>& known = _attempts[digest];
    AttemptPtr attempt = known.lock();
    const bool isNew = !attempt;
    if (isNew) known = attempt = std::make_shared<Attempt>(_io, digest, *credentials, address);
    attempt->waiting.push_back(std::move(then));
    if (isNew) begin(attempt);
}

void Gatekeeper::close() {
    for (const auto& [digest, known] : std::exchange(_attempts, {})) {
        const AttemptPtr attempt = known.lock();
        if (!attempt) continue;
        attempt->waiting.clear();
        attempt->timer.cancel();
    }
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

void Gatekeeper::begin(const AttemptPtr& attempt) {
    const auto wait = _throttle.begin(attempt->address, attempt->credentials.user, Clock::now());
    if (!wait) return end(attempt, Verdict::Busy);
    attempt->timer.expires_after(*wait);
    attempt->timer.async_wait([this, attempt](const boost::system::error_code& error) {
        if (!error) verify(attempt);
    });
}

void Gatekeeper::verify(const AttemptPtr& attempt) {
    asio::post(_verifier, [this, attempt] {
        const bool matches = isRight(attempt->credentials);
        postPatiently(_io.get_executor(), [this, attempt, matches] { conclude(attempt, matches); });
    });
}

// On the verifier's thread. Whoever cannot be checked is not let in.
bool Gatekeeper::isRight(const Credentials& credentials) const noexcept try {
    return _authenticator.verify(credentials.user, credentials.password);
} catch (...) {
    return false;
}

void Gatekeeper::conclude(const AttemptPtr& attempt, bool matches) {
    if (matches) {
        _throttle.forgive(attempt->address, attempt->credentials.user);
        remember(attempt->digest);
    }
    end(attempt, matches ? Verdict::Admitted : Verdict::Refused);
}

void Gatekeeper::end(const AttemptPtr& attempt, Verdict verdict) {
    _attempts.erase(attempt->digest);
    for (const Then& then : std::exchange(attempt->waiting, {})) then(verdict);
}

}  // namespace cimserver
