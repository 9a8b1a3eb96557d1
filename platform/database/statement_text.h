// The statement in the description of a database's error: for developers, not for whom it stops.
#pragma once

#include <string_view>

namespace platform::database {

inline constexpr std::string_view kStatementMark = " SQL: ";

[[nodiscard]] inline std::string_view WithoutStatement(std::string_view description) {
    return description.substr(0, description.find(kStatementMark));
}

}  // namespace platform::database
