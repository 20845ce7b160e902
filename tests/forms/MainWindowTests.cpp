#include <gtest/gtest.h>

#include "MapCatalogue.h"
#include "Session.h"
#include "StrategicTables.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

const Texts NoConnectionMessage{"Error: This map has no connection defined!"};

// A sample game in which map 5 connects to 3, 9 and 20 only, by arrows 11, 12 and 13.
SampleGame ThreeConnections() {
  SampleGame game = MakeSampleGame();
  for (int to = 0; to < MapSlotCount; ++to) game.Tables.Connections(5, to) = NoConnection;
  game.Tables.Connections(5, 3) = 11;
  game.Tables.Connections(5, 9) = 12;
  game.Tables.Connections(5, 20) = 13;
  game.Tables.Tiles[5].Left = -44;
  return game;
}

TEST(MainWindow, OpensOnTheFirstMapAndLookingChangesNothing) {
  Session session(ThreeConnections());
  Form1& main = session.Main;
  EXPECT_EQ(main.Focused, &main.lstMaps);
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(session.Told(), Texts{});
  EXPECT_EQ(main.lstMaps.ListIndex(), 0);
  EXPECT_EQ(main.lstMaps.ListCount(), MapSlotCount);
  EXPECT_EQ(main.txtMapTop.Text(), std::to_string(StrMap[0].Top));
  EXPECT_EQ(main.cboArrows.ListIndex(), MapConnections(0, RowMapIndex(main.lstConnections.Text())));

  const ConnectionTable before = MapConnections;
  PickRow(main.lstMaps, 5);
  EXPECT_EQ(main.txtMapLeft.Text(), "-44");
  ASSERT_EQ(main.lstConnections.ListCount(), 3);
  EXPECT_EQ(main.lstConnections.List(1), MapRows[9]);
  EXPECT_EQ(main.cboArrows.Text(), "011");
  PickRow(main.lstConnections, 2);
  EXPECT_EQ(main.cboArrows.Text(), "013");
  EXPECT_EQ(main.txtArrowLeft.Text(), std::to_string(StrArrow[13].Left));
  EXPECT_EQ(MapConnections, before);
  EXPECT_FALSE(TablesDirty);

  PickRow(main.cboArrows, 80);
  EXPECT_EQ(main.txtArrowHeight.Text(), std::to_string(StrArrow[80].Height));
  EXPECT_EQ(MapConnections(5, 20), 80);
  EXPECT_TRUE(TablesDirty);
  EXPECT_FALSE(main.SettingArrow);
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
  session.Told();
  Press(main.cmdDeleteConnection);
  EXPECT_NE(session.Told()[0].find("from map " + MapRows[5] + " to map " + MapRows[9] + "?  Note"),
            std::string::npos);
  EXPECT_EQ(MapConnections(5, 9), NoConnection);
  EXPECT_EQ(main.cboArrows.Text(), "011");
  EXPECT_FALSE(TablesDirty);
  Press(main.cmdDeleteConnection);
  session.Told();
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(session.Told().back(), NoConnectionMessage[0]);
  EXPECT_FALSE(main.cmdDeleteConnection.Enabled());
  EXPECT_TRUE(main.cmdAddConnection.Enabled());
  EXPECT_EQ(main.cboArrows.Text(), "013");  // the arrow shown last stays
  EXPECT_EQ(main.Focused, &main.cmdEditBTD);
  PickRow(main.cboArrows, 2);  // shows the arrow and assigns nothing
  EXPECT_EQ(main.txtArrowTop.Text(), std::to_string(StrArrow[2].Top));
  EXPECT_FALSE(TablesDirty);
}

