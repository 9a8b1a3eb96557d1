// Finding a field by its name among the fields of a recordset.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform::database {

// The place of the first field of that name, in any case; error 3265, which names
// `source`, where there is none.
[[nodiscard]] std::size_t PlaceOfField(const std::vector<std::string>& fields,
                                       std::string_view name, std::string_view source);

}  // namespace platform::database
