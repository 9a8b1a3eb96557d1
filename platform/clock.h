// The time of day as the system sees it; an interface, so that stamps and status lines are the same
// in every run of a test.
#pragma once

#include "platform/value.h"

namespace platform {

class Clock {
  public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual DateTime Now() const = 0;  // local time
};

class SystemClock : public Clock {
  public:
    [[nodiscard]] DateTime Now() const override;
};

}  // namespace platform
