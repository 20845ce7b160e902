#include "tool/Draw.h"

#include <gtest/gtest.h>

#include "TestFolder.h"
#include "Xml.h"
#include "data/TableImages.h"

using namespace corvane;

// The sample game in its own folder, and a console that records the output.
struct DrawFiles : testing::Test {
  DrawFiles() { EXPECT_TRUE(WriteSampleGame(Folder.Path / "game", Game).Done()); }

  [[nodiscard]] std::string Path(const std::string& name) const { return Folder / name; }
  [[nodiscard]] DrawOptions To(const std::string& out) const {
    return {Path("game/CC4.EXE"), Path(out), {}, {}};
  }
  /// Title of a map in the picture last drawn; empty if there is no picture.
  [[nodiscard]] std::string Drawn(const std::string& out, int map) const {
    return Xml(Folder.Get(out)).Child("map-" + std::to_string(map), "title").Text;
  }
  void PutGame(const SampleGame& game) {
    for (const auto& [name, bytes] : GameFiles(game)) Folder.Put("game/" + name, bytes);
  }

  TestFolder Folder;
  SampleGame Game = MakeSampleGame();
  std::string Printed;
  std::string Complaints;
  Console TheConsole{[this](std::string_view text) { Printed += text; },
                     [this](std::string_view text) { Complaints += text; }};
};

TEST_F(DrawFiles, ChoosesTheFormatByTheName) {
  const std::pair<std::string, std::string> cases[] = {
      {"a.svg", "<svg "}, {"b.SVG", "<svg "}, {"c.html", "<!DOCTYPE"}, {"d.Htm", "<!DOCTYPE"}};
  for (const auto& [name, start] : cases) {
    EXPECT_EQ(Draw(To(name), TheConsole), StatusDone) << name;
    EXPECT_EQ(Folder.Get(name).substr(0, start.size()), start) << name;
  }
  EXPECT_EQ(Printed + Complaints, "");
  EXPECT_EQ(Draw(To("e.png"), TheConsole), StatusFailed);
  EXPECT_EQ(Complaints, "corvane-tool: " + Path("e.png") + " does not end in .svg or .html.\n");
}

TEST_F(DrawFiles, LeavesTheOldPictureWhenItFails) {
  Folder.Put("a.svg", "old");
  DrawOptions options = To("a.svg");
  options.Source = Path("none.crv");
  EXPECT_EQ(Draw(options, TheConsole), StatusFailed);
  options.Source = Path("game/Maps/" + Game.Maps[0].FileName);
  EXPECT_EQ(Draw(options, TheConsole), StatusFailed);
  options = To("a.svg");
  options.Against = Path("none.crv");
  EXPECT_EQ(Draw(options, TheConsole), StatusFailed);
  EXPECT_EQ(Folder.Get("a.svg"), "old");
  Folder.Put("out/folder.svg/file");
  EXPECT_EQ(Draw(To("out/folder.svg"), TheConsole), StatusFailed);
  const std::filesystem::directory_iterator left(Path("out"));
  EXPECT_EQ(std::distance(left, {}), 1) << "something beside the folder";
  EXPECT_EQ(std::ranges::count(Complaints, '\n'), 4);
}

TEST_F(DrawFiles, NamesThePictureThatCouldNotBeWritten) {
  EXPECT_EQ(Draw(To("none/a.svg"), TheConsole), StatusFailed);
  EXPECT_TRUE(Complaints.starts_with("corvane-tool: " + Path("none/a.svg") + " could not be saved"))
      << Complaints;
  EXPECT_TRUE(Complaints.ends_with("The file does not exist and was not created.\n")) << Complaints;
}

TEST_F(DrawFiles, ReplacesTheFileBehindALink) {
  Folder.Put("real.svg", "old");
  std::error_code refused;
  std::filesystem::create_symlink("real.svg", Path("link.svg"), refused);
  if (refused) GTEST_SKIP() << "no links here: " << refused.message();
  EXPECT_EQ(Draw(To("link.svg"), TheConsole), StatusDone) << Complaints;
  EXPECT_TRUE(std::filesystem::is_symlink(Path("link.svg")));
  EXPECT_EQ(Xml(Folder.Get("real.svg")).Fault, "");
}

