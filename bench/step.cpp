// bench_step: runs one step of the export of a demo shop and ends without a word, so that its time
// and its memory can be taken from outside.

#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <string_view>

#include "bench/open_shop.h"
#include "platform/error.h"

namespace {

constexpr const char* kUsage =
    "usage: bench_step STEP DIR\n"
    "import      the import of the data set Kasse1\n"
    "order-file  the body of the order file\n"
    "postings    all of the export but the order file\n";

void WritePostings(bench::OpenShop& shop) {
    shop.Import();
    shop.WriteMasterData();
    shop.WriteVouchers();
}

const std::map<std::string_view, std::function<void(bench::OpenShop&)>> kSteps = {
    {"import", &bench::OpenShop::Import},
    {"order-file", &bench::OpenShop::WriteOrderFile},
    {"postings", WritePostings},
};

int Run(std::string_view step, const char* folder) {
    const auto found = kSteps.find(step);
    if (found == kSteps.end()) {
        std::cerr << kUsage;
        return 2;
    }
    std::filesystem::current_path(folder);
    bench::OpenShop shop;
    found->second(shop);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << kUsage;
        return 2;
    }
    try {
        return Run(argv[1], argv[2]);
    } catch (const platform::RuntimeError& error) {
        std::cerr << "bench_step: " << error.Description() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "bench_step: " << error.what() << '\n';
    }
    return 3;
}
