// The failures that every kind of recordset raises in the same words.
#pragma once

#include "platform/error.h"

namespace platform {

[[noreturn]] inline void ThrowClosed() {
    throw RuntimeError(error_number::kObjectClosed, "The recordset is closed.");
}

[[noreturn]] inline void ThrowNoCurrentRecord() {
    throw RuntimeError(error_number::kNoCurrentRecord, "The recordset has no current record.");
}

[[noreturn]] inline void ThrowNotEditing() {
    throw RuntimeError(error_number::kUpdateWithoutEdit,
                       "A field was set or a row saved without Edit before it.");
}

}  // namespace platform
