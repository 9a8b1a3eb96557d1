// The demo program: its command line. The shop itself is made in the library.

#include <CLI/CLI.hpp>
#include <chrono>
#include <exception>
#include <iostream>
#include <string>

#include "demo/demo_folder.h"
#include "demo/options.h"
#include "platform/error.h"
#include "platform/process.h"

namespace {

constexpr int kWrongUsage = 2;
constexpr int kFailed = 3;

constexpr const char* kVersion = "kvdayend-demo " KV_VERSION;

constexpr const char* kFooter =
    "The same options and seed give the same files, byte for byte.\n"
    "DIR must be absent, empty or a demo shop, which is then replaced.\n"
    "Exit status: 0 made, 2 wrong usage or DIR holds something else, 3 failed.";

std::string CheckDate(const std::string& text) {
    using namespace std::chrono;
    if (text.size() != 8 || text.find_first_not_of("0123456789") != std::string::npos) {
        return "a date is YYYYMMDD";
    }
    const year_month_day date{year{std::stoi(text.substr(0, 4))},
                              month{static_cast<unsigned>(std::stoi(text.substr(4, 2)))},
                              day{static_cast<unsigned>(std::stoi(text.substr(6, 2)))}};
    const bool isUsable = date.ok() && date.year() >= year{1900};
    return isUsable ? std::string() : "there is no day " + text;
}

void AddOptions(CLI::App& program, demo::ShopOptions& options) {
    const CLI::Range number(0, 10000000);
    program.add_option("DIR", options.folder, "the folder of the shop")->required();
    program.add_option("--sales", options.sales, "sales in each data set")
        ->check(number)
        ->capture_default_str();
    program
        .add_option("--lines", options.lines,
                    "records in each lines file: goods, payments and roundings together; at least "
                    "two a sale [seven to two sales]")
        ->check(CLI::Range(0, 1000000000));
    program
        .add_option("--data-sets", options.dataSets, "data sets; from three on, one has no name")
        ->check(CLI::Range(0, 1000))
        ->capture_default_str();
    program.add_option("--changed-customers", options.changedCustomers, "new or changed customers")
        ->check(number)
        ->capture_default_str();
    program
        .add_option("--changed-products", options.changedProducts,
                    "new or changed products, each with its row of prices")
        ->check(number)
        ->capture_default_str();
    program.add_flag("--sap", options.sap, "a shop that posts to SAP, with a local company");
    program.add_option("--seed", options.seed, "which shop, and which day")->capture_default_str();
    program.add_option("--date", options.date, "the day of the sales, YYYYMMDD [from the seed]")
        ->check(CheckDate);
}

// What the range of one option can not tell.
void CheckLines(const demo::ShopOptions& options) {
    if (!options.lines) return;
    if (options.sales == 0 && *options.lines != 0) {
        throw CLI::ValidationError("--lines", "without sales there are no lines");
    }
    const std::int64_t fewest = options.sales * demo::kFewestLinesPerSale;
    if (*options.lines < fewest) {
        throw CLI::ValidationError("--lines", std::to_string(options.sales) +
                                                  " sales need at least " + std::to_string(fewest) +
                                                  " records");
    }
}

int Run(int argc, char** argv) {
    CLI::App program("Makes a demo shop for the day-end server.", "kvdayend-demo");
    demo::ShopOptions options;
    program.footer(kFooter);
    program.set_version_flag("--version", kVersion);
    AddOptions(program, options);
    try {
        program.parse(argc, argv);
        CheckLines(options);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : kWrongUsage;
    }
    try {
        demo::MakeDemoShop(options);
        return 0;
    } catch (const demo::FolderInUse& error) {
        std::cerr << "kvdayend-demo: " << error.what() << '\n';
        return kWrongUsage;
    }
}

}  // namespace

int main(int argc, char** argv) {
    platform::PrepareProcess();
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "kvdayend-demo: " << error.what() << '\n';
        return kFailed;
    }
}
