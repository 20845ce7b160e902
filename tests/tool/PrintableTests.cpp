#include "tool/Printable.h"

#include <gtest/gtest.h>

using namespace corvane;

TEST(Printable, EscapesControlAndDirectionCharacters) {
  const std::pair<const char*, const char*> rows[] = {
      {"Ch\u00E2teau \u4E2D \U0001F5FA", "Ch\u00E2teau \u4E2D \U0001F5FA"},
      {"\x1B[31mred\x07", "\\x1B[31mred\\x07"},
      {"two\r\nlines", "two\\r\\nlines"},
      {"\u009B31m", "\\u009B31m"},          // a control character beyond ASCII
      {"\u202Eexe.crv", "\\u202Eexe.crv"},  // reverses the text after it
      {"a\u2066b\u200Bc\uFEFF", "a\\u2066b\\u200Bc\\uFEFF"},
      {"\U000E0041", "\\U000E0041"},
      {"\xFF\xC0\x80", "\\xFF\\xC0\\x80"},  // not UTF-8
      {"\xED\xA0\x80", "\\xED\\xA0\\x80"},  // half of a pair
      {"cut \xE2\x82", "cut \\xE2\\x82"},
      {"C:\\Maps", "C:\\Maps"}};
  for (const auto& [text, shown] : rows) EXPECT_EQ(Printable(text), shown);
}

TEST(Printable, NeverQuotesTwoTextsAlike) {
  EXPECT_EQ(Quoted("a\"b"), R"("a\"b")");
  EXPECT_NE(Quoted("\\n"), Quoted("\n"));
  EXPECT_NE(Quoted("\\\\"), Quoted("\\"));
}
