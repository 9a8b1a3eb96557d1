// The system's SQL texts in the embedded engine's dialect. Works on the text alone: knows no
// connection and no table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform::database {

// A name as SQL takes it, whatever it is: "SalesLines".
[[nodiscard]] std::string QuotedName(std::string_view name);

// The postfix " COLLATE ..." by which a comparison with this text ignores case. It is NOCASE, by
// which keys are indexed, where the text has no letter that NOCASE does not know.
[[nodiscard]] std::string CollationFor(std::string_view text);

// `sql` as the engine is to run it: DELETE without the star, texts compared without regard to case,
// and the rows of a grouping query in the order of their groups where no other order is given.
[[nodiscard]] std::string ToEngineDialect(std::string_view sql);

// The table of a query of the form SELECT * FROM table [WHERE ...] [ORDER BY ...]; empty for any
// other text.
[[nodiscard]] std::string WholeTableOf(std::string_view sql);

// A query of that form with the columns that find its rows again behind the table's own; where its
// order leaves rows equal, or there is none, these columns order them.
[[nodiscard]] std::string WithRowKey(std::string_view sql, const std::vector<std::string>& rowKey);

}  // namespace platform::database
