// A record of a few named values, for the rules of the transfers that read their fields by name.
#pragma once

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database/recordset.h"

namespace control {

class Row : public platform::database::Record {
  public:
    Row(std::initializer_list<std::pair<std::string_view, platform::Value>> fields)
        : fields_(fields) {}

    // Null for a name that it does not have.
    [[nodiscard]] platform::Value Get(std::string_view field) const override {
        for (const auto& [name, value] : fields_) {
            if (name == field) return value;
        }
        return {};
    }

  private:
    std::vector<std::pair<std::string_view, platform::Value>> fields_;
};

}  // namespace control
