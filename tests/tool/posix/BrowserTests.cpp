#include <chrono>
#include <cstdlib>
#include <thread>

#include "../ToolRun.h"
#include "tool/Draw.h"

using namespace corvane;

namespace {

// The search path for programs, as it was when the test ends.
struct SearchPath {
  explicit SearchPath(const std::string& path) { ::setenv("PATH", path.c_str(), 1); }
  ~SearchPath() { ::setenv("PATH", Old.c_str(), 1); }
  std::string Old = std::getenv("PATH");
};

struct Browser : ToolRun {
  int Show() {
    const SearchPath path(Folder.Path.string());
    const int status = ShowInBrowser(Folder / "CC4.EXE", {}, ToConsole());
    Page = Out.substr(0, Out.find('\n'));
    return status;
  }
  ~Browser() override { std::filesystem::remove_all(std::filesystem::path(Page).parent_path()); }
  std::string Page;
};

}  // namespace

TEST_F(Browser, GetsThePageAsItsOnlyArgument) {
  Folder.Put("xdg-open",
             "#!/bin/sh\nprintf '%s' \"$#:$1\" >\"${0%/*}/half\"\n/bin/mv \"${0%/*}/half\" "
             "\"${0%/*}/opened\"\n");
  std::filesystem::permissions(Folder.Path / "xdg-open", std::filesystem::perms::owner_all);
  EXPECT_EQ(Show(), StatusDone) << Errors;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (Folder.Get("opened").empty() && std::chrono::steady_clock::now() < end)
    std::this_thread::yield();
  EXPECT_EQ(Folder.Get("opened"), "1:" + Page);
  EXPECT_TRUE(Bytes(Page).starts_with("<!DOCTYPE html>"));
}

TEST_F(Browser, AMissingOneIsReportedWithTheNameOfThePage) {
  EXPECT_EQ(Show(), StatusFailed);
  ASSERT_NE(Page, "");
  EXPECT_NE(Errors.find(Page), Errors.npos) << Errors;
}
