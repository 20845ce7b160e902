#include "TestFolder.h"
#include "base/FileRanges.h"

using namespace corvane;

// A step is a letter, a small one if it fails. An empty content stands for no file.
TEST(FileRanges, ASaveTakesTheseStepsAndAFailedOneSaysHowItLeavesTheFile) {
  const std::string old = "abcdefgh", saved = "abXYefZZZ", made("\0bXYe\0ZZZ", 9);
  const std::tuple<std::string, std::string, std::string, std::string> rows[] = {
      {old, "OLRRRWWFC", "", saved},
      {old, "o", "The file is unchanged.", old},
      {old, "OLr", "The file is unchanged.", old},
      {old, "OLRRRw", "The file is unchanged.", old},
      {old, "OLRRRWwLRWRFC", "The file is unchanged.", old},
      {old, "OLRRRWWFcOLSRWRWFC", "The file is unchanged.", old},
      {old, "OLRRRWWfLSRWRW", "Check the file.", old},
      {old, "OLRRRWWFcOLSRWRWf", "Check the file.", old},
      {old, "OLRRRWWFcOLSRWRWFc", "Check the file.", old},
      {old, "OLRRRWWFco", "Use your backup.", saved},
      {old, "OLRRRWWFcOLs", "Use your backup.", saved},
      {old, "OLRRRWWFcOLSRw", "Use your backup.", "abXYefZZ"},
      {"", "OOWWFC", "", made},
      {"", "Oo", "The file is unchanged.", ""},
      {"", "OOWwCX", "new file was removed.", ""},
      {"", "OOWWFcX", "new file was removed.", ""},
      {"", "OOWWfCx", "Do not use it.", made}};
  const WriteRange ranges[] = {{1, std::as_bytes(std::span("bXYe", 4))},
                               {6, std::as_bytes(std::span("ZZZ", 3))}};
  for (const auto& [before, steps, says, after] : rows) {
    SCOPED_TRACE(steps);
    const TestFolder folder;
    if (!before.empty()) folder.Put("f", before);
    std::string asked;
    InjectedFault = [&, &steps = steps](FileStep step, std::size_t&) {
      asked += "olrwsfcx"[static_cast<int>(step)];
      if (steps.compare(0, asked.size(), asked) == 0)
        return std::make_error_code(std::errc::io_error);
      asked.back() -= 'a' - 'A';
      return std::error_code();
    };
    const std::string told = Told(SaveInPlace(folder / "f", ranges, IfMissing::Create));
    EXPECT_EQ(asked, steps);
    EXPECT_TRUE(told.ends_with(says) && told.empty() == says.empty()) << told;
    EXPECT_EQ(folder.Get("f"), after);
    EXPECT_EQ(std::filesystem::exists(folder / "f"), !after.empty());
  }
}
