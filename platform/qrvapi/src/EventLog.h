#pragma once

#include <deque>
#include <string>
#include <vector>

#include "qrvapi_control.h"

namespace qrvapi {

/// The array's own record of who changed what. The oldest entries give way.
class EventLog {
  public:
    void enter(control::Event event);
    std::vector<control::Event> events() const { return {events_.begin(), events_.end()}; }

  private:
    std::deque<control::Event> events_;
};

}  // namespace qrvapi
