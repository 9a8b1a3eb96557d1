// Numbers to texts and texts to numbers: what every value of a day goes through.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "demo/random.h"
#include "platform/norwegian.h"

namespace {

using platform::Value;

constexpr int kCount = 1024;

// Amounts with two decimals, as a shop has them.
std::vector<Value> Amounts() {
    demo::Random random(1, "amounts");
    std::vector<Value> amounts;
    for (int i = 0; i < kCount; ++i)
        amounts.emplace_back(static_cast<double>(random.Between(-100000, 1000000)) / 100.0);
    return amounts;
}

template <class Action>
void ForEach(benchmark::State& state, const std::vector<Value>& values, const Action& action) {
    for (auto _ : state) {
        for (const Value& value : values)
            benchmark::DoNotOptimize(action(value));
    }
    state.SetItemsProcessed(state.iterations() * kCount);
}

void TextOfAmount(benchmark::State& state) {
    ForEach(state, Amounts(), [](const Value& value) { return platform::ToText(value); });
}
BENCHMARK(TextOfAmount);

void TextOfWholeNumber(benchmark::State& state) {
    std::vector<Value> numbers;
    for (const Value& amount : Amounts())
        numbers.emplace_back(platform::ToInt32(amount));
    ForEach(state, numbers, [](const Value& value) { return platform::ToText(value); });
}
BENCHMARK(TextOfWholeNumber);

void TwoDecimals(benchmark::State& state) {
    ForEach(state, Amounts(),
            [](const Value& value) { return platform::ToTwoDecimals(value)->CommaText(); });
}
BENCHMARK(TwoDecimals);

void RoundedToTwoDecimals(benchmark::State& state) {
    ForEach(state, Amounts(),
            [](const Value& value) { return platform::RoundToTwoDecimals(value); });
}
BENCHMARK(RoundedToTwoDecimals);

void NumberOfText(benchmark::State& state) {
    std::vector<Value> texts;
    for (const Value& amount : Amounts())
        texts.emplace_back(platform::ToText(amount));
    ForEach(state, texts, [](const Value& value) { return platform::ToDouble(value); });
}
BENCHMARK(NumberOfText);

}  // namespace
