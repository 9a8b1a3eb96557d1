#include "ui/terminal/terminal_face.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/text.h"
#include "ui/terminal/printable.h"

namespace ui::terminal {

namespace {

constexpr int kExitSuccess = 0;
constexpr int kExitWithErrors = 1;

void SelectAll(frmMain& window) {
    for (ListEntry& entry : window.ListDayEnd)
        entry.isSelected = true;
}

// Selects the data set of that display name, exactly or as the list shows it; false when it is not
// waiting.
bool SelectByName(const std::string& name, frmMain& window) {
    auto entry =
        std::find_if(window.ListDayEnd.begin(), window.ListDayEnd.end(),
                     [&](const ListEntry& each) { return each.dataSet.DisplayName() == name; });
    if (entry == window.ListDayEnd.end()) {
        entry = std::find_if(window.ListDayEnd.begin(), window.ListDayEnd.end(),
                             [&](const ListEntry& each) {
                                 return PrintableLine(each.dataSet.DisplayName()) == name;
                             });
    }
    if (entry == window.ListDayEnd.end()) return false;
    entry->isSelected = true;
    return true;
}

// The places (from 0) that an answer such as "1, 3" names; nothing when it names anything else.
std::optional<std::vector<std::size_t>> PlacesOf(std::string answer, std::size_t count) {
    std::replace_if(
        answer.begin(), answer.end(), [](char c) { return c == ',' || c == '\t'; }, ' ');
    std::vector<std::size_t> places;
    for (std::string_view rest = platform::Trim(answer); !rest.empty();
         rest = platform::TrimLeft(rest)) {
        const std::string_view word = rest.substr(0, rest.find(' '));
        std::size_t number = 0;
        const auto [end, fault] = std::from_chars(word.data(), word.data() + word.size(), number);
        if (fault != std::errc() || end != word.data() + word.size() || number < 1 ||
            number > count) {
            return std::nullopt;
        }
        places.push_back(number - 1);
        rest.remove_prefix(word.size());
    }
    return places;
}

void SelectByAnswer(frmMain& window, TerminalOperator& terminal) {
    if (window.ListDayEnd.empty()) return;
    terminal.Print(frmMain::kLabel4);
    for (std::size_t i = 0; i < window.ListDayEnd.size(); ++i) {
        terminal.Print("  " + std::to_string(i + 1) + "  " +
                       PrintableLine(window.ListDayEnd[i].dataSet.DisplayName()));
    }
    for (;;) {
        const std::string answer =
            terminal.ReadLine("Hvilke skal overføres (numre, a for alle, tomt for ingen)? ")
                .value_or("");
        if (platform::EqualsIgnoreCase(platform::Trim(answer), "a")) return SelectAll(window);
        if (const auto places = PlacesOf(answer, window.ListDayEnd.size())) {
            for (const std::size_t place : *places)
                window.ListDayEnd[place].isSelected = true;
            return;
        }
        terminal.Print("Svaret må være numre fra listen.");
    }
}

}  // namespace

int RunOnce(const Selection& selection, frmMain& window, RunDriver& runDriver,
            TerminalOperator& terminal) {
    // A name that does not wait holds none of the others back; the exit status tells it.
    bool everyNameWaits = true;
    for (const std::string& name : selection.names) {
        if (SelectByName(name, window)) continue;
        terminal.Print("Datasettet venter ikke: " + PrintableLine(name));
        everyNameWaits = false;
    }
    if (selection.all) SelectAll(window);
    if (!selection.all && selection.names.empty()) SelectByAnswer(window, terminal);

    runDriver.StartDayEnd();
    return everyNameWaits && !runDriver.AnyDataSetHadErrors() ? kExitSuccess : kExitWithErrors;
}

}  // namespace ui::terminal
