#include "settings/ini_text.h"

#include <gtest/gtest.h>

namespace kalvex {
namespace {

struct ValueCase {
    std::u16string text;
    std::string written;
};

const ValueCase kValues[] = {
    {u"", ""},
    {u"9sin(3x);9cos(2x)", "9sin(3x);9cos(2x)"},
    {u"\"Beta(x,2)\"", "\"Beta(x,2)\""},
    {u"a=b#[c]", "a=b#[c]"},
    {u"@x", "@x"},
    {u"\\data\\u0041", "\\\\data\\\\u0041"},
    {u" ", "\\u0020"},
    {u" a b ", "\\u0020a b\\u0020"},
    {u"\t\r\n", "\\u0009\\u000d\\u000a"},
    {std::u16string(u"a\0b", 3), "a\\u0000b"},
    {u"\u0436\u20AC", "\xD0\xB6\xE2\x82\xAC"},
    {u"\U0001F600", "\xF0\x9F\x98\x80"},
    {{0xD83D, u'x', 0xDE00, 0xD83D}, "\\ud83dx\\ude00\\ud83d"},
    {{0xFEFF, 0xFFFE, 0xFFFF}, "\\ufeff\\ufffe\\uffff"},
};

TEST(IniText, WritesReadableValuesAndReadsThemBack) {
    for (const ValueCase& row : kValues) {
        IniText ini;
        SetIniValue(ini, "S", "name", row.text);
        EXPECT_EQ(WriteIni(ini), "[S]\nname=" + row.written + "\n");
        const IniText read = ReadIni(WriteIni(ini));
        ASSERT_NE(FindIniValue(read, "s", "NAME"), nullptr) << row.written;
        EXPECT_EQ(FindIniValue(read, "s", "NAME")->text, row.text) << row.written;
    }
}

TEST(IniText, KeepsOrderAndSpelling) {
    const std::string text = "[B]\nXmin=1\n\n[a]\nx=2\n";
    IniText ini = ReadIni(text);
    EXPECT_EQ(WriteIni(ini), text);
    SetIniValue(ini, "b", "xmin", u"3");
    SetIniValue(ini, "B", "y", u"4");
    EXPECT_EQ(WriteIni(ini), "[B]\nXmin=3\ny=4\n\n[a]\nx=2\n");
}

TEST(IniText, KnowsItsSections) {
    const IniText ini = ReadIni("[Function1]\nx=1\n[Empty]\n");
    EXPECT_TRUE(HasIniSection(ini, "function1"));
    EXPECT_FALSE(HasIniSection(ini, "Function"));
    EXPECT_FALSE(HasIniSection(ini, "Function11"));
    EXPECT_FALSE(HasIniSection(ini, "Empty"));
    EXPECT_EQ(FindIniValue(ini, "Function1", "y"), nullptr);
}

struct LineCase {
    std::string bytes;
    std::size_t values;
    std::u16string x;  ///< value of S/x
};

const LineCase kLines[] = {
    {"", 0, u""},
    {"[S]\nx=1", 1, u"1"},
    {"\xEF\xBB\xBF[S]\r\nx=1\r\n", 1, u"1"},
    {"  [ S ]\n  x  =  1  \n", 1, u"1"},
    {"[S]\n;y=2\n#z=3\nx=1\n", 1, u"1"},
    {"[S]\nx=1\nrubbish\n=5\n[broken\nx=2", 1, u"2"},
    {"[S]\nx=\\q\\\n", 1, u"\\q\\"},
    {"[S]\nx=\\u00\n", 1, u"\\u00"},
    {"[S]\nx=\\u00zz\n", 1, u"\\u00zz"},
    {"[S]\nx=\xFF\n", 1, u"\uFFFD"},
    {"[S]\nx=1\n[s]\nX=2\n", 1, u"2"},
    {"x=5\n[S]\nx=1\n", 2, u"1"},
};

TEST(ReadIni, TakesAnyBytes) {
    for (const LineCase& row : kLines) {
        const IniText ini = ReadIni(row.bytes);
        EXPECT_EQ(ini.values.size(), row.values) << row.bytes;
        const IniValue* const x = FindIniValue(ini, "S", "x");
        EXPECT_EQ(x == nullptr ? u"" : x->text, row.x) << row.bytes;
    }
}

}  // namespace
}  // namespace kalvex
