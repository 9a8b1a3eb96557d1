// A file as it was at a moment, so that another one of its name, or its own later content, is never
// taken for it.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/files.h"

namespace platform {

class HeldFile {
  public:
    // The regular file of that name, or that there is none. Its content may be unreadable.
    explicit HeldFile(std::string_view name);

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] bool WasThere() const { return identity_.has_value(); }

    // Whether the name still means the file that it meant, with the size and the time of its last
    // change; where there was none, whether there still is none.
    [[nodiscard]] bool IsUnchanged() const;

    // Whether that name means the same file, whatever has become of its content.
    [[nodiscard]] bool IsAlso(const std::filesystem::path& other) const;

    [[nodiscard]] bool HasOtherNames() const;  // hard links, here or elsewhere

  private:
    struct Identity {
        dev_t device = 0;
        FileStamp stamp;

        friend bool operator==(const Identity&, const Identity&) = default;
    };
    [[nodiscard]] static std::optional<Identity> IdentityOf(const Descriptor& descriptor);

    std::string name_;
    // The file, not its content: its number is given to no other file while this is open.
    Descriptor descriptor_;
    std::optional<Identity> identity_;
};

}  // namespace platform
