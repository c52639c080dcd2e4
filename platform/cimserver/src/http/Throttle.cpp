#include "http/Throttle.h"

#include "http/ClientNetwork.h"

#include <algorithm>

namespace cimserver {

namespace {

constexpr unsigned kMostFailures = 64;  // more are not told apart

}  // namespace

std::optional<Throttle::Clock::duration> Throttle::begin(std::string_view address,
                                                         std::string_view user,
                                                         Clock::time_point now) {
    Place& from = placeOf(_addresses, networkOf(address));
    Place& to = placeOf(_users, user);
    const Clock::time_point turn = std::max(from.next, now);
    if (turn - now > kLongestWait) return std::nullopt;
    fail(from, now);
    fail(to, now);
    from.next = turn + pauseAfter(from);
    return std::max(turn - now, pauseAfter(to));
}

void Throttle::forgive(std::string_view address, std::string_view user) {
    for (Place* place : {&placeOf(_addresses, networkOf(address)), &placeOf(_users, user)}) {
        if (place->failures != 0) --place->failures;
    }
}

Throttle::Place& Throttle::placeOf(Places& places, std::string_view text) {
    return places[SecretDigest::Hash()(_digest.of({text})) % places.size()];
}

void Throttle::fail(Place& place, Clock::time_point now) {
    const auto halvings = std::min<Clock::rep>((now - place.last) / kHalfLife, 31);
    place.failures = std::min((place.failures >> halvings) + 1, kMostFailures);
    place.last = now;
}

Throttle::Clock::duration Throttle::pauseAfter(const Place& place) {
    if (place.failures <= kFreeFailures) return {};
    const unsigned doublings = std::min(place.failures - kFreeFailures - 1, 16U);
    return std::min<Clock::duration>(kFirstPause * (1U << doublings), kLongestPause);
}

}  // namespace cimserver
