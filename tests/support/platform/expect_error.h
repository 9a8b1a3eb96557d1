// Expecting the one exception type, with its number and a piece of its description.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/error.h"

namespace support {

// Runs `action`, which must throw RuntimeError with this number; gives its description.
template <class Action>
std::string ExpectError(int number, Action&& action) {
    try {
        std::forward<Action>(action)();
    } catch (const platform::RuntimeError& error) {
        EXPECT_EQ(error.Number(), number) << error.Description();
        return error.Description();
    }
    ADD_FAILURE() << "no error, expected " << number;
    return {};
}

}  // namespace support
