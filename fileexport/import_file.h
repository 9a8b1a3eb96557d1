// One of the day's import files, from the moment its working copy is begun until it can take its
// name. Another program may take or change the file meanwhile: it is known by what it was.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/held_file.h"
#include "platform/text_file.h"

namespace fileexport {

// The name that an import file has while it is made: beside its place, so that it takes that in one
// step.
[[nodiscard]] std::string WorkingCopy(const std::string& target);

// What becomes of the file that is there already.
enum class OldFile {
    IsExtended,
    IsReplaced,           // whatever it holds
    IsReplacedAsItIsNow,  // another one, or another content, is extended
};

class ImportFile {
  public:
    // The file of that configured name, or what a link of that name means, as it is now. A file
    // that begins anew begins with `firstLine`, unless that is empty.
    ImportFile(platform::TextFiles& textFiles, std::string name, const std::string& firstLine = "");

    [[nodiscard]] bool IsThere() const { return old_.WasThere(); }
    [[nodiscard]] const std::string& Target() const { return target_; }

    // Begins the working copy. A file that is extended is held as it is now.
    void Begin(OldFile oldFile);
    [[nodiscard]] platform::TextFile& Text() { return *text_; }

    // Error 75 (76) where it is known that the working copy can not take the file's place.
    void RequirePlace() const;

    // Error 53 where somebody has taken the working copy away or put another file in its place.
    void RequireWorkingCopy() const;

    enum class Since { Changed, Gone };  // since it was read last
    // Makes a closed working copy again, from what is there now and the day's part, where it no
    // longer fits what is there; tells what that was.
    [[nodiscard]] std::optional<Since> FollowChange();

  private:
    void BeginAnew();
    void BeginAsCopy();
    [[nodiscard]] bool FitsWhatIsThere() const;

    platform::TextFiles& textFiles_;
    std::string name_;
    std::string target_;
    std::string firstLine_;
    platform::HeldFile old_;
    OldFile oldFile_ = OldFile::IsExtended;
    std::unique_ptr<platform::TextFile> text_;
    std::optional<platform::HeldFile> workingCopy_;
    std::uint64_t dayBegins_ = 0;  // bytes of the working copy before the day's part
};

}  // namespace fileexport
