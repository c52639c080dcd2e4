#include "EventLog.h"

#include <utility>

namespace qrvapi {
namespace {

constexpr std::size_t mostEvents = 10'000;

}  // namespace

void EventLog::enter(control::Event event) {
    if (events_.size() == mostEvents) events_.pop_front();
    events_.push_back(std::move(event));
}

}  // namespace qrvapi
