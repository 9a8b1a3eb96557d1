// Texts between the system, which holds UTF-8, and the toolkit.
#pragma once

#include <QString>
#include <string_view>

namespace ui::window {

[[nodiscard]] inline QString ToolkitText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace ui::window
