#include "platform/recordset_file/foreign_names.h"

#include "platform/error.h"

namespace platform::recordset_file {

void ForeignNames::Note(std::string_view name, std::size_t cost) {
    std::string key(name);
    if (names_.contains(key)) return;
    taken_ += name.size() + cost;
    if (taken_ > kRoom) {
        throw RuntimeError(error_number::kInvalidFileFormat,
                           "there are too many names that the schema does not know.");
    }
    names_.insert(std::move(key));
}

}  // namespace platform::recordset_file
