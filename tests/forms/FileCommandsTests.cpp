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
