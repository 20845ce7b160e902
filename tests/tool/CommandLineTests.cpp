#include "ToolRun.h"
#include "base/FolderScan.h"

using namespace corvane;

struct CommandLine : ToolRun {};

TEST_F(CommandLine, RefusesWrongUsage) {
  const std::vector<std::string> rows[] = {{},
                                           {"check"},
                                           {"show"},
                                           {"show", "/CC4.EXE", "/CC4.EXE"},
                                           {"diff", "/CC4.EXE"},
                                           {"copy", "/CC4.EXE"},
                                           {"check", "--what", "/CC4.EXE"},
                                           {"check", "/CC4.EXE", "--game"},
                                           {"/CC4.EXE", "/no.crv"},
                                           {"/CC4.EXE", "/folder.crv"},
                                           {"chekc", "/CC4.EXE"},
                                           {"check", "diff", "/CC4.EXE", "/CC4.EXE"},
                                           {"diff", "/CC4.EXE", "/Maps/Merlaut.btd"},
                                           {"show", ""},
                                           {"check", "--game", "", "/CC4.EXE"}};
  Folder.Put("folder.crv/file");
  for (const auto& words : rows) {
    EXPECT_EQ(Run(words), 2) << testing::PrintToString(words);
    EXPECT_EQ(Out, "") << testing::PrintToString(words);
    EXPECT_TRUE(Errors.starts_with("corvane-tool: ")) << Errors;
  }
}

TEST_F(CommandLine, SuggestsTwoHyphensBeforeAFileThatBeginsWithOne) {
  EXPECT_EQ(Run({"show", "-x.crv"}), 2);
  EXPECT_EQ(Errors,
            "corvane-tool: SOURCE is required (if -x.crv is a file, put -- before it)\n"
            "corvane-tool: Try corvane-tool --help.\n");
  EXPECT_EQ(Run({"show", "--", "-x.crv"}), 2);
  EXPECT_TRUE(Errors.starts_with("corvane-tool: -x.crv could not be read: ")) << Errors;
}

TEST_F(CommandLine, HelpsWithExamplesOfEachCommand) {
  for (const std::string command : {"check", "show", "diff", "copy", "draw"}) {
    EXPECT_EQ(Run({command, "--help"}), 0) << Errors;
    EXPECT_NE(Out.find("Examples:\n  corvane-tool " + command), Out.npos) << Out;
  }
}

TEST_F(CommandLine, EscapesNamesInMessages) {
  EXPECT_EQ(Run({"show", "\x1B[31m\u202Ex.crv"}), 2);
  EXPECT_TRUE(Errors.starts_with("corvane-tool: \\x1B[31m\\u202Ex.crv could not be read: "))
      << Errors;
  EXPECT_EQ(Run({"--\x1B"}), 2);
  EXPECT_EQ(Errors.find('\x1B'), Errors.npos);
}

struct CheckCommand : ToolRun {};

TEST_F(CheckCommand, IsSilentOnASoundGame) {
  EXPECT_EQ(Run({"check", "--strict", "/CC4.EXE"}), 0);
  EXPECT_EQ(Out + Errors, "");
}

TEST_F(CheckCommand, PrintsFindingsThenWarnings) {
  Game.Tables.Tiles[3].Left = 801;
  Game.Tables.Arrows[80].Height = 0;
  Game.Tables.Hotspots[5] = {799, 599};
  Folder.Put("CC4.EXE", GameExeBytes(Game.Tables));
  EXPECT_EQ(Run({"check", "/CC4.EXE"}), 1);
  EXPECT_EQ(Out,
            "Invalid tile coordinates for STRMAP 3\n"
            "Invalid size for STRARROW 80\n"
            "warning: map 003 Havrune.btd: its tile extends beyond 800 x 600\n"
            "warning: map 003 Havrune.btd: its hotspot is outside its tile\n"
            "warning: map 005 BRENVAU.Btd: its hotspot is outside its tile\n");
  EXPECT_EQ(Errors, "");
}

