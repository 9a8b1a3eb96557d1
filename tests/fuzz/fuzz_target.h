// What the fuzz targets share. A target gets any bytes; a property that does not hold, and any
// exception but RuntimeError, ends the process, so that the input is kept as a finding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/error.h"

// The one entry of every target, by the name that the fuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The text in front of the last line end, and the line behind it; without a line end all in front.
inline std::pair<std::string_view, std::string_view> SplitLastLine(std::string_view text) {
    const std::size_t end = text.rfind('\n');
    if (end == std::string_view::npos) return {text, {}};
    return {text.substr(0, end), text.substr(end + 1)};
}

inline void Require(bool holds, std::string_view property) {
    if (holds) return;
    std::cerr << "Does not hold: " << property << std::endl;
    std::abort();
}

// The error that the action ends with, if it does.
template <class Action>
std::optional<platform::RuntimeError> ErrorOf(Action&& action) {
    try {
        std::forward<Action>(action)();
        return std::nullopt;
    } catch (const platform::RuntimeError& error) {
        return error;
    }
}

// The number of that error; 0 where there is none.
template <class Action>
int ErrorNumberOf(Action&& action) {
    const auto error = ErrorOf(std::forward<Action>(action));
    return error ? error->Number() : 0;
}

}  // namespace fuzz
