// The status log as the transfers see it.
#pragma once

#include <string>

namespace ui {

class StatusLog {
  public:
    virtual ~StatusLog() = default;

    // Appends a line and lets the operator see it at once.
    virtual void AppendStatusLine(std::string line) = 0;
};

}  // namespace ui
