// Patterns of file names. The last line of the input is the name, what stands in front of it are
// the patterns.

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"
#include "tests/fuzz/fuzz_target.h"

using namespace platform;
using fuzz::Require;

namespace {

using Characters = std::vector<std::string>;

Characters CharactersOf(std::string_view text) {
    Characters characters;
    for (std::size_t left = Length(text); left > 0; --left) {
        characters.push_back(Left(text, 1));
        text.remove_prefix(characters.back().size());
    }
    return characters;
}

// Every sequence of UTF-8 is whole. Names may be other bytes, but what is one character of them is
// nowhere told.
bool IsUtf8(std::string_view text) {
    for (const std::string& character : CharactersOf(text)) {
        const int ones = std::countl_one(static_cast<unsigned char>(character.front()));
        const std::size_t size = ones == 0 ? 1 : static_cast<std::size_t>(ones);
        if (ones == 1 || character.size() != size) return false;
    }
    return true;
}

// Row by row: whether the first characters of the name match the first ones of the pattern.
bool ReferenceMatchesOne(const Characters& name, const Characters& pattern) {
    std::vector<bool> matched(name.size() + 1, false);
    matched[0] = true;
    for (const std::string& wanted : pattern) {
        std::vector<bool> next(name.size() + 1, false);
        next[0] = wanted == "*" && matched[0];
        for (std::size_t i = 1; i <= name.size(); ++i) {
            next[i] = wanted == "*" ? matched[i] || next[i - 1]
                                    : matched[i - 1] && (wanted == "?" || wanted == name[i - 1]);
        }
        matched = next;
    }
    return matched.back();
}

bool ReferenceMatches(std::string_view name, std::string_view patterns) {
    const Characters upperName = CharactersOf(Upper(name));
    while (true) {
        const std::size_t end = std::min(patterns.find(';'), patterns.size());
        const std::string_view pattern = Trim(patterns.substr(0, end));
        if (!pattern.empty() && ReferenceMatchesOne(upperName, CharactersOf(Upper(pattern)))) {
            return true;
        }
        if (end == patterns.size()) return false;
        patterns.remove_prefix(end + 1);
    }
}

bool IsPlainPattern(std::string_view name) {
    return !name.empty() && Trim(name) == name && name.find_first_of("*?;") == std::string::npos;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [patterns, name] = fuzz::SplitLastLine(fuzz::TextOf(data, size));
    const bool matches = MatchesPattern(name, patterns);
    Require(MatchesPattern(Upper(name), Upper(patterns)) == matches, "case does not matter");
    if (IsUtf8(name) && IsUtf8(patterns)) {
        Require(matches == ReferenceMatches(name, patterns), "the naive matcher says the same");
    }
    Require(MatchesPattern(name, "*"), "a star matches every name");
    Require(!MatchesPattern(name, " ;"), "an empty pattern matches nothing");
    const std::string all = std::string(patterns) + ";*";
    Require(MatchesPattern(name, all), "one of several patterns is enough");
    const std::string marks(Length(name), '?');
    Require(MatchesPattern(name, marks) == !name.empty(), "one question mark for one character");
    Require(!MatchesPattern(name, marks + "?"), "and none for nothing");
    if (IsPlainPattern(name)) Require(MatchesPattern(name, name), "a plain name matches itself");
    return 0;
}
