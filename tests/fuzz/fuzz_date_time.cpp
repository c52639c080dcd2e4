// Any bytes as date-times: what is one is the same one when it is written and read again, all of
// them stand in one order, and the toolkit's times agree with them.
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>
#include <QRV_Common.h>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "Require.h"

using namespace Pegasus;

namespace {

constexpr time_t START_OF_1900 = -2'208'900'000;  ///< nothing before is read back

/// What a function gives, unless it refuses.
template <class Make>
auto attempt(Make make) -> std::optional<decltype(make())> {
    try {
        return make();
    } catch (const Exception&) {
        return std::nullopt;  // no UTF-8, no date-time, or none that can be
    }
}

void checkAlone(const CIMDateTime& time) {
    const CIMDateTime again(time.toString());
    require(again.equal(time) && again.toString() == time.toString());
    require(time.toString().size() == 25);
    const auto seconds = attempt([&] { return QRV_Common::getDateTime(time); });
    if (!seconds || *seconds == 0) return;
    require(!time.isInterval());
    if (*seconds < START_OF_1900) return;  // a month without its day begins a day early
    require(QRV_Common::getDateTime(QRV_Common::getCIMDateTime(*seconds)) == *seconds);
}

void checkTogether(const CIMDateTime& left, const CIMDateTime& right) {
    const auto less = attempt([&] { return left < right; });
    const auto greater = attempt([&] { return left > right; });
    require(less.has_value() == greater.has_value());
    require(less.has_value() == (left.isInterval() == right.isInterval()));
    if (less) require(*less + *greater + left.equal(right) == 1);
    const auto forth = attempt([&] { return CIMDateTime::getDifference(left, right); });
    const auto back = attempt([&] { return CIMDateTime::getDifference(right, left); });
    require(forth.has_value() == back.has_value() && (!forth || *forth == -*back));
    if (const auto sum = attempt([&] { return left + right; })) checkAlone(*sum);
    if (const auto rest = attempt([&] { return left - right; })) checkAlone(*rest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* const text = static_cast<const char*>(static_cast<const void*>(data));
    const auto timeOf = [](const char* begin, std::size_t length) {
        return attempt([&] { return CIMDateTime(String(begin, Uint32(length))); });
    };
    const std::size_t first = size < 25 ? size : 25;
    const auto left = timeOf(text, first), right = timeOf(text + first, size - first);
    if (left) checkAlone(*left);
    if (left && right) checkTogether(*left, *right);
    return 0;
}
