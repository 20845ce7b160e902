#include "Session.h"
#include "data/GameFolder.h"

using namespace corvane;

TEST(FileCommands, PatchFilesGoOutAndAsk) {
  Session session(GameFiles(MakeSampleGame()));
  Form1& main = session.Main;
  PressKey(main, {'S', {.Ctrl = true}});
  EXPECT_FALSE(main.mnuFileSave.Enabled || main.mnuFileSavePatch.Enabled);
  EXPECT_TRUE(session.Told().empty());
  std::filesystem::rename(session.File("CC4.EXE"), session.File("cc4.exe"));
  session.OpenFile("cc4.exe");
  const CommonDialog& asked = session.Asked;
  EXPECT_EQ(asked.Filter, "CC4.EXE (CC4.EXE)|CC4.EXE|Corvane Patch Files (*.crv)|*.crv");
  EXPECT_TRUE(asked.Flags == 6144 && asked.DefaultExt.empty() && asked.FilterIndex == 1);
  EXPECT_EQ(asked.InitDir, std::filesystem::current_path().string());
  TablesDirty = true;
  session.Choice.clear();
  session.Menu(main.mnuFileSavePatch);
  session.Menu(main.mnuFileOpen);
  EXPECT_TRUE(TablesDirty);
  session.Choice = session.File("New.crv");
  PressKey(main, {'S', {.Ctrl = true}});
  EXPECT_TRUE(session.Told().empty() && !TablesDirty);
  EXPECT_EQ(asked.Filter, "Corvane Patch Files (*.crv)|*.crv");
  EXPECT_TRUE(asked.Flags == 2048 && asked.DefaultExt == ".CRV" && asked.InitDir == GamePath);
  EXPECT_TRUE(session.Folder.Get("New.crv") == PatchBytes(MakeSampleGame().Tables));
  TablesDirty = true;
  session.Answer = MessageAnswer::No;
  session.SavePatch("New.crv");
  EXPECT_EQ(session.Told(), Texts{"Overwrite file " + session.File("New.crv") + "?"});
  std::filesystem::create_directory(session.Folder.Path / "Sub.crv");
  session.SavePatch("Sub.crv");  // a folder does not count as standing there, nor can be written
  EXPECT_TRUE(
      session.Told().at(0).starts_with("Error: " + session.File("Sub.crv") + " could not be"));
  OpenMenu(main.mnuFile);
  EXPECT_TRUE(TablesDirty && OpenedFile == "cc4.exe" && main.mnuFileSave.Enabled);
}

TEST(FileCommands, AnOpenThatFailsLeavesEverything) {
  Session session;
  Form1& main = session.Main;
  PickRow(main.lstMaps, 7);
  PickRow(main.cboArrows, 44);
  const ConnectionTable before = MapConnections;
  const bool installed = ReadInstallPath().has_value();  // which a patch file needs
  const std::pair<const char*, std::string> rows[] = {
      {"x.crv.bak",
       "Error: The file you are trying to open doesn't appear to be CC4.EXE or a valid patch "
       "file."},
      {"Maps/CC4.EXE", "Error: " + session.File("Maps")},  // gone between choosing and reading
      {"x.crv", installed ? "Error: " + session.File("x.crv")
                          : "Error reading registry settings. You must have CC4 installed on the "
                            "machine to use this utility."}};
  for (const auto& [name, error] : rows) {
    EXPECT_FALSE(session.Ended);
    session.OpenFile(name);
    EXPECT_EQ(session.Told().at(0).substr(0, error.size()), error);
    EXPECT_TRUE(MapConnections == before && TablesDirty && main.lstMaps.ListIndex() == 7);
  }
  EXPECT_EQ(session.Ended, !installed);
}

static std::string ChangedQuestion(const std::string& path) {
  return "The file " + path +
         " was changed by another program since it was opened. Save and lose those changes?";
}

