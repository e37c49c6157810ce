#include "orvalix/host/host_string.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

TEST(CString, StartsEmpty) {
  const CString text;
  EXPECT_EQ(text.GetLength(), 0);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_STREQ(text, "");
}

TEST(CString, CopiesText) {
  const CString text("chart");
  const CString copy(text);
  EXPECT_EQ(copy.GetLength(), 5);
  EXPECT_FALSE(copy.IsEmpty());
  EXPECT_STREQ(copy.GetString(), "chart");
}

TEST(CString, NullTextIsEmpty) {
  const char* null = nullptr;
  CString text(null);
  EXPECT_TRUE(text.IsEmpty());
  EXPECT_TRUE(CString(null, 4).IsEmpty());
  text = "x";
  text = null;
  EXPECT_TRUE(text.IsEmpty());
  text += null;
  EXPECT_TRUE((text + null).IsEmpty());
  EXPECT_TRUE((null + text).IsEmpty());
  EXPECT_EQ(text.Compare(null), 0);
  EXPECT_EQ(CString("a").CompareNoCase(null), 1);
  EXPECT_TRUE(text == null);
}

TEST(CString, TakesACountOfBytesWithZeros) {
  const CString text("a\0b", 3);
  EXPECT_EQ(text.GetLength(), 3);
  EXPECT_EQ(text.GetAt(1), '\0');
  EXPECT_EQ(text.GetAt(2), 'b');
  EXPECT_TRUE(CString("abc", 0).IsEmpty());
  EXPECT_TRUE(CString("abc", -1).IsEmpty());
}

TEST(CString, RepeatsACharacter) {
  EXPECT_STREQ(CString('x'), "x");
  EXPECT_STREQ(CString('x', 3), "xxx");
  EXPECT_TRUE(CString('x', 0).IsEmpty());
  EXPECT_TRUE(CString('x', -5).IsEmpty());
}

TEST(CString, ReadsZeroOutOfRange) {
  const CString text("ab");
  EXPECT_EQ(text[0], 'a');
  EXPECT_EQ(text[1], 'b');
  EXPECT_EQ(text[2], '\0');
  EXPECT_EQ(text[-1], '\0');
  EXPECT_EQ(text.GetAt(1000), '\0');
}

TEST(CString, SetsBytesInRangeOnly) {
  CString text("ab");
  text.SetAt(1, 'X');
  text.SetAt(2, 'Y');
  text.SetAt(-1, 'Z');
  EXPECT_STREQ(text, "aX");
}

TEST(CString, Empties) {
  CString text("ab");
  text.Empty();
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, Adds) {
  const CString a("a");
  EXPECT_STREQ(a + CString("b"), "ab");
  EXPECT_STREQ(a + "b", "ab");
  EXPECT_STREQ("b" + a, "ba");
  EXPECT_STREQ(a + 'c', "ac");
  EXPECT_STREQ('c' + a, "ca");
  CString sum;
  sum += a;
  sum += "bc";
  sum += 'd';
  sum += sum;
  EXPECT_STREQ(sum, "abcdabcd");
}

TEST(CString, Compares) {
  const CString a("abc");
  EXPECT_TRUE(a == CString("abc"));
  EXPECT_TRUE(a == "abc");
  EXPECT_TRUE("abc" == a);
  EXPECT_TRUE(a != "abd");
  EXPECT_TRUE("abd" != a);
  EXPECT_TRUE(a < CString("abd"));
  EXPECT_TRUE(a < "abd");
  EXPECT_TRUE("abb" < a);
  EXPECT_TRUE(a >= "abc");
  EXPECT_TRUE(a > "ab");
  EXPECT_LT(a.Compare("abd"), 0);
  EXPECT_EQ(a.Compare("abc"), 0);
  EXPECT_GT(a.Compare("ab"), 0);
}

TEST(CString, ComparesBytesAsUnsigned) {
  // 0xE4 comes after 'z' (0x7A).
  EXPECT_TRUE(CString("\xE4") > CString("z"));
  EXPECT_GT(CString("\xE4").CompareNoCase("z"), 0);
}

TEST(CString, ComparesWithoutCase) {
  EXPECT_EQ(CString("ChArT").CompareNoCase("cHaRt"), 0);
  EXPECT_LT(CString("char").CompareNoCase("CHART"), 0);
  EXPECT_GT(CString("CHART").CompareNoCase("char"), 0);
  EXPECT_LT(CString("A").CompareNoCase("b"), 0);
  // '[' (0x5B) lies between the capitals and the small letters, which letters are compared as.
  EXPECT_GT(CString("A").CompareNoCase("["), 0);
}

TEST(CString, ChangesCaseOfLettersOnly) {
  CString text("aZ1\xE4");
  EXPECT_STREQ(text.MakeUpper(), "AZ1\xE4");
  EXPECT_STREQ(text.MakeLower(), "az1\xE4");
}

TEST(CString, Formats) {
  CString text;
  text.Format("%d of %s: %.2f", 3, "ten", 1.5);
  EXPECT_STREQ(text, "3 of ten: 1.50");
  text.Format("%s", "");
  EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, FormatsItself) {
  CString text("ab");
  text.Format("%s-%s", text.GetString(), text.GetString());
  EXPECT_STREQ(text, "ab-ab");
}

TEST(CString, FormatsLongText) {
  const std::string many(100000, 'x');
  CString text;
  text.Format("%s!", many.c_str());
  EXPECT_EQ(text.GetLength(), 100001);
  EXPECT_EQ(text.GetAt(100000), '!');
}

TEST(CString, TakesParts) {
  const CString text("abcdef");
  EXPECT_STREQ(text.Left(2), "ab");
  EXPECT_STREQ(text.Right(2), "ef");
  EXPECT_STREQ(text.Mid(2), "cdef");
  EXPECT_STREQ(text.Mid(2, 3), "cde");
}

TEST(CString, ClipsParts) {
  const CString text("abc");
  EXPECT_STREQ(text.Left(10), "abc");
  EXPECT_STREQ(text.Left(-1), "");
  EXPECT_STREQ(text.Right(10), "abc");
  EXPECT_STREQ(text.Right(-1), "");
  EXPECT_STREQ(text.Mid(-2), "abc");
  EXPECT_STREQ(text.Mid(3), "");
  EXPECT_STREQ(text.Mid(10), "");
  EXPECT_STREQ(text.Mid(1, -1), "");
  EXPECT_STREQ(text.Mid(1, 2147483647), "bc");
  EXPECT_STREQ(text.Mid(-5, 2), "ab");
}

TEST(CString, Finds) {
  const CString text("abcabc");
  EXPECT_EQ(text.Find('b'), 1);
  EXPECT_EQ(text.Find('b', 2), 4);
  EXPECT_EQ(text.Find('x'), -1);
  EXPECT_EQ(text.Find("ca"), 2);
  EXPECT_EQ(text.Find("abc", 1), 3);
  EXPECT_EQ(text.Find("abcd"), -1);
}

TEST(CString, FindsNothingOutOfRange) {
  const CString text("abc");
  EXPECT_EQ(text.Find('a', -1), -1);
  EXPECT_EQ(text.Find('c', 3), -1);
  EXPECT_EQ(text.Find("a", -1), -1);
  EXPECT_EQ(text.Find("a", 100), -1);
  EXPECT_EQ(text.Find(static_cast<const char*>(nullptr)), -1);
  EXPECT_EQ(text.Find("", 3), 3);
  EXPECT_EQ(text.Find("", 4), -1);
}

}  // namespace
