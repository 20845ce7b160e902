// What stands between an edit and the game: the check, the question and the answer.
#include "Session.h"

using namespace corvane;

struct WholeSession : testing::Test {
  WholeSession() {
    while (VLDest(0, ExitVL) != To) ++ExitVL;
  }
  Texts Choose(MenuItem& item) {
    session.Told();
    session.Menu(item);
    return session.Told();
  }
  void Enter(TextBox& box, const std::string& number) {
    Session::Type(box, number);
    PressKey(main, Key::Tab);
  }
  Session session;
  Form1& main = session.Main;
  const int To = RowMapIndex(main.lstConnections.Text());  // a neighbour of map 0
  int ExitVL = 0;                                          // map 0's location that leads there
  const Texts Question = {"This will directly modify the file " + session.File("CC4.EXE") +
                          ". If there are errors in the changes you have made, the game will "
                          "almost certainly crash. Are you absolutely sure you want to do this?"};
};

TEST_F(WholeSession, ABrokenNetworkIsRefusedByBothSaves) {
  Press(main.cmdDeleteConnection);
  const std::string to = std::to_string(To);
  const Texts findings{"Error: \r\nNo STRARROW defined for BTD link from " + MapRow(0) +
                       " to map " + MapRow(To) + " via VL" + std::to_string(ExitVL) +
                       "\r\nNo reciprocating STRARROW defined for link from " + to + " to map 0"};
  session.Choice = session.File("p.crv");
  EXPECT_EQ(Choose(main.mnuFileSavePatch), findings);
  EXPECT_EQ(Choose(main.mnuFileSave), findings);
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(MakeSampleGame().Tables));
  EXPECT_FALSE(std::filesystem::exists(session.File("p.crv")));
}

TEST_F(WholeSession, ANumberBeingTypedIsNotInTheTables) {
  PickRow(main.lstMaps, 3);
  Session::Type(main.txtMapLeft, "801");
  EXPECT_EQ(Choose(main.mnuFileSave), Question);
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(MakeSampleGame().Tables));
  PressKey(main, Key::Tab);
  EXPECT_EQ(Choose(main.mnuFileSave), Texts{"Error: \r\nInvalid tile coordinates for STRMAP 3"});
}

TEST_F(WholeSession, TheGameIsWrittenOnYesOnlyAndThenLeftUnasked) {
  PickRow(main.lstMaps, 3);
  Enter(main.txtMapLeft, "513");
  GameTables wanted = MakeSampleGame().Tables;
  session.Answer = MessageAnswer::No;
  EXPECT_EQ(Choose(main.mnuFileSave), Question);
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(wanted));
  EXPECT_TRUE(TablesDirty);
  session.Answer = MessageAnswer::Yes;
  EXPECT_EQ(Choose(main.mnuFileSave), Question);
  wanted.Tiles[3].Left = 513;
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == GameExeBytes(wanted));
  CloseWindow(main);
  EXPECT_EQ(session.Told(), Texts());
  EXPECT_FALSE(main.IsOpen());
}
