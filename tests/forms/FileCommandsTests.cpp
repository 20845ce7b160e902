#include "Session.h"
#include "data/GameFolder.h"

using namespace corvane;

static const KeyStroke CtrlS = {'S', {.Ctrl = true}};

struct FileCommands : testing::Test {
  FileCommands() { TablesDirty = true; }
  Session session;
  Form1& main = session.Main;
};

TEST_F(FileCommands, SetUpTheirDialogsAndDoNothingOnCancel) {
  const std::string patches = "Corvane Patch Files (*.crv)|*.crv",
                    game = "CC4.EXE (CC4.EXE)|CC4.EXE|";
  const std::string here = std::filesystem::current_path().string();
  const std::tuple<MenuItem&, std::string, int, std::string, std::string> rows[] = {
      {main.mnuFileOpen, game + patches, 6144, "", here},
      {main.mnuFileSavePatch, patches, 2048, ".CRV", GamePath}};
  session.Choice.clear();
  for (const auto& [item, filter, flags, extension, folder] : rows) {
    session.Menu(item);
    EXPECT_EQ(session.Asked.Filter, filter);
    EXPECT_EQ(session.Asked.Flags, flags) << filter;
    EXPECT_EQ(session.Asked.DefaultExt, extension) << filter;
    EXPECT_EQ(session.Asked.FilterIndex, 1) << filter;
    EXPECT_EQ(session.Asked.InitDir, folder) << filter;
  }
  EXPECT_EQ(session.TakeMessages(), Texts());
  EXPECT_TRUE(TablesDirty);
}

TEST_F(FileCommands, SaveANewPatchFileWithoutAQuestion) {
  session.Choice = session.File("New.crv");
  PressKey(main, CtrlS);
  EXPECT_EQ(session.TakeMessages(), Texts());
  EXPECT_FALSE(TablesDirty);
  EXPECT_TRUE(session.Folder.Get("New.crv") == PatchBytes(MakeSampleGame().Tables));
  EXPECT_EQ(OpenedFile, "CC4.EXE");
}

TEST_F(FileCommands, AskBeforeReplacingAPatchFile) {
  session.Folder.Put("old.crv", "old");
  for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
    EXPECT_EQ(session.Folder.Get("old.crv"), "old");
    EXPECT_TRUE(TablesDirty);
    session.Answer = answer;
    session.SavePatch("old.crv");
    EXPECT_EQ(session.TakeMessages(), Texts{"Overwrite file " + session.File("old.crv") + "?"});
  }
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.Folder.Get("old.crv").size(), 11212U);
}

TEST_F(FileCommands, CannotSaveIntoAFolder) {
  session.Folder.Put("folder.crv/file");
  session.SavePatch("folder.crv");
  ASSERT_EQ(session.Messages.size(), 1U);
  EXPECT_TRUE(session.Messages[0].starts_with("Error: " + session.File("folder.crv") + " could "));
  EXPECT_TRUE(TablesDirty);
}

TEST_F(FileCommands, OfferAPatchFileOnlyWhereTheGameHasAFolder) {
  GamePath.clear();
  OpenMenu(main.mnuFile);
  EXPECT_FALSE(main.mnuFileSavePatch.Enabled);
  EXPECT_TRUE(main.mnuFileSave.Enabled);
}

// The menu was last opened with a game open. A screen reader can choose an item without opening the
// menu.
TEST_F(FileCommands, WriteNoPatchFileAsAGame) {
  session.Folder.Put("p.crv", PatchBytes(MakeSampleGame().Tables));
  OpenMenu(main.mnuFile);
  OpenedFile = "p.crv";
  Choose(main.mnuFileSave);
  EXPECT_EQ(session.TakeMessages(), Texts{});
  EXPECT_EQ(session.Folder.Get("p.crv").size(), 11212U);
}

TEST_F(FileCommands, OpenAGameInLowerCase) {
  std::filesystem::rename(session.File("CC4.EXE"), session.File("cc4.exe"));
  session.OpenFile("cc4.exe");
  OpenMenu(main.mnuFile);
  EXPECT_EQ(OpenedFile, "cc4.exe");
  EXPECT_EQ(main.lstMaps.ListCount(), 43);  // filled anew
  EXPECT_EQ(main.cboArrows.ListCount(), 81);
  EXPECT_TRUE(main.mnuFileSave.Enabled);
  EXPECT_TRUE(main.mnuFileSavePatch.Enabled);
  EXPECT_FALSE(TablesDirty);
}

// If the first map has no connections, its message appears during the open.
TEST_F(FileCommands, MarkTheTablesAsSavedOnlyAtTheEndOfAnOpen) {
  GameTables tables = MakeSampleGame().Tables;
  for (int to = 0; to < MapSlotCount; ++to) tables.Connections(0, to) = NoConnection;
  session.Folder.Put("CC4.EXE", GameExeBytes(tables));
  std::optional<bool> dirty;
  TheDisplay.ShowMessage = [&](const std::string&, MessageButtons) {
    dirty = TablesDirty;
    return MessageAnswer::Ok;
  };
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(dirty, true);
  EXPECT_FALSE(TablesDirty);
}

TEST_F(FileCommands, AskBeforeLeavingUnsavedTables) {
  for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
    EXPECT_TRUE(main.IsOpen());
    session.Answer = answer;
    session.Menu(main.mnuFileExit);
    EXPECT_EQ(session.TakeMessages(), Texts{"Quit without saving changes?"});
  }
  EXPECT_FALSE(main.IsOpen());
}

