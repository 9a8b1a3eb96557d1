#include "app/ini_class.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/platform/expect_error.h"
#include "tests/support/platform/temp_folder.h"

using app::INIClass;
using app::TextArray;

namespace {

class IniClass : public testing::Test {
  protected:
    IniClass() { iniFile.FileName(folder.File("Kassovia.ini")); }

    support::TempFolder folder;
    platform::ProfileFiles profileFiles;
    INIClass iniFile{profileFiles};
    std::string value = "before";
};

}  // namespace

TEST_F(IniClass, AMissingOrEmptyValueLeavesThePriorOne) {
    folder.Write("Kassovia.ini", "[General]\r\nEmpty=\r\nPointID = Kasse \xC6 \r\n");
    EXPECT_FALSE(iniFile.ReadValue("General", "Empty", value));
    EXPECT_EQ(value, "before");
    EXPECT_EQ(iniFile.LastErrorDescription(), "An unknown error has occured");
    EXPECT_FALSE(iniFile.ReadValue("General", "NoSuchKey", value));
    EXPECT_EQ(value, "before");
    EXPECT_EQ(iniFile.LastErrorNumber(), 2);
    EXPECT_TRUE(iniFile.ReadValue("general", "POINTID", value));
    EXPECT_EQ(value, "Kasse Æ");

    iniFile.FileName("");
    EXPECT_FALSE(iniFile.ReadValue("General", "PointID", value));
    EXPECT_EQ(iniFile.LastErrorDescription(), "No filename specified");
}

TEST_F(IniClass, AValueIsCutTo254Characters) {
    folder.Write("Kassovia.ini", "[General]\nLong=" + std::string(300, '\xE5') + "\n");
    ASSERT_TRUE(iniFile.ReadValue("General", "Long", value));
    std::string expected;
    for (int i = 0; i < 254; ++i)
        expected += "å";
    EXPECT_EQ(value, expected);
}

TEST_F(IniClass, Sections) {
    folder.Write("Kassovia.ini", "[A]\nx=1\n; note\ny=2=3\nz=\n[B]\nnoise\n");
    TextArray keys({"old"});
    TextArray values({"old"});
    EXPECT_FALSE(iniFile.ReadSection("C", keys, values));
    EXPECT_EQ(keys, TextArray({"old"}));
    ASSERT_TRUE(iniFile.ReadSection("A", keys, values));
    EXPECT_EQ(keys, TextArray({"x", "y", "z"}));
    EXPECT_EQ(values, TextArray({"1", "2=3", ""}));
    support::ExpectError(5, [&] { iniFile.ReadSection("B", keys, values); });

    TextArray names;
    ASSERT_TRUE(iniFile.Enum_SectionNames(names));
    EXPECT_EQ(names, TextArray({"A", "B"}));
}

TEST_F(IniClass, WritingComparesTheUpperBoundsOnly) {
    const TextArray three({"a", "b", "c"});
    EXPECT_FALSE(iniFile.WriteSection("S", three, TextArray({"1", "2", "3", "4"})));
    EXPECT_EQ(iniFile.LastErrorDescription(), "Key array and Value array must be of the same size");
    support::ExpectError(9, [&] { iniFile.WriteSection("S", three, TextArray({"2", "3"}, 1)); });
    EXPECT_FALSE(folder.Has("Kassovia.ini"));

    EXPECT_TRUE(iniFile.WriteSection("S", three, TextArray({"1", "2", "3"})));
    EXPECT_TRUE(iniFile.WriteValue("S", "b", "blåbær"));
    EXPECT_EQ(folder.Read("Kassovia.ini"),
              "[S]\r\na=1\r\nb=bl\xE5"
              "b\xE6r\r\nc=3\r\n");
}
