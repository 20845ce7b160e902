#include "tool/Draw.h"

#include <algorithm>

#include "ToolRun.h"

using namespace corvane;

struct DrawFiles : ToolRun {
  [[nodiscard]] DrawOptions To(const std::string& out) const {
    return {Folder / "CC4.EXE", Folder / out, {}, {}};
  }
  /// Title of a map in the picture last drawn; empty if there is no picture.
  [[nodiscard]] std::string Drawn(const std::string& out, int map) const {
    const std::string picture = Folder.Get(out);
    const std::size_t tile = picture.find("<g id=\"map-" + std::to_string(map) + "\"");
    if (tile == picture.npos) return {};
    const std::size_t title = picture.find("<title>", tile) + 7;
    return picture.substr(title, picture.find("</title>", title) - title);
  }
};

TEST_F(DrawFiles, ChoosesTheFormatByTheName) {
  const std::pair<std::string, std::string> cases[] = {
      {"a.svg", "<svg "}, {"b.SVG", "<svg "}, {"c.html", "<!DOCTYPE"}, {"d.Htm", "<!DOCTYPE"}};
  for (const auto& [name, start] : cases) {
    EXPECT_EQ(Run({"draw", "/CC4.EXE", "/" + name}), 0) << Errors;
    EXPECT_EQ(Folder.Get(name).substr(0, start.size()), start) << name;
  }
  EXPECT_EQ(Run({"draw", "/CC4.EXE", "/e.png"}), 2);
  EXPECT_EQ(Plain(Errors), "corvane-tool: /e.png does not end in .svg or .html.\n");
}

TEST_F(DrawFiles, LeavesTheOldPictureWhenItFails) {
  const std::vector<std::string> rows[] = {{"draw", "/none.crv", "/a.svg"},
                                           {"draw", "/Maps/Merlaut.btd", "/a.svg"},
                                           {"draw", "/CC4.EXE", "/a.svg", "--against", "/none.crv"},
                                           {"draw", "/CC4.EXE", "/out/folder.svg"}};
  Folder.Put("a.svg", "old");
  Folder.Put("out/folder.svg/file");
  for (const auto& words : rows) {
    EXPECT_EQ(Run(words), 2) << words[1];
    EXPECT_EQ(std::ranges::count(Errors, '\n'), 1) << Errors;
  }
  EXPECT_TRUE(Errors.ends_with(" The file does not exist and was not created.\n")) << Errors;
  EXPECT_EQ(Folder.Get("a.svg"), "old");
  const std::filesystem::directory_iterator left(Folder / "out");
  EXPECT_EQ(std::distance(left, {}), 1) << "something beside the folder";
}

TEST_F(DrawFiles, ReplacesTheTargetOfALink) {
  Folder.Put("real.svg", "old");
  std::error_code refused;
  std::filesystem::create_symlink("real.svg", Folder / "link.svg", refused);
  if (refused) GTEST_SKIP() << "no links here: " << refused.message();
  EXPECT_EQ(Run({"draw", "/CC4.EXE", "/link.svg"}), 0) << Errors;
  EXPECT_TRUE(std::filesystem::is_symlink(Folder / "link.svg"));
  EXPECT_TRUE(Folder.Get("real.svg").ends_with("</svg>\n"));
}

TEST_F(DrawFiles, ShowsAPatchFileWithTheMapsOfItsGame) {
  Game.Tables.Tiles[3].Left = 411;
  Folder.Put("new.crv", PatchBytes(Game.Tables));
  const int status = Run({"draw", "/new.crv", "/a.svg", "--against", "/CC4.EXE", "--game", "/"});
  EXPECT_EQ(status, 0) << Errors;
  EXPECT_NE(Drawn("a.svg", 3).find("Left 411"), std::string::npos);
  const std::string picture = Folder.Get("a.svg");
  EXPECT_NE(picture.find(">Strategic layer of new.crv, compared with CC4.EXE<"), picture.npos);
  EXPECT_NE(picture.find("<g class=\"old"), picture.npos);
}

TEST_F(DrawFiles, ReportsNoMissingExitsWithoutMapFiles) {
  std::filesystem::remove_all(Folder / "Maps");
  EXPECT_EQ(Run({"draw", "/CC4.EXE", "/a.svg"}), 0) << Errors;
  const std::string picture = Folder.Get("a.svg");
  EXPECT_EQ(picture.find("<a id=\"at-1\" href=\"#mark-1\" class=\"badge finding\""), picture.npos);
  EXPECT_NE(picture.find("aria-label=\"Map 42\""), picture.npos);
}

TEST_F(DrawFiles, AWatchRedrawsOnChangesAndSurvivesFailures) {
  const std::string file = Folder / "Maps/" + Game.Maps[42].FileName;
  const std::vector<std::function<void()>> acts = {
      [&] {
        EXPECT_TRUE(Drawn("a.html", 3).starts_with("003 Havrune")) << Drawn("a.html", 3);
        Folder.Put("a.html", "untouched");
      },
      [&] {
        EXPECT_EQ(Folder.Get("a.html"), "untouched");
        Game.Tables.Tiles[3].Left = 4;
        Folder.Put("CC4.EXE", GameExeBytes(Game.Tables));
      },
      [&] {
        EXPECT_NE(Drawn("a.html", 3).find("Left 4,"), std::string::npos);
        std::filesystem::rename(Folder / "CC4.EXE", Folder / "aside");
      },
      [&] {
        EXPECT_EQ(std::ranges::count(Errors, '\n'), 1) << Errors;
        std::filesystem::rename(Folder / "aside", Folder / "CC4.EXE");
        std::filesystem::remove(file);
      },
      [&] { EXPECT_TRUE(Drawn("a.html", 42).starts_with("Map 42, without a file")); }};
  std::size_t step = 0;
  const auto pause = [&] {
    if (step % 2 == 1) acts[step / 2]();
    return ++step < 2 * acts.size();
  };
  EXPECT_EQ(WatchAndDraw(To("a.html"), ToConsole(), pause), StatusDone);
  EXPECT_EQ(step, 2 * acts.size());
  EXPECT_NE(Folder.Get("a.html").find(" data-reload=\"1500\""), std::string::npos);
}

TEST_F(DrawFiles, AWatchRetriesFailuresAndReportsThemOnce) {
  int step = 0;
  const auto pause = [&] {
    if (step == 25) std::filesystem::create_directory(Folder / "late");
    return step++ < 50;
  };
  EXPECT_EQ(WatchAndDraw(To("late/a.svg"), ToConsole(), pause), StatusDone);
  EXPECT_TRUE(Folder.Get("late/a.svg").ends_with("</svg>\n"));
  EXPECT_EQ(std::ranges::count(Errors, '\n'), 1) << Errors;
  EXPECT_TRUE(Plain(Errors).starts_with("corvane-tool: /late/a.svg could not be saved")) << Errors;
}