TEST_F(FileCommands, ChangeNothingWhenAnOpenFails) {
  PickRow(main.lstMaps, 7);
  const ConnectionTable before = MapConnections;
  const bool installed = ReadInstallPath().has_value();  // a patch file needs it
  const std::pair<const char*, std::string> rows[] = {
      {"x.crv.bak",
       "Error: The file you are trying to open doesn't appear to be CC4.EXE or a valid patch "
       "file."},
      {"Maps/CC4.EXE", "Error: " + session.File("Maps")},  // deleted after the choice
      {"x.crv", installed ? "Error: " + session.File("x.crv")
                          : "Error reading registry settings. You must have CC4 installed on the "
                            "machine to use this utility."}};
  for (const auto& [name, error] : rows) {
    EXPECT_FALSE(session.Ended);
    session.OpenFile(name);
    EXPECT_EQ(session.TakeMessages().at(0).substr(0, error.size()), error);
    EXPECT_EQ(MapConnections, before);
    EXPECT_EQ(main.lstMaps.ListIndex(), 7);
    EXPECT_TRUE(TablesDirty);
  }
  EXPECT_EQ(session.Ended, !installed);
}

static std::string ChangedQuestion(const std::string& path) {
  return "The file " + path +
         " was changed by another program since it was opened. Save and lose those changes?";
}

struct LostUpdates : testing::Test {
  Session session;
  // Changes a byte, as another program would.
  void Change(const std::string& name, std::size_t at) const {
    std::string bytes = session.Folder.Get(name);
    bytes.at(at) = static_cast<char>(bytes.at(at) + 1);
    session.Folder.Put(name, bytes);
  }
  // Saves. Returns the messages after the first question.
  Texts SaveExe() {
    session.TakeMessages();
    session.Menu(session.Main.mnuFileSave);
    return {session.Messages.begin() + 1, session.Messages.end()};
  }
};

TEST_F(LostUpdates, AnUnchangedGameIsSavedRepeatedlyWithoutAQuestion) {
  for (int time = 0; time < 2; ++time) {
    PickRow(session.Main.cboArrows, 7 + time);
    EXPECT_EQ(SaveExe(), Texts{});
  }
  Change("CC4.EXE", 1147263);  // outside the tables
  EXPECT_EQ(SaveExe(), Texts{});
  std::filesystem::resize_file(session.File("CC4.EXE"), 1153999);
  EXPECT_EQ(SaveExe(), Texts{});
  EXPECT_EQ(session.Folder.Get("CC4.EXE").size(), 1201312U);
}

TEST_F(LostUpdates, OnlyYesOverwritesAGameThatAnotherProgramChanged) {
  const std::string ours = session.Folder.Get("CC4.EXE");
  Change("CC4.EXE", 1201311);
  const std::string theirs = session.Folder.Get("CC4.EXE");
  TablesDirty = true;
  for (const char* refused : {"The file ", "?"}) {
    EXPECT_EQ(session.Folder.Get("CC4.EXE"), theirs);
    EXPECT_TRUE(TablesDirty);
    session.Refused = refused;
    EXPECT_EQ(SaveExe(), Texts{ChangedQuestion(session.File("CC4.EXE"))});
  }
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), ours);
  EXPECT_EQ(SaveExe(), Texts{});
}

// The first range is written; then every write and flush fails, so that nothing can be undone.
TEST_F(LostUpdates, OurOwnFailedSaveIsNotBlamedOnAnotherProgram) {
  StrMap[0].Left = 5;
  InjectedFault = [writes = 0](FileStep step, Moment moment, std::size_t&) mutable {
    if (moment == Moment::After) return std::error_code();
    const bool fails = step == FileStep::Flush || (step == FileStep::Write && writes++ > 0);
    return fails ? std::make_error_code(std::errc::io_error) : std::error_code();
  };
  EXPECT_NE(SaveExe().at(0).find("DAMAGED"), std::string::npos);
  InjectedFault = nullptr;
  EXPECT_EQ(SaveExe(), Texts{});
}

TEST_F(LostUpdates, AChangedPatchFileIsAskedAbout) {
  const Texts overwrite{"Overwrite file " + session.File("p.crv") + "?"};
  session.SavePatch("p.crv");
  session.TakeMessages();
  session.SavePatch("p.crv");
  EXPECT_EQ(session.TakeMessages(), overwrite);
  Change("p.crv", 11211);
  std::filesystem::create_hard_link(session.File("p.crv"), session.File("other.crv"));
  session.SavePatch("other.crv");
  EXPECT_EQ(session.TakeMessages().at(1), ChangedQuestion(session.File("other.crv")));
}

TEST_F(LostUpdates, ABtdFileChangedWhileItsDialogIsOpenIsAskedAbout) {
  const std::string name = "Maps/" + RowFileName(MapRow(0));
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    Change(name, 8525);
    const std::string theirs = session.Folder.Get(name);
    session.TakeMessages();
    session.Refused = "The file ";
    Press(dialog.OKButton);
    ASSERT_EQ(session.Messages.size(), 2U);
    EXPECT_TRUE(session.Messages[1].ends_with(" Save and lose those changes?"));
    EXPECT_EQ(session.Folder.Get(name), theirs);
    EXPECT_TRUE(dialog.IsOpen());
  });
}

TEST(BaseNames, ThatLeadOutOfMapsAreRefusedBeforeAnyQuestion) {
  Session session;
  session.Folder.Put("x.btd", "outside");
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    session.TakeMessages();
    dialog.txtFileName.SetText("../x");
    Press(dialog.OKButton);
    ASSERT_EQ(session.Messages.size(), 1U);
    EXPECT_TRUE(session.Messages[0].starts_with("Error: ")) << session.Messages[0];
    EXPECT_TRUE(session.Messages[0].ends_with(" No file was changed.")) << session.Messages[0];
    EXPECT_TRUE(dialog.IsOpen());
  });
  EXPECT_EQ(session.Folder.Get("x.btd"), "outside");
}
