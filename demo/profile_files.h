// The two profile files of the demo shop: the server's own and the store system's.
#pragma once

#include <filesystem>
#include <string_view>

namespace demo {

inline constexpr std::string_view kServerProfile = "KVDayEndServer.ini";
inline constexpr std::string_view kStoreProfile = "Kassovia.ini";

// The first line of a demo shop's server profile, by which the folder is known again.
inline constexpr std::string_view kDemoShopMark = "; Demobutikk fra kvdayend-demo";

void WriteFileExportProfiles(const std::filesystem::path& folder);
void WriteSapProfiles(const std::filesystem::path& folder);

}  // namespace demo
