#include <chrono>
#include <cstdlib>
#include <thread>

#include "../ToolRun.h"
#include "tool/Draw.h"

using namespace corvane;

struct Browser : ToolRun {
  ~Browser() override { std::filesystem::remove_all(std::filesystem::path(Page).parent_path()); }
  // Finds programs in the test's folder only.
  int Show() {
    const std::string before = std::getenv("PATH");
    ::setenv("PATH", Folder.Path.c_str(), 1);
    const int status = ShowInBrowser(Folder / "CC4.EXE", {}, ToConsole());
    ::setenv("PATH", before.c_str(), 1);
    Page = Out.substr(0, Out.find('\n'));
    return status;
  }
  std::string Page;
};

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
  EXPECT_TRUE(FileBytes(Page).starts_with("<!DOCTYPE html>"));
}

TEST_F(Browser, FailsWithTheNameOfThePage) {
  EXPECT_EQ(Show(), StatusFailed);
  ASSERT_NE(Page, "");
  EXPECT_NE(Errors.find(Page), Errors.npos) << Errors;
}
