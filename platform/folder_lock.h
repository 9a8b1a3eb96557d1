// The lock that keeps a folder to one server at a time. It lies on the folder itself, so it leaves
// no file, and the system drops it with the process that holds it, however that ends.
#pragma once

#include <string_view>

#include "platform/descriptor.h"

namespace platform {

class FolderLock {
  public:
    // Error 70 where another holds the folder, 76 where there is no such folder. Programs that are
    // started meanwhile do not hold it on.
    explicit FolderLock(std::string_view folder);

  private:
    Descriptor descriptor_;
};

}  // namespace platform
