// Names in a folder that are no regular file's, for what must refuse them without waiting.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/platform/temp_folder.h"

namespace support {

// A folder, a FIFO, a device where the system lets one be made, and a link to each of them.
inline std::vector<std::string> MakeNoFiles(const TempFolder& folder) {
    std::vector<std::string> names = {"mappe", "rør"};
    std::filesystem::create_directory(folder.File("mappe"));
    if (::mkfifo(folder.File("rør").c_str(), 0600) != 0) throw std::runtime_error("no FIFO");
    constexpr unsigned kMemoryDevices = 1;
    constexpr unsigned kNullDevice = 3;
    if (::mknod(folder.File("enhet").c_str(), S_IFCHR | 0600,
                makedev(kMemoryDevices, kNullDevice)) == 0) {
        names.emplace_back("enhet");
    } else {
        GTEST_LOG_(INFO) << "without a device: no right to make one";
    }
    for (std::size_t i = names.size(); i-- > 0;) {
        names.push_back(names[i] + ".lenke");
        std::filesystem::create_symlink(names[i], folder.File(names.back()));
    }
    return names;
}

}  // namespace support
