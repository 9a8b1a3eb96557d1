// Whether a file can be given another name or be replaced, so far as that is known before.
#pragma once

#include <string_view>

namespace platform {

// Error 75 (76) where this user may not take the file of that name away: files can not be removed
// from its folder, the file or the folder is protected from changes, or the folder lets only the
// owner of a file do that. A link counts itself. Nothing where there is no such file.
void RequireRemovable(std::string_view name);

}  // namespace platform
