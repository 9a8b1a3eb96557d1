#include "fileexport/record_writer.h"

#include <gtest/gtest.h>

#include "tests/support/ui/test_shop.h"

using platform::Value;
using support::TestShop;

namespace {

// What a voucher with this text writes; the record is 96 characters long besides the text.
std::string Written(const std::string& text) {
    const TestShop shop;
    platform::TextFiles files;
    fileexport::RecordCounter counter = 1;
    fileexport::VoucherRecord record;
    record.VoNo = 500;
    record.Txt = text;
    const auto file = files.OpenForOutput("bilag.txt");
    fileexport::WriteVoucherRecord(*file, counter, record);
    fileexport::CloseVoucherFile(*file);
    EXPECT_EQ(counter, 2);
    return shop.Text("bilag.txt");
}

// The 22 quoted values of such a voucher.
std::string Line(const std::string& text) {
    std::string line = R"("500" "" "" ")" + text + '"';
    for (int i = 0; i < 18; ++i)
        line += R"( "")";
    return line;
}

}  // namespace

TEST(RecordWriter, ARecordOfMoreThan200CharactersLosesTheRest) {
    const std::size_t others = Line("").size();
    std::string fits;
    for (std::size_t i = others; i < 200; ++i)
        fits += "ø";
    EXPECT_EQ(Written(fits), Line(fits) + "\n");
    const std::string whole = Line(fits + "x");
    EXPECT_EQ(Written(fits + "x"), whole.substr(0, whole.size() - 1) + " \\\n\n");
}

TEST(RecordWriter, ValuesAreTrimmedButNotEscaped) {
    EXPECT_EQ(Written("  Bil \"A\"  "), Line("Bil \"A\"") + "\n");
    EXPECT_EQ(Written(" "), Line("") + "\n");
}
