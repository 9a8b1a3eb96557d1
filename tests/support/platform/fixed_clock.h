// A clock that stands at 14:07:33 on 16 November 2005, or where a test wants it.
#pragma once

#include "platform/clock.h"

namespace support {

class FixedClock : public platform::Clock {
  public:
    explicit FixedClock(platform::DateTime now = {2005, 11, 16, 14, 7, 33}) : now_(now) {}
    [[nodiscard]] platform::DateTime Now() const override { return now_; }

  private:
    platform::DateTime now_;
};

}  // namespace support
