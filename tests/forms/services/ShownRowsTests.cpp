#include <gtest/gtest.h>

#include "TestForm.h"
#include "services/FormView.h"

using namespace corvane;

TEST(ShownRows, ChangeWhereTheListDiffers) {
  const std::pair<std::vector<const char*>, std::string> steps[] = {
      {{"a", "b"}, "set 0 a, set 1 b, "},
      {{"a", "b"}, ""},
      {{"a", "x", "c"}, "set 1 x, set 2 c, "},
      {{"b"}, "remove 1, set 0 b, "},
      {{}, "remove 0, "},
      {{"b"}, "set 0 b, "}};
  TestForm form;
  ShownRows shown;
  for (const auto& [rows, calls] : steps) {
    std::string seen;
    form.lstRows.Clear();
    for (const char* row : rows) form.lstRows.AddItem(row);
    const bool changed = shown.Mirror(
        form.lstRows, [&](int from) { seen += "remove " + std::to_string(from) + ", "; },
        [&](int row, const std::string& text) {
          seen += "set " + std::to_string(row) + " " + text + ", ";
        });
    EXPECT_EQ(seen, calls);
    EXPECT_EQ(changed, !calls.empty());
  }
}
