#include "Session.h"

using namespace corvane;
using Texts = std::vector<std::string>;

TEST(FileCommands, ASaveChangesTheEditedBytesAndNoOthers) {
  Session session;
  Form1& main = session.Main;
  const auto exe = [&] { return session.Folder.Get("CC4.EXE"); };
  std::string wanted = exe();
  session.OpenFile("CC4.EXE");
  session.Menu(main.mnuFileSave);
  EXPECT_TRUE(exe() == wanted);
  EXPECT_EQ(session.Told(),
            Texts{"This will directly modify the file " + session.File("CC4.EXE") +
                  ". If there are errors in the changes you have made, the game will almost "
                  "certainly crash. Are you absolutely sure you want to do this?"});
  PickRow(main.lstMaps, 3);
  session.Type(main.txtMapLeft, "801");
  session.Menu(main.mnuFileSave);  // what is being typed is not in the tables
  PressKey(main, Key::Tab);
  session.Told();
  for (MenuItem* item : {&main.mnuFileSave, &main.mnuFileSavePatch}) {
    session.Asked = {};
    session.Menu(*item);
    EXPECT_EQ(session.Told(), Texts{"Error: \r\nInvalid tile coordinates for STRMAP 3"});
    EXPECT_EQ(session.Asked.Filter, "");
  }
  session.Type(main.txtMapLeft, "513");
  PressKey(main, Key::Tab);
  session.Answer = MessageAnswer::No;
  session.Menu(main.mnuFileSave);
  EXPECT_TRUE(exe() == wanted && TablesDirty);
  session.Answer = MessageAnswer::Yes;
  session.Menu(main.mnuFileSave);
  wanted.replace(1147264 + 3 * 28 + 12, 4, {"\x01\x02\x00\x00", 4});
  EXPECT_TRUE(exe() == wanted && !TablesDirty);
}

TEST(FileCommands, PatchFilesGoOutAndAsk) {
  Session session;
  Form1& main = session.Main;
  EXPECT_TRUE(main.mnuFileSave.Enabled && main.mnuFileSavePatch.Enabled);
  PressShortcut(main, Shortcut::CtrlS);
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
  session.SavePatch("New.crv");
  EXPECT_TRUE(session.Told().empty() && !TablesDirty);
  EXPECT_EQ(asked.Filter, "Corvane Patch Files (*.crv)|*.crv");
  EXPECT_TRUE(asked.Flags == 2048 && asked.DefaultExt == ".CRV" && asked.InitDir == GamePath);
  EXPECT_TRUE(session.Folder.Get("New.crv") == PatchBytes(MakeSampleGame().Tables));
  TablesDirty = true;
  session.Answer = MessageAnswer::No;
  session.SavePatch("New.crv");
  EXPECT_EQ(session.Told(), Texts{"Overwrite file " + session.File("New.crv") + "?"});
  session.SavePatch("Maps");  // a folder does not count as standing there, and cannot be written
  EXPECT_TRUE(session.Told().at(0).starts_with("Error: " + session.File("Maps") + " could not be"));
  OpenMenu(main.mnuFile);
  EXPECT_TRUE(TablesDirty && OpenedFile == "cc4.exe" && main.mnuFileSave.Enabled);
}

TEST(FileCommands, AnOpenThatFailsLeavesEverything) {
  Session session;
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 7);
  PickRow(main.cboArrows, 44);
  const ConnectionTable before = MapConnections;
  session.OpenFile("x.crv.bak");
  EXPECT_EQ(session.Told(), Texts{"Error: The file you are trying to open doesn't appear to be "
                                  "CC4.EXE or a valid patch file."});
  session.OpenFile("Maps/CC4.EXE");  // gone between choosing and reading
  EXPECT_TRUE(session.Told().at(0).starts_with("Error: " + session.File("Maps")));
  EXPECT_EQ(GamePath, session.File(""));
  EXPECT_TRUE(MapConnections == before && TablesDirty && main.lstMaps.ListIndex() == 7);
  EXPECT_FALSE(session.Ended);
}
