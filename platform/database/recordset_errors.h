// The failures that every kind of recordset raises in the same words. `source` is where the rows
// come from: a file, a table or a query.
#pragma once

#include <string>
#include <string_view>

#include "platform/error.h"

namespace platform::database {

[[noreturn]] inline void ThrowClosed(std::string_view source) {
    throw RuntimeError(error_number::kObjectClosed,
                       std::string(source) + ": the recordset is closed.");
}

[[noreturn]] inline void ThrowNoCurrentRecord(std::string_view source) {
    throw RuntimeError(error_number::kNoCurrentRecord,
                       std::string(source) + ": there is no current record.");
}

[[noreturn]] inline void ThrowNotEditing() {
    throw RuntimeError(error_number::kUpdateWithoutEdit,
                       "A field was set or a row saved without Edit before it.");
}

}  // namespace platform::database