TEST_F(DrawFiles, ReplacesALongerPictureCompletely) {
  Folder.Put("a.svg", std::string(1000000, 'x'));
  EXPECT_EQ(Draw(To("a.svg"), TheConsole), StatusDone);
  EXPECT_EQ(Xml(Folder.Get("a.svg")).Fault, "");
}

TEST_F(DrawFiles, ShowsAPatchFileWithTheMapsOfItsGame) {
  Game.Tables.Tiles[3].Left = 411;
  Folder.Put("new.crv", PatchBytes(Game.Tables));
  const DrawOptions options{Path("new.crv"), Path("a.svg"), Path("game/CC4.EXE"), Path("game")};
  EXPECT_EQ(Draw(options, TheConsole), StatusDone) << Complaints;
  EXPECT_NE(Drawn("a.svg", 3).find("Left 411"), std::string::npos);
  const Xml picture(Folder.Get("a.svg"));
  EXPECT_EQ(picture.Id("picture-title").Text, "Strategic layer of new.crv, against CC4.EXE");
  EXPECT_EQ(picture.All("g", "old").size(), 2U);
}

TEST_F(DrawFiles, ReportsNoMissingExitsWithoutMapFiles) {
  Folder.Put("alone/CC4.EXE", GameExeBytes(Game.Tables));
  DrawOptions options = To("a.svg");
  options.Source = Path("alone/CC4.EXE");
  EXPECT_EQ(Draw(options, TheConsole), StatusDone) << Complaints;
  const Xml picture(Folder.Get("a.svg"));
  EXPECT_EQ(picture.All("a", "badge finding").size(), 0U);
  EXPECT_EQ(picture.Id("map-42")["aria-label"], "Map 42");
}

TEST_F(DrawFiles, WatchesTheTablesAndTheMapFiles) {
  int step = 0;
  const auto pause = [&] {
    if (step == 1) {
      EXPECT_TRUE(Drawn("a.html", 3).starts_with("003 Havrune")) << Drawn("a.html", 3);
      Game.Tables.Tiles[3].Left = 4;
      Folder.Put("game/CC4.EXE", GameExeBytes(Game.Tables));
    } else if (step == 3) {
      EXPECT_NE(Drawn("a.html", 3).find("Left 4,"), std::string::npos);
      std::filesystem::remove(Path("game/Maps/" + Game.Maps[42].FileName));
    } else if (step == 5) {
      EXPECT_TRUE(Drawn("a.html", 42).starts_with("Map 42, without a file"));
    }
    return step++ < 5;
  };
  EXPECT_EQ(WatchAndDraw(To("a.html"), TheConsole, pause), StatusDone);
  EXPECT_EQ(Xml(Folder.Get("a.html")).Elements[0]["data-reload"], "1500");
}

TEST_F(DrawFiles, AWatchTriesAgainWhatFailedAndTellsItOnce) {
  int step = 0;
  const auto pause = [&] {
    if (step == 25) std::filesystem::create_directory(Path("late"));
    return step++ < 50;
  };
  EXPECT_EQ(WatchAndDraw(To("late/a.svg"), TheConsole, pause), StatusDone);
  EXPECT_EQ(Xml(Folder.Get("late/a.svg")).Fault, "");
  EXPECT_EQ(std::ranges::count(Complaints, '\n'), 1) << Complaints;
}

TEST_F(DrawFiles, AWatchDrawsOnlyWhatChangedAndOutlivesFailures) {
  int step = 0;
  const auto pause = [&] {
    if (step == 2) Folder.Put("a.svg", "untouched");
    if (step == 4) {
      EXPECT_EQ(Folder.Get("a.svg"), "untouched");
      std::filesystem::rename(Path("game/CC4.EXE"), Path("game/aside"));
    }
    if (step == 6) {
      EXPECT_EQ(std::ranges::count(Complaints, '\n'), 1) << Complaints;
      std::filesystem::rename(Path("game/aside"), Path("game/CC4.EXE"));
    }
    return step++ < 8;
  };
  EXPECT_EQ(WatchAndDraw(To("a.svg"), TheConsole, pause), StatusDone);
  EXPECT_EQ(Xml(Folder.Get("a.svg")).Fault, "");
}
