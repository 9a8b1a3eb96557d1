#include "ui/journal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <memory>

#include "platform/descriptor.h"
#include "platform/process.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/fixed_clock.h"
#include "tests/support/platform/no_files.h"
#include "tests/support/platform/scripted_operator.h"
#include "tests/support/platform/temp_folder.h"

using platform::Answer;
using platform::Icon;

TEST(Journal, RecordsWhatIsShownAskedAndAnswered) {
    const support::TempFolder folder;
    support::ScriptedOperator person;
    person.answers = {Answer::No};
    person.inputs = {"9999", "hemmelig"};
    folder.Write("journal", "before\n");
    const support::FixedClock clock;
    {
        ui::Journal journal(folder.File("journal"), person, clock);
        journal.ShowStatusLine("Starter \"Æ\"");
        journal.Show({std::nullopt, "a\nb", Icon::Information});
        EXPECT_EQ(journal.Ask({"Tittel", "Skal?", Icon::None, Answer::Yes}), Answer::No);
        EXPECT_EQ(journal.Prompt({"Kontonummer", "Hvilken?", "1920", false}), "9999");
        EXPECT_EQ(journal.Prompt({"Pålogging", "Passord?", "", true}), "hemmelig");
        journal.DayEndCommandStarted("ferdig.sh");
        journal.ShowStatusLine("not UTF-8: \xFF");
        journal.ReportFatal(platform::RuntimeError(3704, "closed"));
    }
    const char* const events[] = {
        R"("status","text":"Starter \"Æ\"")",
        R"("message","title":null,"text":"a\nb","icon":"information")",
        R"("question","title":"Tittel","text":"Skal?","icon":"none","default":"yes","answer":"no")",
        R"("prompt","title":"Kontonummer","text":"Hvilken?","default":"1920","answer":"9999")",
        R"("prompt","title":"Pålogging","text":"Passord?","default":"","answer":"***")",
        R"("command","text":"ferdig.sh")",
        "\"status\",\"text\":\"not UTF-8: \xEF\xBF\xBD\"",
        R"("fatal","number":3704,"text":"closed")"};
    std::string expected = "before\n";
    for (const char* event : events)
        expected.append(R"({"time":"2005-11-16T14:07:33","event":)").append(event).append("}\n");
    EXPECT_EQ(folder.Read("journal"), expected);
    EXPECT_EQ(person.fatal, std::vector<int>{3704});
}

TEST(Journal, AFileThatCanNotBeOpenedIsAnError) {
    const support::TempFolder folder;
    support::ScriptedOperator person;
    const support::FixedClock clock;
    support::ExpectError(76, [&] { ui::Journal(folder.File("no/journal"), person, clock); });
}

TEST(Journal, AFifoIsAJournalOnlyForAsLongAsSomebodyReadsIt) {
    platform::PrepareProcess();
    const support::TempFolder folder;
    support::ScriptedOperator person;
    const support::FixedClock clock;
    const auto open = [&](const std::string& name) {
        return std::make_unique<ui::Journal>(folder.File(name), person, clock);
    };
    for (const std::string& name : support::MakeNoFiles(folder)) {
        const std::string text = support::ExpectError(75, [&] { open(name); });
        EXPECT_NE(text.find(folder.File(name)), std::string::npos) << text;
    }
    const std::string fifo = folder.File("rør");
    platform::Descriptor reader(::open(fifo.c_str(), O_RDONLY | O_NONBLOCK));
    const auto journal = open("rør");
    journal->ShowStatusLine("lest");
    std::array<char, 1000> read{};
    const ssize_t count = ::read(reader.Get(), read.data(), read.size());
    ASSERT_GT(count, 0);
    EXPECT_NE(std::string_view(read.data(), static_cast<std::size_t>(count)).find("lest"),
              std::string_view::npos);
    reader.Close();
    support::ExpectError(57, [&] { journal->ShowStatusLine("ulest"); });
}
