// The reasons of run-time errors in an operator's words, and the place in a data-set file that the
// reader names in its error.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace control {

// Why a database or a file can not be used, "filen finnes ikke".
[[nodiscard]] std::string ReasonOf(const platform::RuntimeError& error);

// What the reader of data-set files says of a fault.
struct ReaderFault {
    std::optional<std::int64_t> fileLine;
    std::optional<std::string> column;  // where it is a value that its column does not take
    std::string value;                  // that value, else nothing
    std::string reason;
};

[[nodiscard]] ReaderFault FaultOf(const platform::RuntimeError& error, std::string_view fileName);

}  // namespace control
