// Answers that are asked for once, and anew where there are too many to remember.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace control {

// The answers of `ask`, remembered.
template <class Answer>
class Remembered {
  public:
    explicit Remembered(std::function<Answer(const std::string&)> ask) : ask_(std::move(ask)) {}

    const Answer& Of(const std::string& key) {
        constexpr std::size_t kMost = 20000;  // a few MB
        const auto found = answers_.find(key);
        if (found != answers_.end()) return found->second;
        if (answers_.size() >= kMost) answers_.clear();
        return answers_.emplace(key, ask_(key)).first->second;
    }

  private:
    std::function<Answer(const std::string&)> ask_;
    std::unordered_map<std::string, Answer> answers_;
};

}  // namespace control
