#include "Session.h"

using namespace corvane;

TEST(WholeSession, ABrokenNetworkIsMendedSavedAndOpenedAgain) {
  Session session;
  Form1& main = session.Main;
  const auto choose = [&](MenuItem& item) {
    session.Told();
    session.Menu(item);
    return session.Told();
  };
  const int to = RowMapIndex(main.lstConnections.Text());  // a neighbour of map 0
  int vl = 0;
  while (VLDest(0, vl) != to) ++vl;
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(choose(main.mnuFileSavePatch),
            Texts{"Error: \r\nNo STRARROW defined for BTD link from " + MapRow(0) + " to map " +
                  MapRow(to) + " via VL" + std::to_string(vl) +
                  "\r\nNo reciprocating STRARROW defined for link from " + std::to_string(to) +
                  " to map 0"});
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    PickRow(dialog.cboLstMaps, to);
    Press(dialog.OKButton);
  });
  PickRow(main.cboArrows, 80);
  session.Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, vl);
    PickRow(dialog.cboVLType, 2);
    PickRow(dialog.lstVLs, 9);
    PickRow(dialog.cboVLType, 1);
    PickRow(dialog.cboVLDest, to);
    Press(dialog.OKButton);
  });
  PickRow(main.lstMaps, 3);
  Session::Type(main.txtMapLeft, "801");
  session.Answer = MessageAnswer::No;
  const Texts question = {"This will directly modify the file " + session.File("CC4.EXE") +
                          ". If there are errors in the changes you have made, the game will "
                          "almost certainly crash. Are you absolutely sure you want to do this?"};
  EXPECT_EQ(choose(main.mnuFileSave), question);  // what is being typed is not in the tables
  EXPECT_EQ(choose(main.mnuFileExit), Texts{"Quit without saving changes?"});
  PressKey(main, Key::Tab);
  session.Answer = MessageAnswer::Yes;
  EXPECT_EQ(choose(main.mnuFileSave), Texts{"Error: \r\nInvalid tile coordinates for STRMAP 3"});
  Session::Type(main.txtMapLeft, "513");
  PressKey(main, Key::Tab);
  GameTables wanted = MakeSampleGame().Tables;
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(wanted));
  EXPECT_TRUE(TablesDirty && main.IsOpen());
  EXPECT_EQ(choose(main.mnuFileSave), question);
  wanted.Connections(0, to) = 80;
  wanted.Tiles[3].Left = 513;
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(wanted) && !TablesDirty);
  ResetTables();
  session.OpenFile("CC4.EXE");
  EXPECT_TRUE(MapConnections == wanted.Connections && VLDest(0, 9) == to);
  CloseWindow(main);
  EXPECT_TRUE(session.Told().empty() && !main.IsOpen());
}
