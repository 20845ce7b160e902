#include <gtest/gtest.h>

#include "MapCatalogue.h"
#include "Session.h"
#include "StrategicTables.h"
#include "platform/RawFile.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t Tile3Left = 1147264 + 3 * 28 + 12;  // place in CC4.EXE

TEST(FileCommands, ASaveChangesTheEditedBytesAndNoOthers) {
  Session session;
  Form1& main = session.Main;
  const std::string exe = session.File("CC4.EXE");
  const std::string before = session.Folder.Get("CC4.EXE");
  session.OpenFile("CC4.EXE");
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), before);
  EXPECT_EQ(session.Told(),
            Texts{"This will directly modify the file " + exe +
                  ". If there are errors in the changes you have made, the game will almost "
                  "certainly crash. Are you absolutely sure you want to do this?"});

  PickRow(main.lstMaps, 3);
  session.Type(main.txtMapLeft, "801");
  session.Menu(main.mnuFileSave);  // what is being typed is not in the tables
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), before);
  PressKey(main, Key::Tab);
  session.Told();
  for (MenuItem* item : {&main.mnuFileSave, &main.mnuFileSavePatch}) {
    session.Asked = {};
    session.Menu(*item);
    EXPECT_EQ(session.Told(), Texts{"Error: \r\nInvalid tile coordinates for STRMAP 3"});
    EXPECT_EQ(session.Asked.Filter, "");
  }
  EXPECT_TRUE(TablesDirty);

  session.Type(main.txtMapLeft, "513");
  PressKey(main, Key::Tab);
  session.Answer = MessageAnswer::No;
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), before);
  EXPECT_TRUE(TablesDirty);
  session.Answer = MessageAnswer::Yes;
  session.Menu(main.mnuFileSave);
  EXPECT_FALSE(TablesDirty);
  std::string wanted = before;
  wanted.replace(Tile3Left, 4, {"\x01\x02\x00\x00", 4});
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), wanted);
}

TEST(FileCommands, PatchFilesGoOutAndAsk) {
  Session session;
  Form1& main = session.Main;
  EXPECT_TRUE(main.mnuFileSave.Enabled && main.mnuFileSavePatch.Enabled);
  PressShortcut(main, Shortcut::CtrlS);
  EXPECT_FALSE(main.mnuFileSave.Enabled || main.mnuFileSavePatch.Enabled);
  EXPECT_EQ(session.Told(), Texts{});
  std::filesystem::rename(session.File("CC4.EXE"), session.File("cc4.exe"));
  session.OpenFile("cc4.exe");
  EXPECT_EQ(session.Asked.Flags, 6144);
  EXPECT_EQ(session.Asked.DefaultExt, "");
  EXPECT_EQ(session.Asked.Filter, "CC4.EXE (CC4.EXE)|CC4.EXE|Corvane Patch Files (*.crv)|*.crv");
  EXPECT_EQ(session.Asked.FilterIndex, 1);
  EXPECT_EQ(session.Asked.InitDir, std::filesystem::current_path().string());

  TablesDirty = true;
  session.Choice.clear();
  session.Menu(main.mnuFileSavePatch);
  session.Menu(main.mnuFileOpen);
  EXPECT_TRUE(TablesDirty);
  session.SavePatch("New.crv");
  EXPECT_EQ(session.Told(), Texts{});
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.Asked.Flags, 2048);
  EXPECT_EQ(session.Asked.DefaultExt, ".CRV");
  EXPECT_EQ(session.Asked.Filter, "Corvane Patch Files (*.crv)|*.crv");
  EXPECT_EQ(session.Asked.InitDir, GamePath);
  EXPECT_EQ(session.Folder.Get("New.crv"), PatchBytes(MakeSampleGame().Tables));

  TablesDirty = true;
  session.Answer = MessageAnswer::No;
  session.SavePatch("New.crv");
  EXPECT_EQ(session.Told(), Texts{"Overwrite file " + session.File("New.crv") + "?"});
  EXPECT_TRUE(TablesDirty);
  session.SavePatch("Maps");  // a folder does not count as standing there, and cannot be written
  EXPECT_EQ(session.Messages.size(), 1U);
  EXPECT_TRUE(session.Told()[0].starts_with("Error: " + session.File("Maps") + " could not be"));
  EXPECT_TRUE(TablesDirty);
  EXPECT_EQ(OpenedFile, "cc4.exe");
  OpenMenu(main.mnuFile);
  EXPECT_TRUE(main.mnuFileSave.Enabled);
}

TEST(FileCommands, AnOpenThatFailsLeavesEverything) {
  Session session;
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 7);
  PickRow(main.cboArrows, 44);
  const StrArrowTable arrows = StrArrow;
  session.OpenFile("Maps/x.crv.bak");
  EXPECT_EQ(session.Told(), Texts{"Error: The file you are trying to open doesn't appear to be "
                                  "CC4.EXE or a valid patch file."});
  session.OpenFile("Maps/CC4.EXE");  // gone between choosing and reading
  EXPECT_TRUE(session.Told()[0].starts_with("Error: " + session.File("Maps")));
  EXPECT_EQ(GamePath, session.File(""));
  EXPECT_EQ(StrArrow, arrows);
  EXPECT_EQ(main.lstMaps.ListIndex(), 7);
  EXPECT_TRUE(TablesDirty);
  EXPECT_FALSE(session.Ended);
}

TEST(FileCommands, MapFilesThatCannotBeReadAreNamedOnceTheCatalogueStands) {
  Session session;
  int opened = 0;
  InjectedFault = [&](FileStep step, std::size_t&) {
    return step == FileStep::Open && ++opened == 2 ? std::make_error_code(std::errc::io_error)
                                                   : std::error_code();
  };
  session.OpenFile("CC4.EXE");
  InjectedFault = nullptr;
  EXPECT_EQ(session.Main.lstMaps.ListCount(), MapSlotCount - 1);
  ASSERT_EQ(session.Messages.size(), 1U);
  EXPECT_NE(session.Messages[0].find("may no longer agree:\r\n" + session.File("")),
            std::string::npos);
}

}  // namespace
}  // namespace corvane