TEST_F(CheckCommand, CountsWarningsOnlyWhenStrict) {
  Game.Tables.Hotspots[5] = {799, 599};
  Folder.Put("p.crv", PatchBytes(Game.Tables));
  EXPECT_EQ(Run({"check", "--game", "/", "/p.crv"}), 0) << Errors;
  EXPECT_EQ(Run({"check", "--strict", "--game", "/", "/p.crv"}), 1) << Errors;
}

TEST_F(CheckCommand, NamesEachOfSeveralSources) {
  Folder.Put("Maps/Short.btd", Folder.Get("Maps/Merlaut.btd").substr(0, 8000));
  EXPECT_EQ(Run({"check", "/Maps/Merlaut.btd", "/Maps/Short.btd", "/no.btd"}), 2);
  EXPECT_EQ(Plain(Out),
            "/Maps/Short.btd: warning: only 8000 bytes long, not 8526\n"
            "/Maps/Short.btd: warning: the base name is \"Merlaut\", not the file's name\n");
  EXPECT_TRUE(Plain(Errors).starts_with("corvane-tool: /no.btd could not be read: ")) << Errors;
}

TEST_F(CheckCommand, ColoursOnlyATerminal) {
  Folder.Put("Maps/Merlaut.btd", Folder.Get("Maps/Merlaut.btd").substr(0, 8000));
  const std::string warning = "warning: only 8000 bytes long, not 8526";
  for (const auto& text : {warning + "\n", "\x1B[33m" + warning + "\x1B[0m\n"}) {
    EXPECT_EQ(Run({"check", "/Maps/Merlaut.btd"}), 0);
    EXPECT_EQ(Out, text);
    Colour = true;
  }
}

TEST_F(CheckCommand, FailsWithoutTheMaps) {
  std::filesystem::remove_all(Folder / "Maps");
  EXPECT_EQ(Run({"check", "/CC4.EXE"}), 2);
  EXPECT_TRUE(Errors.starts_with("corvane-tool: No map files were found in the folder ")) << Errors;
  Folder.Put("Maps", "a file in place of the folder");
  EXPECT_EQ(Run({"check", "/CC4.EXE"}), 2);
  const std::string error = Plain(Errors);
  const bool missing = error.starts_with("corvane-tool: No map files were found in the folder ");
  EXPECT_TRUE(error.starts_with("corvane-tool: /Maps could not be listed completely: ") ||
              (missing && Separator == '\\'))  // what Wine 8 reports
      << Errors;
}

TEST_F(CheckCommand, WarnsOfMoreFilesThanMapSlots) {
  Folder.Put("Maps/Zz.btd", Folder.Get("Maps/Merlaut.btd"));
  Run({"check", "/CC4.EXE"});
  EXPECT_NE(Out.find("contains more than 43 BTD files; some are ignored\n"), Out.npos) << Out;
}

TEST_F(CommandLine, ShowsTheTablesWithoutAGame) {
  std::filesystem::remove_all(Folder / "Maps");
  EXPECT_EQ(Run({"show", "/CC4.EXE"}), 0) << Errors;
  EXPECT_TRUE(Out.starts_with("no map files\nmap 000: tile Left ")) << Out.substr(0, 200);
  EXPECT_EQ(Run({"show", "--json", "/CC4.EXE"}), 0);
  Folder.Put("t.json", Out);
  EXPECT_EQ(Run({"diff", "--game", "/", "/CC4.EXE", "/t.json"}), 0) << Out;
}

TEST_F(CommandLine, PrintsDifferencesOfTablesAndFiles) {
  const std::string left = std::to_string(std::exchange(Game.Tables.Tiles[3].Left, 117));
  const std::string x = std::to_string(std::exchange(Game.Maps[3].VLs[0].TileX, 98));
  for (const auto& [name, bytes] : GameFiles(Game)) Folder.Put("new/" + name, bytes);
  EXPECT_EQ(Run({"diff", "/CC4.EXE", "/new/CC4.EXE"}), 1) << Errors;
  EXPECT_EQ(Out, "map 003 Havrune.btd: Left " + left + " -> 117\n" +
                     "map 003 Havrune.btd: VL0: X " + x + " -> 98\n");
}
