#include "Session.h"
#include "base/FolderScan.h"
#include "rules/ConnectionEditing.h"

using namespace corvane;

// A sample game in which map 5 is connected to these maps, by these arrows, and to no other.
static SampleGame Connected(const std::map<int, int>& arrows) {
  SampleGame game = MakeSampleGame();
  for (int to = 0; to < MapSlotCount; ++to)
    game.Tables.Connections(5, to) = arrows.contains(to) ? arrows.at(to) : NoConnection;
  return game;
}

TEST(MainWindow, ShowsTheArrowOfAConnectionAndAssignsTheOneThatIsPicked) {
  SampleGame game = Connected({{3, 0}, {9, 81}, {14, INT32_MIN}, {20, 12}});
  game.Maps.resize(20);
  Session session(game);
  Form1& main = session.Main;
  EXPECT_TRUE(session.Told().empty() && main.lstMaps.ListIndex() == 0);
  const ConnectionTable before = MapConnections;
  PickRow(main.lstMaps, 5);
  const std::tuple<int, std::string, int> rows[] = {
      {1, MapRow(9), -1}, {0, MapRow(3), 0}, {2, MapRow(14), -1}, {0, MapRow(3), 0}, {3, "", -1}};
  for (const auto& [row, map, arrow] : rows) {
    PickRow(main.lstConnections, row);
    EXPECT_EQ(main.lstConnections.Text(), map) << row;
    EXPECT_EQ(main.cboArrows.ListIndex(), arrow) << row;
    const std::string left = arrow < 0 ? "" : std::to_string(StrArrow[arrow].Left);
    EXPECT_EQ(main.txtArrowLeft.Text(), left) << row;
  }
  Press(main.cmdDeleteConnection);  // map 20 has no row
  PickRow(main.cboArrows, 2);       // shows the arrow, and assigns nothing
  EXPECT_EQ(main.txtArrowTop.Text(), std::to_string(StrArrow[2].Top));
  EXPECT_TRUE(MapConnections == before && session.Told().empty() && !TablesDirty);
  PickRow(main.lstConnections, 2);
  PickRow(main.cboArrows, 0);
  EXPECT_TRUE(MapConnections(5, 14) == 0 && TablesDirty && !main.SettingArrow);
}

