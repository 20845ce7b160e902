#include "tool/WholeFile.h"

#include "TestFolder.h"

using namespace corvane;

TEST(WholeFile, ReplacesLongerAndShorterFiles) {
  const TestFolder folder;
  for (const std::size_t length : {std::size_t{0}, std::size_t{3}, std::size_t{5000}}) {
    folder.Put("a.json", std::string(length, 'x'));
    EXPECT_EQ(WriteWhole(folder / "a.json", "{}\n"), "") << length;
    EXPECT_EQ(folder.Get("a.json"), "{}\n") << length;
  }
  EXPECT_EQ(WriteWhole(folder / "new.json", "[]\n"), "");
  EXPECT_EQ(folder.Get("new.json"), "[]\n");
}

TEST(WholeFile, IsCompleteOrUnchangedOrReportsItsStateWhicheverStepFails) {
  const TestFolder folder;
  const std::string old(5000, 'x');
  int told = 0, left = 0;
  for (int first = 0; first < 80; ++first) {
    folder.Put("a.json", old);
    FailFrom(first);
    const std::string failure = WriteWhole(folder / "a.json", "{}\n");
    InjectedFault = nullptr;
    const std::string now = folder.Get("a.json");
    const bool whole = now.starts_with("{}\n") && now.find_first_not_of('\n', 3) == now.npos;
    if (failure.empty()) {
      EXPECT_EQ(now, "{}\n") << first;
    } else if (failure.find("could not be truncated") != failure.npos) {
      EXPECT_TRUE(whole) << failure;
      ++left;
    } else if (failure.ends_with("The file is unchanged.") ||
               failure.ends_with("No file was changed.")) {
      EXPECT_TRUE(now == old) << first;
      ++told;
    } else {
      EXPECT_TRUE(failure.ends_with("Check it before you use it.") ||
                  failure.ends_with("Use your backup."))
          << failure;
    }
  }
  EXPECT_GT(told, 2);
  EXPECT_GT(left, 3);
}
