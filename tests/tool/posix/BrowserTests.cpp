#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "TestFolder.h"
#include "tool/Draw.h"

using namespace corvane;

namespace {

// Replaces the search path for programs until the test ends.
struct SearchPath {
  explicit SearchPath(const std::string& path) { ::setenv("PATH", path.c_str(), 1); }
  ~SearchPath() { ::setenv("PATH", Old.c_str(), 1); }
  std::string Old = std::getenv("PATH");
};

struct Shown {
  int Status = 0;
  std::string Printed;
  std::string Complaints;
};

Shown Show(const TestFolder& folder) {
  Shown shown;
  const Console console{[&](std::string_view text) { shown.Printed += text; },
                        [&](std::string_view text) { shown.Complaints += text; }};
  shown.Status = ShowInBrowser(folder / "game/CC4.EXE", {}, console);
  return shown;
}

std::string PageOf(const Shown& shown) {
  return shown.Printed.substr(0, std::max<std::size_t>(shown.Printed.size(), 1) - 1);
}

}  // namespace

TEST(Browser, GetsThePageAsItsOnlyArgument) {
  const TestFolder folder;
  ASSERT_TRUE(WriteSampleGame(folder.Path / "game", MakeSampleGame()).Done());
  folder.Put("xdg-open",
             "#!/bin/sh\nprintf '%s' \"$#:$1\" >\"${0%/*}/half\"\n/bin/mv \"${0%/*}/half\" "
             "\"${0%/*}/opened\"\n");
  std::filesystem::permissions(folder.Path / "xdg-open", std::filesystem::perms::owner_all);
  const SearchPath path(folder.Path.string());
  const Shown shown = Show(folder);
  EXPECT_EQ(shown.Status, StatusDone) << shown.Complaints;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (folder.Get("opened").empty() && std::chrono::steady_clock::now() < end) {
    std::this_thread::yield();
  }
  EXPECT_EQ(folder.Get("opened"), "1:" + PageOf(shown));
  EXPECT_TRUE(Bytes(PageOf(shown)).starts_with("<!DOCTYPE html>"));
  std::filesystem::remove_all(std::filesystem::path(PageOf(shown)).parent_path());
}

TEST(Browser, AMissingOneIsReportedWithTheNameOfThePage) {
  const TestFolder folder;
  ASSERT_TRUE(WriteSampleGame(folder.Path / "game", MakeSampleGame()).Done());
  const SearchPath path(folder.Path.string());
  const Shown shown = Show(folder);
  EXPECT_EQ(shown.Status, StatusFailed);
  EXPECT_NE(shown.Complaints.find(PageOf(shown)), std::string::npos) << shown.Complaints;
  std::filesystem::remove_all(std::filesystem::path(PageOf(shown)).parent_path());
}