TEST(MainWindow, ConnectionsAreDeletedOnRequestAndAddedUpToNine) {
  Session session(Connected({{3, 11}, {9, 12}, {20, 13}}));
  Form1& main = session.Main;
  PickRow(main.lstMaps, 5);
  PickRow(main.lstConnections, 1);
  session.Answer = MessageAnswer::No;
  Press(main.cmdDeleteConnection);
  session.Answer = MessageAnswer::Yes;
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(session.Told(), Texts(2, ConnectionDeletePrompt(MapRow(5), MapRow(9))));
  EXPECT_TRUE(MapConnections(5, 9) == NoConnection && main.cboArrows.Text() == "011");
  Press(main.cmdDeleteConnection);
  Press(main.cmdDeleteConnection);
  EXPECT_EQ(session.Told().back(), "Error: This map has no connection defined!");
  EXPECT_FALSE(main.cmdDeleteConnection.Enabled());
  EXPECT_TRUE(main.Focused == &main.cmdEditBTD && main.cboArrows.Text() == "013");
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    for (const int to : {-1, 5, 42}) {
      EXPECT_TRUE(dialog.IsOpen());
      PickRow(dialog.cboLstMaps, to);
      Press(dialog.OKButton);
    }
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_EQ(session.Told(),
            (Texts{"Please choose a destination map.", "You can not link a map to itself."}));
  EXPECT_TRUE(main.lstConnections.Text() == MapRow(42) && main.cboArrows.Text() == "000");
  EXPECT_FALSE(TablesDirty);
  for (int to = 6; to < 14; ++to) MapConnections(5, to) = to;
  session.Within<dlgAddConnection>(main.cmdAddConnection, [](dlgAddConnection& dialog) {
    PickRow(dialog.cboLstMaps, 0);
    Press(dialog.CancelButton);
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_EQ(main.lstConnections.ListCount(), 9);
  session.InDialog = [](Form&) { ADD_FAILURE(); };
  Press(main.cmdAddConnection);
  EXPECT_EQ(session.Told(),
            Texts{"You already have the maximum number of connections for one map."});
}

TEST(MainWindow, EveryFieldShowsAndEntersItsOwnNumberForTheRowThatStood) {
  SampleGame game = MakeSampleGame();
  game.Tables.Tiles[6].Left = -44;
  Session session(game);
  Form1& main = session.Main;
  PickRow(main.lstMaps, 6);
  EXPECT_TRUE(MoveFocus(main.txtMapLeft));
  PickRow(main.lstMaps, 7);  // a negative number cannot be left
  EXPECT_TRUE(main.lstMaps.ListIndex() == 6 && main.Focused == &main.txtMapLeft);
  EXPECT_TRUE(main.txtMapLeft.SelectionSet && main.txtMapLeft.SelLength == 3);
  EXPECT_EQ(session.Beeps, 1);
  StrRect& arrow = StrArrow[main.cboArrows.ListIndex()];
  const std::vector<TextBox*> boxes = {
      &main.txtMapLeft,    &main.txtMapTop,     &main.txtMapWidth,  &main.txtMapHeight,
      &main.txtMapCenterX, &main.txtMapCenterY, &main.txtArrowLeft, &main.txtArrowTop,
      &main.txtArrowWidth, &main.txtArrowHeight};
  int number = 1000;
  for (TextBox* box : boxes) {
    Session::Type(*box, "0" + std::to_string(++number));
    TablesDirty = false;
    PickRow(main.lstMaps, 7);
    EXPECT_TRUE(TablesDirty) << box->Name;
    PickRow(main.lstMaps, 6);
  }
  number = 1000;
  for (const TextBox* box : boxes) EXPECT_EQ(box->Text(), std::to_string(++number)) << box->Name;
  const StrRect& tile = StrMap[6];
  EXPECT_EQ(tile, (StrRect{tile.Word0, tile.Word1, tile.Word2, 1001, 1002, 1003, 1004}));
  EXPECT_EQ(MapHotspots[6], (Hotspot{1005, 1006}));
  EXPECT_EQ(arrow, (StrRect{arrow.Word0, arrow.Word1, arrow.Word2, 1007, 1008, 1009, 1010}));
}

TEST(MainWindow, WithoutMapsOnlyHelpIsThereAndOneMessageSaysSo) {
  Session session(GameFiles(MakeSampleGame()));
  Form1& main = session.Main;
  EXPECT_EQ(main.Focused, &main.lstMaps);
  DoubleClick(main.lstMaps, 0);
  EXPECT_TRUE(session.Told().empty());
  session.OpenFile("CC4.EXE");
  std::filesystem::remove_all(session.Folder.Path / "Maps");
  TablesDirty = true;
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(main.lstMaps.ListCount() + main.lstConnections.ListCount(), 0);
  EXPECT_EQ(main.txtMapLeft.Text() + main.txtArrowWidth.Text(), "");
  EXPECT_FALSE(main.cmdAddConnection.Enabled() || main.cmdDeleteConnection.Enabled());
  Press(main.cmdEditBTD);
  main.lstMaps_Click();
  main.cmdDelete_Click();
  Session::Type(main.txtMapLeft, "5");
  PressKey(main, Key::Tab);
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.Told(), Texts{"Error: No map files were found in the folder " + GamePath +
                                  Separator + "Maps."});
}

TEST(MainWindow, MapSlotsAreAddedAndCleared) {
  SampleGame game = MakeSampleGame();
  game.Maps.resize(1);
  Session session(game);
  Form1& main = session.Main;
  for (const Button* hidden : {&main.cmdNewBTD, &main.cmdDelete})
    EXPECT_FALSE(hidden->Enabled() || hidden->Visible());
  std::string edited;
  session.InDialog = [&](Form&) { edited = main.lstMaps.Text(); };
  main.cmdNewBTD.Click();
  EXPECT_EQ(edited, "001");
  EXPECT_EQ(main.lstMaps.ListCount(), 1);  // its file was not saved
  MapRows.resize(41);
  main.cmdNewBTD.Click();
  EXPECT_EQ(session.Told(), Texts{"You already have the maximum number of maps!"});
  const std::string path = "Maps/" + game.Maps[0].FileName;
  session.Answer = MessageAnswer::No;
  main.cmdDelete.Click();
  EXPECT_EQ(session.Told().size(), 1U);
  session.Answer = MessageAnswer::Yes;
  FailFrom(0);
  main.cmdDelete.Click();
  InjectedFault = nullptr;
  EXPECT_NE(session.Told().at(1).find("could not be saved"), std::string::npos);
  EXPECT_EQ(main.lstMaps.Text(), "000 " + game.Maps[0].FileName);
  main.cmdDelete.Click();
  EXPECT_EQ(session.Told().at(1), "Error: This map has no connection defined!");
  EXPECT_EQ(main.lstMaps.Text() + main.txtMapWidth.Text(), "000 UNUSED0");
  EXPECT_TRUE(session.Folder.Get(path) == BtdBytes({"", {BtdMagic, 0}, {}, {}, game.Maps[0].Rest}));
}
