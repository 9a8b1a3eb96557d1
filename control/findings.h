// Collects what the checks find, in the order of data sets and codes. Of many findings of one code
// in a data set it keeps the first ones and tells the number of all.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/finding.h"

namespace control {

// Of one code in one data set; one more tells how many there are.
inline constexpr std::size_t kMostOfOneCode = 20;

class Findings {
  public:
    // What follows is of that data set; without a name, of settings and shop.
    void Begin(std::optional<std::string> dataSet);

    // `code` is that of a rule.
    void Add(std::string_view code, const Place& place = {});

    [[nodiscard]] bool HasErrors() const { return hasErrors_; }

    // All of them; nothing may be added afterwards.
    [[nodiscard]] std::vector<Finding> Take();

  private:
    struct OfOneCode {
        std::vector<Finding> first;
        std::size_t count = 0;
        Severity worst = Severity::Note;
    };

    void Finish();

    std::optional<std::string> dataSet_;
    std::map<std::string_view, OfOneCode> current_;
    std::vector<Finding> finished_;
    bool hasErrors_ = false;
};

}  // namespace control
