#include <algorithm>

#include "Session.h"
#include "platform/FolderScan.h"

using namespace corvane;
using Texts = std::vector<std::string>;

// A sample game in which map 5 connects to 3, 9 and 20 only, by these arrows.
static SampleGame ThreeConnections(int to3 = 11, int to9 = 12, int to20 = 13) {
  SampleGame game = MakeSampleGame();
  for (int to = 0; to < MapSlotCount; ++to) game.Tables.Connections(5, to) = NoConnection;
  game.Tables.Connections(5, 3) = to3;
  game.Tables.Connections(5, 9) = to9;
  game.Tables.Connections(5, 20) = to20;
  game.Tables.Tiles[5].Left = -44;
  return game;
}

TEST(MainWindow, ShowsAMapItsConnectionsAndTheirArrowsAndLookingChangesNothing) {
  Session session(ThreeConnections());
  Form1& main = session.Main;
  EXPECT_EQ(main.Focused, &main.lstMaps);
  session.OpenFile("CC4.EXE");
  EXPECT_TRUE(session.Told().empty() && main.lstMaps.ListIndex() == 0);
  EXPECT_EQ(main.cboArrows.ListIndex(), MapConnections(0, RowMapIndex(main.lstConnections.Text())));
  const ConnectionTable before = MapConnections;
  PickRow(main.lstMaps, 5);
  EXPECT_EQ(main.txtMapLeft.Text(), "-44");
  for (const auto& [row, map, arrow] : {std::tuple(0, 3, 11), {1, 9, 12}, {2, 20, 13}}) {
    PickRow(main.lstConnections, row);
    EXPECT_EQ(main.lstConnections.Text(), MapRow(map));
    EXPECT_EQ(main.cboArrows.ListIndex(), arrow);
    EXPECT_EQ(main.txtArrowLeft.Text(), std::to_string(StrArrow[arrow].Left));
  }
  EXPECT_TRUE(MapConnections == before && !TablesDirty);
  PickRow(main.cboArrows, 80);
  EXPECT_EQ(main.txtArrowHeight.Text(), std::to_string(StrArrow[80].Height));
  EXPECT_EQ(MapConnections(5, 20), 80);
  EXPECT_TRUE(TablesDirty && !main.SettingArrow);
}

TEST(MainWindow, DeletingAsksAndEndsWithTheMessageForAMapWithoutConnections) {
  Session session(ThreeConnections());
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 5);
  PickRow(main.lstConnections, 1);
  session.Answer = MessageAnswer::No;
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(main.lstConnections.ListIndex(), 1);
  session.Answer = MessageAnswer::Yes;
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(session.Told(), Texts(2, ConnectionDeletePrompt(MapRow(5), MapRow(9))));
  EXPECT_TRUE(MapConnections(5, 9) == NoConnection && !TablesDirty);
  EXPECT_EQ(main.cboArrows.Text(), "011");
  Press(main.cmdDeleteConnection);
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(session.Told().back(), "Error: This map has no connection defined!");
  EXPECT_TRUE(!main.cmdDeleteConnection.Enabled() && main.cmdAddConnection.Enabled());
  EXPECT_EQ(main.cboArrows.Text(), "013");  // the arrow shown last stays
  EXPECT_EQ(main.Focused, &main.cmdEditBTD);
  PickRow(main.cboArrows, 2);  // shows the arrow and assigns nothing
  EXPECT_EQ(main.txtArrowTop.Text(), std::to_string(StrArrow[2].Top));
  EXPECT_FALSE(TablesDirty);
}

TEST(MainWindow, NumbersThatAreNoArrowsShowNone) {
  SampleGame game = ThreeConnections(81, -2, INT32_MIN);
  game.Maps.erase(game.Maps.begin() + 20, game.Maps.end());
  Session session(game);
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  for (const int row : {0, 1, 2, 1, 2}) {
    if (row == 0) PickRow(main.lstMaps, 5);
    PickRow(main.lstConnections, row);
    EXPECT_EQ(main.cboArrows.ListIndex(), -1);
    EXPECT_EQ(main.txtArrowLeft.Text() + main.txtArrowHeight.Text(), "");
  }
  EXPECT_EQ(main.lstConnections.Text(), "");  // map 20 has no row
  session.Told();
  Press(main.cmdDeleteConnection);
  PickRow(main.cboArrows, 3);
  EXPECT_TRUE(session.Told().empty() && !TablesDirty);
  PickRow(main.lstConnections, 1);
  EXPECT_EQ(main.txtArrowLeft.Text(), "");
  PickRow(main.cboArrows, 0);
  EXPECT_EQ(MapConnections(5, 9), 0);
}

