// The value types of database columns: which one a declared type means, and how a value is made fit
// to be stored in it. Knows nothing of connections and statements.
#pragma once

#include <optional>
#include <string_view>

#include "platform/value.h"

namespace platform::database {

enum class FieldType { Boolean, Date, Whole, Floating, Text, AsStored };

// The type that a declared column type means; none declared is AsStored.
[[nodiscard]] FieldType TypeOfDeclaration(std::string_view declaration);

// Whether the value is stored as it is in a column of that type.
[[nodiscard]] bool HasType(const Value& value, FieldType type);

// The value as a column of that type stores it; nothing where the column can not take it.
// Null fits everywhere.
[[nodiscard]] std::optional<Value> Fitted(const Value& value, FieldType type);

// Whether a column of that type gives the number back to its last digit, so that a query for it
// finds just this one: a fraction never does, what is no number always.
[[nodiscard]] bool KeepsNumber(const Value& value, FieldType type);

// What `place` ("Table Sales, column ID") could not take, as error 3421.
[[nodiscard]] Value FittedOrError(const Value& value, FieldType type, std::string_view place);

}  // namespace platform::database