struct LostUpdates : testing::Test {
  Session session;
  // Another program changes a byte.
  void Change(const std::string& name, std::size_t at) const {
    std::string bytes = session.Folder.Get(name);
    bytes.at(at) = static_cast<char>(bytes.at(at) + 1);
    session.Folder.Put(name, bytes);
  }
  // Saves and answers the last question with No; the questions asked, less the fixed first one.
  Texts SaveExe() {
    session.Told();
    session.Menu(session.Main.mnuFileSave);
    Texts told = session.Told();
    told.erase(told.begin());
    return told;
  }
};

TEST_F(LostUpdates, AnUntouchedGameIsSavedWithoutAQuestionTimeAfterTime) {
  for (int time = 0; time < 2; ++time) {
    PickRow(session.Main.cboArrows, 7 + time);
    EXPECT_EQ(SaveExe(), Texts{});
  }
  Change("CC4.EXE", 1147263);  // no byte of the tables
  EXPECT_EQ(SaveExe(), Texts{});
}

TEST_F(LostUpdates, AGameThatAnotherProgramChangedIsAskedAboutAndNoKeepsItsChange) {
  Change("CC4.EXE", 1201311);
  const std::string theirs = session.Folder.Get("CC4.EXE");
  TablesDirty = true;
  TheDisplay.ShowMessage = [this](const std::string& text, MessageButtons) {
    session.Messages.push_back(text);
    return text.starts_with("This will") ? MessageAnswer::Yes : MessageAnswer::No;
  };
  EXPECT_EQ(SaveExe(), Texts{ChangedQuestion(session.File("CC4.EXE"))});
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), theirs);
  EXPECT_TRUE(TablesDirty);
}

TEST_F(LostUpdates, YesSavesOverTheChangeAndTheNextSaveAsksNothing) {
  const std::string ours = session.Folder.Get("CC4.EXE");
  Change("CC4.EXE", 1147264);
  EXPECT_EQ(SaveExe(), Texts{ChangedQuestion(session.File("CC4.EXE"))});
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), ours);
  EXPECT_EQ(SaveExe(), Texts{});
}

TEST_F(LostUpdates, AGameCutShortIsLengthenedWithoutAWord) {
  std::filesystem::resize_file(session.File("CC4.EXE"), 1153999);
  EXPECT_EQ(SaveExe(), Texts{});
  EXPECT_EQ(session.Folder.Get("CC4.EXE").size(), 1201312U);
}

TEST_F(LostUpdates, APatchFileSavedHereIsAskedAboutOnceItDiffers) {
  const Texts overwrite{"Overwrite file " + session.File("p.crv") + "?"};
  session.SavePatch("p.crv");
  session.Told();
  session.SavePatch("p.crv");
  EXPECT_EQ(session.Told(), overwrite);
  Change("p.crv", 11211);
  session.SavePatch("p.crv");
  EXPECT_EQ(session.Told(), (Texts{overwrite[0], ChangedQuestion(session.File("p.crv"))}));
}

TEST_F(LostUpdates, APatchFileNeverSeenHereIsReplacedAsAsked) {
  session.Folder.Put("other.crv", std::string(11212, 'x'));
  session.SavePatch("other.crv");
  EXPECT_EQ(session.Told(), Texts{"Overwrite file " + session.File("other.crv") + "?"});
}

TEST_F(LostUpdates, ABtdFileChangedWhileItsDialogIsOpenIsAskedAbout) {
  const std::string name = "Maps/" + RowFileName(MapRow(0));
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    Change(name, 8525);
    const std::string theirs = session.Folder.Get(name);
    TheDisplay.ShowMessage = [this](const std::string& text, MessageButtons) {
      session.Messages.push_back(text);
      return text.starts_with("Replace") ? MessageAnswer::Yes : MessageAnswer::No;
    };
    session.Told();
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
    session.Told();
    dialog.txtFileName.SetText("../x");
    Press(dialog.OKButton);
    const Texts told = session.Told();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with("Error: ")) << told[0];
    EXPECT_TRUE(told[0].ends_with(" No file was changed.")) << told[0];
    EXPECT_TRUE(dialog.IsOpen());
  });
  EXPECT_EQ(session.Folder.Get("x.btd"), "outside");
}
