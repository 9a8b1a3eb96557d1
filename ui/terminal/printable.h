// Texts that a terminal may get: a control character in a name is not carried out but shown.
#pragma once

#include <string>
#include <string_view>

namespace ui::terminal {

// With every control character but the line end as `\x1b`; all other bytes stay as they are, also
// those that are no UTF-8.
[[nodiscard]] std::string Printable(std::string_view text);

// Likewise for what is one line, whatever it holds: a line end as `\x0a`.
[[nodiscard]] std::string PrintableLine(std::string_view line);

}  // namespace ui::terminal
