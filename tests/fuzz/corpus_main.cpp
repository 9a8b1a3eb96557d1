// Runs a fuzz target over the files of a folder, once each: what the fuzzer has found stays found,
// and every test run looks at it without a fuzzer.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_target.h"

namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& path) {
    std::ifstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

int RunAll(const fs::path& folder) {
    const std::vector<fs::path> files = FilesOf(folder);
    for (const fs::path& path : files) {
        // Before it runs: after an abort the last line names the file that did it.
        std::cerr << path.filename().string() << std::endl;
        const std::string content = ContentOf(path);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()),
                               content.size());
    }
    std::cerr << files.size() << " inputs hold\n";
    return files.empty() ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: " << argv[0] << " CORPUS-FOLDER\n";
        return 2;
    }
    try {
        return RunAll(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "Not RuntimeError alone, or no corpus: " << error.what() << '\n';
        return 1;
    }
}
