#include "tool/WholeFile.h"

#include <set>

#include "TestFolder.h"

using namespace corvane;

TEST(WholeFile, ReplacesLongerAndShorterFiles) {
  const TestFolder folder;
  for (const std::size_t length : {std::size_t{0}, std::size_t{3}, std::size_t{5000}}) {
    folder.Put("a.json", std::string(length, 'x'));
    EXPECT_TRUE(WriteWhole(folder / "a.json", "{}\n").Done()) << length;
    EXPECT_EQ(folder.Get("a.json"), "{}\n") << length;
  }
  EXPECT_TRUE(WriteWhole(folder / "new.json", "[]\n").Done());
  EXPECT_EQ(folder.Get("new.json"), "[]\n");
}

TEST(WholeFile, IsCompleteOrUnchangedOrReportsItsStateWhicheverStepFails) {
  const TestFolder folder;
  const std::string old(5000, 'x');
  std::set<std::string> ends;  // the last words of the messages
  for (int first = 0; first < 80; ++first) {
    folder.Put("a.json", old);
    FailFrom(first);
    const auto written = WriteWhole(folder / "a.json", "{}\n");
    const std::string failure = written.Done() ? "" : written.Error();
    InjectedFault = nullptr;
    std::string now = folder.Get("a.json");
    if (failure.find("could not be truncated") != failure.npos) {
      now.erase(now.find_last_not_of('\n') + 2);
      EXPECT_EQ(now, "{}\n") << failure;
    } else if (failure.ends_with(" unchanged.") || failure.ends_with("No file was changed.")) {
      EXPECT_TRUE(now == old) << first;
    } else if (failure.empty()) {
      EXPECT_EQ(now, "{}\n") << first;
    }
    ends.insert(failure.substr(failure.find_last_of(' ') + 1));
  }
  EXPECT_EQ(ends, (std::set<std::string>{"", "changed.", "it.", "lines.", "unchanged."}));
}
