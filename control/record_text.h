// Texts of a day that become part of a record of the import files: what their format does not take.
#pragma once

#include "control/findings.h"
#include "platform/value.h"

namespace control {

// K306 and K308 at that place; `text` is what the record gets.
void CheckRecordText(const platform::Value& text, const char* field, const Place& place,
                     Findings& findings);

}  // namespace control
