// Slows down those who fail again and again.
#pragma once

#include "http/SecretDigest.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>

namespace cimserver {

/// Tells how long an attempt to log in has to wait, from how often its address and its user have
/// failed. Texts share a fixed number of places, so strangers cannot make it grow; two that share
/// one are slowed together.
class Throttle {
  public:
    using Clock = std::chrono::steady_clock;

    static constexpr unsigned kFreeFailures = 4;
    static constexpr std::chrono::milliseconds kFirstPause{100};  ///< doubles with each failure
    static constexpr std::chrono::milliseconds kLongestPause{3'200};
    static constexpr std::chrono::seconds kLongestWait{10};
    static constexpr std::chrono::seconds kHalfLife{60};  ///< of failures, once they have ended

    explicit Throttle(const SecretDigest& digest = SecretDigest()) : _digest(digest) {}

    /// How long the attempt has to wait. It counts as failed until it is forgiven. Attempts of one
    /// address wait for each other, those for one user don't: nobody can lock out a user. Nothing
    /// when the address has so many of them waiting that this one is to be refused.
    std::optional<Clock::duration> begin(std::string_view address, std::string_view user,
                                         Clock::time_point now);

    /// The attempt has succeeded.
    void forgive(std::string_view address, std::string_view user);

  private:
    struct Place {
        unsigned failures = 0;
        Clock::time_point last;  ///< of the failures
        Clock::time_point next;  ///< when an attempt may begin
    };
    using Places = std::array<Place, 1024>;

    Place& placeOf(Places& places, std::string_view text);
    static void fail(Place& place, Clock::time_point now);
    static Clock::duration pauseAfter(const Place& place);

    SecretDigest _digest;
    Places _addresses;
    Places _users;
};

}  // namespace cimserver
