#include "ToolRun.h"
#include "samples/Noise.h"

using namespace corvane;

struct CopyCommand : ToolRun {
  CopyCommand() { Folder.Put("p.crv", Patch); }
  void PutChangedPatch(int left) {
    GameTables tables = Game.Tables;
    tables.Tiles[3].Left = left;
    Folder.Put("p.crv", PatchBytes(tables));
  }
  const std::string Patch = PatchBytes(Game.Tables);
  const std::string Exe = GameExeBytes(Game.Tables);
};

TEST_F(CopyCommand, PreservesTablesThroughEveryKindOfFileInAnyLetterCase) {
  const std::string patch = Noise(11).Bytes(11212);
  Folder.Put("p.crv", patch);
  for (const auto& [from, to] :
       {std::pair("/P.CRV", "/Cc4.exe"), {"/cc4.EXE", "/t.json"}, {"/t.JSON", "/back.crv"}}) {
    EXPECT_EQ(Run({"copy", "--unchecked", from, to}), 0) << Errors;
  }
  EXPECT_TRUE(Folder.Get("back.crv") == patch);
  const std::string exe = Folder.Get("CC4.EXE");
  EXPECT_TRUE(exe.substr(0, 1147264) == Exe.substr(0, 1147264));
  EXPECT_TRUE(exe.substr(1201312) == Exe.substr(1201312));
}

TEST_F(CopyCommand, PreservesBtdFilesThroughJson) {
  const std::string image = Noise(12).Bytes(8526);
  Folder.Put("a.btd", image + "rest");
  Folder.Put("long.btd", std::string(8526, 'x') + "tail");
  Folder.Put("short.btd", std::string(5000, '\1'));
  EXPECT_EQ(Run({"copy", "/a.btd", "/a.json"}), 0) << Errors;
  EXPECT_EQ(Run({"copy", "/a.json", "/long.btd"}), 0) << Errors;
  EXPECT_EQ(Run({"copy", "/a.json", "/short.btd"}), 0) << Errors;
  EXPECT_TRUE(Folder.Get("long.btd") == image + "tail");
  EXPECT_TRUE(Folder.Get("short.btd") == image);
}

TEST_F(CopyCommand, PrintsWhatChangesAndWritesNothingOnADryRun) {
  PutChangedPatch(300);
  const std::string change =
      "map 003: Left " + std::to_string(Game.Tables.Tiles[3].Left) + " -> 300\n";
  const std::tuple<bool, const char*, const char*, std::string> rows[] = {
      {true, "/p.crv", "/CC4.EXE", change},
      {false, "/p.crv", "/CC4.EXE", change},
      {false, "/p.crv", "/CC4.EXE", "/CC4.EXE: no change\n"},
      {true, "/CC4.EXE", "/new.json", "/new.json: new file\n"},
      {true, "/CC4.EXE", "/new.json", "/new.json: new file\n"}};
  for (const auto& [dry, from, to, printed] : rows) {
    EXPECT_EQ(Run({"copy", dry ? "--dry-run" : "--force", from, to}), 0) << Errors;
    EXPECT_EQ(Plain(Out), printed);
  }
}

TEST_F(CopyCommand, RefusesTablesThatDoNotPassTheCheck) {
  PutChangedPatch(801);
  EXPECT_EQ(Run({"copy", "/p.crv", "/CC4.EXE"}), 1);
  EXPECT_EQ(Errors,
            "corvane-tool: Invalid tile coordinates for STRMAP 3\n"
            "corvane-tool: Nothing was copied: the tables do not pass the check.\n");
  EXPECT_TRUE(Folder.Get("CC4.EXE") == Exe);
}

TEST_F(CopyCommand, ChecksAgainstTheMapsOfTheGameThatIsWritten) {
  FailFrom(8, FileStep::Read);  // a map file cannot be read
  EXPECT_EQ(Run({"copy", "/p.crv", "/CC4.EXE"}), 2);
  EXPECT_NE(Errors.find(".btd could not be read: "), Errors.npos) << Errors;
  InjectedFault = nullptr;
  std::filesystem::remove(Folder / "Maps/Merlaut.btd");
  EXPECT_EQ(Run({"copy", "/p.crv", "/CC4.EXE"}), 1);
  EXPECT_NE(Errors.find("No STRARROW defined for BTD link"), std::string::npos) << Errors;
}

TEST_F(CopyCommand, ReplacesAPatchOrJsonFileOnlyWithForce) {
  for (const std::string name : {"/old.crv", "/old.json"}) {
    Folder.Put(name.substr(1), std::string(300000, 'x'));
    EXPECT_EQ(Run({"copy", "/CC4.EXE", name}), 1) << name;
    EXPECT_EQ(Plain(Errors),
              "corvane-tool: " + name + " already exists. Use --force to replace it.\n");
    EXPECT_EQ(Folder.Get(name.substr(1)), std::string(300000, 'x'));
    EXPECT_EQ(Run({"copy", "--force", "/CC4.EXE", name}), 0) << name;
  }
  // A patch file is never shortened, and a JSON file has to be.
  EXPECT_TRUE(Folder.Get("old.crv") == Patch + std::string(300000 - 11212, 'x'));
  EXPECT_TRUE(Folder.Get("old.json").ends_with("]\n}\n"));
}

TEST_F(CopyCommand, KeepsChangesByAnotherProgram) {
  PutChangedPatch(300);
  GameTables others = Game.Tables;
  others.Arrows[7].Top = 77;
  OnPrint = [&] { Folder.Put("CC4.EXE", GameExeBytes(others)); };
  EXPECT_EQ(Run({"copy", "/p.crv", "/CC4.EXE"}), 1);
  EXPECT_EQ(
      Plain(Errors),
      "corvane-tool: /CC4.EXE could not be saved: another program has changed it. The file is "
      "unchanged.\n");
  EXPECT_TRUE(Folder.Get("CC4.EXE") == GameExeBytes(others));
}

TEST_F(CopyCommand, RefusesSourcesThatDoNotMatchTheTarget) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"/p.crv", "/Maps/Merlaut.btd", "/p.crv has tables but no BTD record for "},
      {"/Maps/Merlaut.btd", "/new.crv", "/Maps/Merlaut.btd is a BTD file and has no tables for "},
      {"/p.crv", "/new.txt", "/new.txt is not a CC4.EXE, patch file (.crv), BTD file (.btd) or "},
      {"/no.crv", "/CC4.EXE", "/no.crv could not be read: "}};
  for (const auto& [from, to, reason] : rows) {
    EXPECT_EQ(Run({"copy", from, to}), 2) << from << " " << to;
    EXPECT_TRUE(Plain(Errors).starts_with(std::string("corvane-tool: ") + reason)) << Errors;
    EXPECT_EQ(Out, "");
  }
  EXPECT_TRUE(Folder.Get("CC4.EXE") == Exe);
}

TEST_F(CopyCommand, RefusesAFolderAsTarget) {
  for (const std::string name : {"/folder.crv", "/folder.json"}) {
    std::filesystem::create_directory(Folder / name.substr(1));
    EXPECT_EQ(Run({"copy", "--dry-run", "--unchecked", "--force", "/p.crv", name}), 2);
    EXPECT_EQ(Out, "");
    EXPECT_TRUE(Plain(Errors).starts_with("corvane-tool: " + name + " could not be ")) << Errors;
  }
}
