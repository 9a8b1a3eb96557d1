#include "fileexport/import_file.h"

#include <filesystem>
#include <utility>

#include "platform/error.h"
#include "platform/files.h"
#include "platform/removable.h"
#include "platform/replace_beginning.h"

namespace fileexport {

using platform::HeldFile;
using platform::RuntimeError;

namespace {

// A name that is no link stays as it is configured.
std::string TargetOf(const std::string& name) {
    const std::filesystem::path path = platform::ResolvePath(name);
    std::filesystem::path target = platform::BehindLink(path);
    return target == path ? name : target.string();
}

}  // namespace

std::string WorkingCopy(const std::string& target) {
    return target + ".tmp";
}

ImportFile::ImportFile(platform::TextFiles& textFiles, std::string name,
                       const std::string& firstLine)
    : textFiles_(textFiles),
      name_(std::move(name)),
      target_(TargetOf(name_)),
      firstLine_(firstLine.empty() ? "" : platform::EncodeLine(firstLine)),
      old_(target_) {}

void ImportFile::Begin(OldFile oldFile) {
    oldFile_ = oldFile;
    if (oldFile == OldFile::IsExtended) old_ = HeldFile(target_);
    if (oldFile == OldFile::IsExtended && IsThere()) {
        BeginAsCopy();
    } else {
        BeginAnew();
    }
    workingCopy_.emplace(WorkingCopy(target_));
}

void ImportFile::BeginAsCopy() {
    textFiles_.Copy(target_, WorkingCopy(target_));
    text_ = textFiles_.OpenForAppend(WorkingCopy(target_));
    dayBegins_ = platform::StampOf(WorkingCopy(target_)).value_or(platform::FileStamp{}).size;
}

void ImportFile::BeginAnew() {
    text_ = textFiles_.OpenForOutput(WorkingCopy(target_));
    text_->WriteEncoded(firstLine_);
    dayBegins_ = firstLine_.size();
}

void ImportFile::RequirePlace() const {
    if (TargetOf(name_) != target_) {
        throw RuntimeError(platform::error_number::kPathAccess,
                           name_ + " leads to another file than when the day was begun");
    }
    platform::RequirePlaceForFile(target_);
    platform::RequireRemovable(target_);
    platform::RequireRemovable(WorkingCopy(target_));
}

void ImportFile::RequireWorkingCopy() const {
    const std::filesystem::path path = platform::ResolvePath(WorkingCopy(target_));
    if (workingCopy_->IsAlso(path)) return;
    throw RuntimeError(platform::error_number::kFileNotFound,
                       "Somebody has taken away or replaced " + path.string() +
                           ", the file that the day was written into");
}

bool ImportFile::FitsWhatIsThere() const {
    if (old_.IsUnchanged()) return true;
    if (oldFile_ == OldFile::IsExtended) return false;
    return oldFile_ == OldFile::IsReplaced || !platform::FileExists(target_);
}

std::optional<ImportFile::Since> ImportFile::FollowChange() {
    if (FitsWhatIsThere()) return std::nullopt;
    oldFile_ = OldFile::IsExtended;
    old_ = HeldFile(target_);
    dayBegins_ = IsThere()
                     ? platform::ReplaceBeginning(WorkingCopy(target_), dayBegins_, "", target_)
                     : platform::ReplaceBeginning(WorkingCopy(target_), dayBegins_, firstLine_, "");
    return IsThere() ? Since::Changed : Since::Gone;
}

}  // namespace fileexport