TEST(MainWindow, EveryFieldShowsAndEntersItsOwnNumberForTheRowThatStood) {
  Session session(ThreeConnections());
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 6);
  StrRect& arrow = StrArrow[main.cboArrows.ListIndex()];
  const std::pair<TextBox*, std::int32_t*> fields[] = {
      {&main.txtMapLeft, &StrMap[6].Left},
      {&main.txtMapTop, &StrMap[6].Top},
      {&main.txtMapWidth, &StrMap[6].Width},
      {&main.txtMapHeight, &StrMap[6].Height},
      {&main.txtMapCenterX, &MapHotspots[6].CenterX},
      {&main.txtMapCenterY, &MapHotspots[6].CenterY},
      {&main.txtArrowLeft, &arrow.Left},
      {&main.txtArrowTop, &arrow.Top},
      {&main.txtArrowWidth, &arrow.Width},
      {&main.txtArrowHeight, &arrow.Height}};
  std::int32_t number = 1000;
  for (const auto& [box, stored] : fields) {
    EXPECT_EQ(box->Text(), std::to_string(*stored)) << box->Name;
    session.Type(*box, std::string("0").append(std::to_string(++number)));
    EXPECT_NE(*stored, number);
    TablesDirty = false;
    PickRow(main.lstMaps, 7);
    EXPECT_TRUE(*stored == number && TablesDirty) << box->Name;
    PickRow(main.lstMaps, 6);
  }
  session.Type(main.txtArrowLeft, "12x");
  PickRow(main.lstMaps, 7);
  EXPECT_TRUE(main.lstMaps.ListIndex() == 6 && main.Focused == &main.txtArrowLeft);
  EXPECT_TRUE(main.txtArrowLeft.SelectionSet && session.Beeps == 1);
  EXPECT_EQ(main.txtArrowLeft.SelStart + main.txtArrowLeft.SelLength, 3);
  session.Type(main.txtArrowLeft, "");
  PickRow(main.lstMaps, 5);
  EXPECT_EQ(arrow.Left, 0);
  EXPECT_TRUE(MoveFocus(main.txtMapLeft));
  PressKey(main, Key::Tab);  // a negative number cannot be left
  EXPECT_TRUE(main.Focused == &main.txtMapLeft && session.Beeps == 2);
}

TEST(MainWindow, AsksBeforeClosingOnlyWhenEdited) {
  Session session;
  CloseWindow(session.Main);
  EXPECT_FALSE(session.Main.IsOpen());
  session.Main.Open();
  TablesDirty = true;
  session.Answer = MessageAnswer::No;
  session.Menu(session.Main.mnuFileExit);
  EXPECT_TRUE(session.Main.IsOpen());
  EXPECT_EQ(session.Told(), Texts{"Quit without saving changes?"});
  session.Answer = MessageAnswer::Yes;
  CloseWindow(session.Main);
  EXPECT_FALSE(session.Main.IsOpen());
}

TEST(MainWindow, WithoutMapsNothingCanBeDoneAndOneMessageSaysSo) {
  Session session;
  Form1& main = session.Main;
  DoubleClick(main.lstMaps, 0);
  session.OpenFile("CC4.EXE");
  TablesDirty = true;
  std::filesystem::remove_all(session.Folder.Path / "Maps");
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(session.Told(), Texts{"Error: No map files were found in the folder " + GamePath +
                                  Separator + "Maps."});
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(main.lstMaps.ListCount() + main.lstConnections.ListCount(), 0);
  EXPECT_EQ(main.txtMapLeft.Text() + main.txtArrowWidth.Text(), "");
  EXPECT_FALSE(main.cmdAddConnection.Enabled() || main.cmdDeleteConnection.Enabled());
  Press(main.cmdEditBTD);
  main.lstMaps_Click();
  session.Type(main.txtMapLeft, "5");
  PressKey(main, Key::Tab);
  EXPECT_TRUE(session.Told().empty() && !TablesDirty);
}