TEST(MainWindow, NumbersThatAreNoArrowsShowNone) {
  SampleGame game = ThreeConnections();
  game.Tables.Connections(5, 3) = 81;
  game.Tables.Connections(5, 9) = -2;
  game.Tables.Connections(5, 20) = INT32_MIN;
  game.Maps.erase(game.Maps.begin() + 20, game.Maps.end());
  Session session(game);
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  for (const int from : {0, 5}) {  // after an arrow was on show, and after none was
    PickRow(main.lstMaps, from);
    PickRow(main.lstMaps, 5);
    for (int row = 0; row < 3; ++row) {
      PickRow(main.lstConnections, row);
      EXPECT_EQ(main.cboArrows.ListIndex(), -1);
      EXPECT_EQ(main.txtArrowLeft.Text() + main.txtArrowHeight.Text(), "");
    }
  }
  EXPECT_EQ(main.lstConnections.Text(), "");  // map 20 has no row
  session.Told();
  Press(main.cmdDeleteConnection);
  PickRow(main.cboArrows, 3);
  EXPECT_EQ(session.Told(), Texts{});
  EXPECT_FALSE(TablesDirty);
  PickRow(main.lstConnections, 1);
  EXPECT_EQ(main.txtArrowLeft.Text(), "");
  PickRow(main.cboArrows, 0);
  EXPECT_EQ(MapConnections(5, 9), 0);
}

TEST(MainWindow, ANumberIsEnteredOnLeavingItsField) {
  Session session(ThreeConnections());
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 5);
  session.Type(main.txtMapCenterY, "0600");
  EXPECT_FALSE(TablesDirty);
  PickRow(main.lstMaps, 6);
  EXPECT_EQ(MapHotspots[5].CenterY, 600);  // the row that stood when it was typed
  EXPECT_TRUE(TablesDirty);
  session.Type(main.txtArrowLeft, "12x");
  PickRow(main.lstMaps, 7);
  EXPECT_EQ(main.lstMaps.ListIndex(), 6);
  EXPECT_EQ(session.Beeps, 1);
  EXPECT_TRUE(main.txtArrowLeft.SelectionSet);
  EXPECT_EQ(main.txtArrowLeft.SelStart + main.txtArrowLeft.SelLength, 3);
  session.Type(main.txtArrowLeft, "");
  PressKey(main, Key::Tab);
  EXPECT_EQ(StrArrow[main.cboArrows.ListIndex()].Left, 0);
  PickRow(main.lstMaps, 5);
  EXPECT_TRUE(MoveFocus(main.txtMapLeft));
  PressKey(main, Key::Tab);  // a negative number cannot be left
  EXPECT_EQ(main.Focused, &main.txtMapLeft);
  EXPECT_EQ(session.Beeps, 2);
}

TEST(MainWindow, EveryFieldShowsAndEntersItsOwnNumber) {
  Session session;
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 5);
  StrRect& tile = StrMap[5];
  StrRect& arrow = StrArrow[main.cboArrows.ListIndex()];
  const std::vector<std::pair<TextBox*, std::int32_t*>> fields = {
      {&main.txtMapLeft, &tile.Left},
      {&main.txtMapTop, &tile.Top},
      {&main.txtMapWidth, &tile.Width},
      {&main.txtMapHeight, &tile.Height},
      {&main.txtMapCenterX, &MapHotspots[5].CenterX},
      {&main.txtMapCenterY, &MapHotspots[5].CenterY},
      {&main.txtArrowLeft, &arrow.Left},
      {&main.txtArrowTop, &arrow.Top},
      {&main.txtArrowWidth, &arrow.Width},
      {&main.txtArrowHeight, &arrow.Height}};
  std::int32_t number = 1000;
  for (const auto& [box, stored] : fields) {
    EXPECT_EQ(box->Text(), std::to_string(*stored)) << box->Name;
    session.Type(*box, std::to_string(++number));
    PressKey(main, Key::Tab);
    EXPECT_EQ(*stored, number) << box->Name;
  }
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
  SampleGame game = MakeSampleGame();
  Session session(game);
  Form1& main = session.Main;
  DoubleClick(main.lstMaps, 0);
  PressKey(main, Key::Enter);
  session.OpenFile("CC4.EXE");
  TablesDirty = true;
  std::filesystem::remove_all(session.Folder.Path / "Maps");
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(session.Told(),
            Texts{"Error: No map files were found in the folder " + session.File("") + "/Maps."});
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(main.lstMaps.ListCount() + main.lstConnections.ListCount(), 0);
  EXPECT_EQ(main.txtMapLeft.Text() + main.txtArrowWidth.Text(), "");
  EXPECT_FALSE(main.cmdAddConnection.Enabled() || main.cmdDeleteConnection.Enabled());
  Press(main.cmdEditBTD);
  session.Type(main.txtMapLeft, "5");
  PressKey(main, Key::Tab);
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.Told(), Texts{});
}

}  // namespace
}  // namespace corvane
