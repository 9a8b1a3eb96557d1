#include "platform/comparison.h"

#include <optional>

#include "platform/norwegian.h"
#include "platform/text.h"

namespace platform {

namespace {

template <class T>
Ordering OrderingOf(const T& left, const T& right) {
    if (left < right) return Ordering::Less;
    return right < left ? Ordering::Greater : Ordering::Equal;
}

}  // namespace

Ordering Compare(const Value& left, const Value& right) {
    if (left.IsNull() || right.IsNull()) return Ordering::Unordered;
    if (left.AsText() && right.AsText()) {
        return OrderingOf(Upper(*left.AsText()), Upper(*right.AsText()));
    }
    if (left.AsDate() && right.AsDate()) return OrderingOf(*left.AsDate(), *right.AsDate());
    if (left.AsWhole() && right.AsWhole()) return OrderingOf(*left.AsWhole(), *right.AsWhole());

    const auto leftWhole = WholeNumberOf(left);
    const auto rightWhole = leftWhole ? WholeNumberOf(right) : std::nullopt;
    if (rightWhole) return OrderingOf(*leftWhole, *rightWhole);

    const std::optional<double> leftNumber = NumberOf(left);
    const std::optional<double> rightNumber = NumberOf(right);
    if (!leftNumber || !rightNumber) return Ordering::Unordered;
    return OrderingOf(*leftNumber, *rightNumber);
}

bool Equals(const Value& left, const Value& right) {
    return Compare(left, right) == Ordering::Equal;
}

}  // namespace platform
