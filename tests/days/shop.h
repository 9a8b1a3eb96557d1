// The shop of a day in a folder: laid out before the run, and told in words after it.
#pragma once

#include <filesystem>
#include <string>

namespace days {

// Lays out the usual shop (folder `usual` of `days`) with what the day `name` changes: settings,
// databases, company, data sets, and the files that lie there before the run.
void LayOutShop(const std::filesystem::path& days, const std::string& name,
                const std::filesystem::path& folder);

// What the store keeps for the next day: the voucher number, and what is still marked as changed.
[[nodiscard]] std::string StoreText(const std::filesystem::path& folder);

// The company's tables, and its documents with their lines, without the rows of `before`.
[[nodiscard]] std::string CompanyText(const std::filesystem::path& folder,
                                      const std::string& before = {});

}  // namespace days
