#include "Session.h"
#include "base/FolderScan.h"
#include "rules/ConnectionEditing.h"

using namespace corvane;

// A sample game in which map 5 has exactly these connections, given as map and arrow.
static SampleGame Connected(const std::map<int, int>& arrows) {
  SampleGame game = MakeSampleGame();
  for (int to = 0; to < MapSlotCount; ++to)
    game.Tables.Connections(5, to) = arrows.contains(to) ? arrows.at(to) : NoConnection;
  return game;
}

static const Texts NoConnectionLeft{"Error: This map has no connection defined!"};

// Connects map 5 by a valid arrow, by numbers that are not arrows, and to a map without a row.
struct OddConnections : testing::Test {
  OddConnections() { PickRow(main.lstMaps, 5); }
  static SampleGame Game() {
    SampleGame game = Connected({{3, 0}, {9, 81}, {14, INT32_MIN}, {20, 12}});
    game.Maps.resize(20);
    return game;
  }
  Session session{Game()};
  Form1& main = session.Main;
  const ConnectionTable Before = MapConnections;
};

TEST_F(OddConnections, ShowTheirArrowIfThereIsOne) {
  const std::tuple<int, std::string, int> rows[] = {
      {1, MapRow(9), -1}, {0, MapRow(3), 0}, {2, MapRow(14), -1}, {0, MapRow(3), 0}, {3, "", -1}};
  for (const auto& [row, map, arrow] : rows) {
    PickRow(main.lstConnections, row);
    EXPECT_EQ(main.lstConnections.Text(), map) << row;
    EXPECT_EQ(main.cboArrows.ListIndex(), arrow) << row;
    const std::string left = arrow < 0 ? "" : std::to_string(StrArrow[arrow].Left);
    EXPECT_EQ(main.txtArrowLeft.Text(), left) << row;
  }
  EXPECT_EQ(MapConnections, Before);
  EXPECT_FALSE(TablesDirty);
}

TEST_F(OddConnections, ToAMapWithoutARowAreReadOnly) {
  PickRow(main.lstConnections, 3);
  Press(main.cmdDeleteConnection);
  PickRow(main.cboArrows, 2);
  EXPECT_EQ(main.txtArrowTop.Text(), std::to_string(StrArrow[2].Top));
  EXPECT_EQ(MapConnections, Before);
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.TakeMessages(), Texts());
  PickRow(main.lstConnections, 2);
  PickRow(main.cboArrows, 0);
  EXPECT_EQ(MapConnections(5, 14), 0);
  EXPECT_TRUE(TablesDirty);
}

struct Connections : testing::Test {
  Connections() { PickRow(main.lstMaps, 5); }
  // Presses OK in Add Connection for each of these rows, then closes it.
  void Add(const std::vector<int>& rows) {
    session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
      for (const int row : rows) {
        EXPECT_TRUE(dialog.IsOpen()) << row;
        PickRow(dialog.cboLstMaps, row);
        Press(dialog.OKButton);
      }
      Closed = !dialog.IsOpen();
      if (!Closed) Press(dialog.CancelButton);
      EXPECT_FALSE(dialog.IsOpen());
    });
  }
  Session session{Connected({{3, 11}, {9, 12}, {20, 13}})};
  Form1& main = session.Main;
  bool Closed = false;  // by OK
};

TEST_F(Connections, AreDeletedOnYesOnly) {
  PickRow(main.lstConnections, 1);
  for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
    session.Answer = answer;
    EXPECT_EQ(MapConnections(5, 9), 12);
    Press(main.cmdDeleteConnection);
    EXPECT_EQ(session.TakeMessages(), Texts{ConnectionDeletePrompt(MapRow(5), MapRow(9))});
  }
  EXPECT_EQ(MapConnections(5, 9), NoConnection);
  EXPECT_EQ(main.cboArrows.Text(), "011");  // of the first row
  EXPECT_FALSE(TablesDirty);
}

TEST_F(Connections, CannotBeDeletedOnceNoneAreLeft) {
  for (int left = 3; left > 0; --left) Press(main.cmdDeleteConnection);
  EXPECT_EQ(Texts{session.TakeMessages().back()}, NoConnectionLeft);
  EXPECT_EQ(main.lstConnections.ListCount(), 0);
  EXPECT_FALSE(main.cmdDeleteConnection.Enabled());
  EXPECT_TRUE(main.cmdAddConnection.Enabled());
  EXPECT_EQ(main.Focused, &main.cmdEditBTD);
  EXPECT_EQ(main.cboArrows.Text(), "013");  // unchanged
  PickRow(main.lstMaps, 6);
  EXPECT_TRUE(main.cmdDeleteConnection.Enabled());
}

TEST_F(Connections, AreAddedToAnyMapButTheSameOne) {
  Add({-1, 5, 0});
  EXPECT_TRUE(Closed);
  EXPECT_EQ(session.TakeMessages(),
            (Texts{"Please choose a destination map.", "You can not link a map to itself."}));
  EXPECT_EQ(main.lstConnections.Text(), MapRow(0));
  EXPECT_EQ(main.cboArrows.Text(), "000");
  EXPECT_EQ(MapConnections(0, 5), MakeSampleGame().Tables.Connections(0, 5));
  EXPECT_FALSE(TablesDirty);
}

TEST_F(Connections, AreReloadedAfterACancel) {
  MapConnections(5, 0) = 80;
  Add({});
  EXPECT_FALSE(Closed);
  EXPECT_EQ(main.lstConnections.ListCount(), 4);
  EXPECT_EQ(main.cboArrows.Text(), "080");
}

TEST_F(Connections, AreAddedUpToNine) {
  for (int to = 21; to < 26; ++to) MapConnections(5, to) = to;
  main.lstMaps_Click();
  EXPECT_EQ(main.lstConnections.ListCount(), 8);
  Add({42});
  EXPECT_EQ(main.lstConnections.ListCount(), 9);
  session.InDialog = [](Form&) { ADD_FAILURE(); };
  Press(main.cmdAddConnection);
  EXPECT_EQ(session.TakeMessages(),
            Texts{"You already have the maximum number of connections for one map."});
}

struct Fields : testing::Test {
  Fields() { PickRow(main.lstMaps, 6); }
  Session session;
  Form1& main = session.Main;
  const std::vector<TextBox*> Boxes = {
      &main.txtMapLeft,    &main.txtMapTop,     &main.txtMapWidth,  &main.txtMapHeight,
      &main.txtMapCenterX, &main.txtMapCenterY, &main.txtArrowLeft, &main.txtArrowTop,
      &main.txtArrowWidth, &main.txtArrowHeight};
};

TEST_F(Fields, EnterTheirNumberForThePreviousRow) {
  StrRect& arrow = StrArrow[main.cboArrows.ListIndex()];
  for (int box = 0; box < 10; ++box) {
    Session::Type(*Boxes[std::size_t(box)], "0" + std::to_string(1001 + box));
    TablesDirty = false;
    PickRow(main.lstMaps, 7);
    EXPECT_TRUE(TablesDirty) << box;
    PickRow(main.lstMaps, 6);
  }
  const StrRect& tile = StrMap[6];
  EXPECT_EQ(tile, (StrRect{tile.Word0, tile.Word1, tile.Word2, 1001, 1002, 1003, 1004}));
  EXPECT_EQ(MapHotspots[6], (Hotspot{1005, 1006}));
  EXPECT_EQ(arrow, (StrRect{arrow.Word0, arrow.Word1, arrow.Word2, 1007, 1008, 1009, 1010}));
}

TEST_F(Fields, ShowTheirOwnNumber) {
  StrMap[7] = {.Left = -1, .Top = 2, .Width = 3, .Height = 4};
  MapHotspots[7] = {5, 6};
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow)
    StrArrow[arrow] = {.Left = 7, .Top = 8, .Width = 9, .Height = INT32_MIN};
  PickRow(main.lstMaps, 7);
  Texts shown;
  for (const TextBox* box : Boxes) shown.push_back(box->Text());
  EXPECT_EQ(shown, (Texts{"-1", "2", "3", "4", "5", "6", "7", "8", "9", "-2147483648"}));
  EXPECT_FALSE(TablesDirty);
}

TEST_F(Fields, CannotBeLeftWithANegativeNumber) {
  main.txtMapLeft.SetText("-44");
  EXPECT_TRUE(MoveFocus(main.txtMapLeft));
  PickRow(main.lstMaps, 7);
  EXPECT_EQ(main.lstMaps.ListIndex(), 6);
  EXPECT_EQ(main.Focused, &main.txtMapLeft);
  EXPECT_TRUE(main.txtMapLeft.SelectionSet);
  EXPECT_EQ(main.txtMapLeft.SelStart, 0);
  EXPECT_EQ(main.txtMapLeft.SelLength, 3);
  EXPECT_EQ(session.Beeps, 1);
}

TEST_F(Fields, RefuseSeveralLines) {
  const std::pair<const char*, std::int32_t> rows[] = {
      {"1\n2", StrMap[6].Left}, {"12\r\n", 12}};  // one line, copied entirely
  for (const auto& [typed, stored] : rows) {
    Session::Type(main.txtMapLeft, typed);
    PressKey(main, Key::Tab);
    EXPECT_EQ(StrMap[6].Left, stored) << typed;
  }
  EXPECT_EQ(session.Beeps, 1);
}

TEST(MainWindow, StartsEmptyWithOnlyHelpAvailable) {
  Session session(GameFiles(MakeSampleGame()));
  Form1& main = session.Main;
  PressKey(main, {'S', {.Ctrl = true}});
  EXPECT_FALSE(main.mnuFileSave.Enabled);
  EXPECT_FALSE(main.mnuFileSavePatch.Enabled);
  EXPECT_EQ(main.Focused, &main.lstMaps);
  for (const Button* button : {&main.cmdNewBTD, &main.cmdDelete, &main.cmdEditBTD,
                               &main.cmdAddConnection, &main.cmdDeleteConnection})
    EXPECT_FALSE(button->Enabled()) << button->Name;
  EXPECT_FALSE(main.cmdNewBTD.Visible());
  EXPECT_FALSE(main.cmdDelete.Visible());
  DoubleClick(main.lstMaps, 0);
  main.cmdDeleteConnection_Click();
  EXPECT_EQ(session.TakeMessages(), Texts());
}

TEST(NoMaps, AreReportedOnceAndShowNothing) {
  Session session;
  Form1& main = session.Main;
  std::filesystem::remove_all(session.Folder.Path / "Maps");
  TablesDirty = true;
  session.OpenFile("CC4.EXE");
  const std::string message =
      "Error: No map files were found in the folder " + GamePath + Separator + "Maps.";
  EXPECT_EQ(session.TakeMessages(), Texts{message});
  EXPECT_EQ(main.lstMaps.ListCount(), 0);
  EXPECT_EQ(main.lstConnections.ListCount(), 0);
  EXPECT_EQ(main.txtMapLeft.Text(), "");
  EXPECT_EQ(main.txtArrowWidth.Text(), "");
  EXPECT_FALSE(main.cmdAddConnection.Enabled());
  EXPECT_FALSE(main.cmdDeleteConnection.Enabled());
  EXPECT_FALSE(TablesDirty);
  Press(main.cmdEditBTD);
  main.lstMaps_Click();
  main.cmdDelete_Click();
  Session::Type(main.txtMapLeft, "5");
  PressKey(main, Key::Tab);
  EXPECT_NE(main.Focused, &main.txtMapLeft);
  EXPECT_FALSE(TablesDirty);
  EXPECT_EQ(session.TakeMessages(), Texts());
  session.Folder.Put("Maps", "a file");
  main.ShowCatalogue();
  const std::string reason = Separator == '/' ? " " : "";  // Windows finds nothing wrong
  EXPECT_TRUE(session.Messages.at(0).starts_with(message + reason)) << session.Messages.at(0);
}

TEST(MainWindow, NamesEachUnreadableMapFile) {
  Session session;
  const std::string path = GamePath + Separator + "Maps" + Separator + "Merlaut.btd";
  FailFrom(0, FileStep::Read);
  session.Main.ShowCatalogue();
  ASSERT_EQ(session.Messages.size(), 1U);
  const std::string& message = session.Messages[0];
  EXPECT_TRUE(message.starts_with("Error: Some map files could not be read.")) << message;
  EXPECT_NE(message.find("\r\n" + path + " could not be read: "), message.npos) << message;
  EXPECT_EQ(session.Main.lstMaps.ListCount(), 0);
}

struct MapSlots : testing::Test {
  static SampleGame OneMap() {
    SampleGame game = MakeSampleGame();
    game.Maps.resize(1);
    return game;
  }
  const SampleGame Game = OneMap();
  Session session{Game};
  Form1& main = session.Main;
  const std::string File = "Maps/" + Game.Maps[0].FileName;
};

TEST_F(MapSlots, AreAddedAndKeptOnlyWithAFile) {
  std::string edited;
  session.InDialog = [&](Form&) { edited = main.lstMaps.Text(); };
  main.cmdNewBTD.Click();
  EXPECT_EQ(edited, "001");
  EXPECT_EQ(main.lstMaps.ListCount(), 1);
}

TEST_F(MapSlots, AreClearedOnYesUnlessTheFileCannotBeCleared) {
  const std::string row = main.lstMaps.Text(), before = session.Folder.Get(File);
  session.Answer = MessageAnswer::No;
  main.cmdDelete.Click();
  EXPECT_EQ(session.TakeMessages().size(), 1U);
  session.Answer = MessageAnswer::Yes;
  FailFrom(0);
  main.cmdDelete.Click();
  InjectedFault = nullptr;
  EXPECT_NE(session.TakeMessages().at(1).find("could not be saved"), std::string::npos);
  EXPECT_EQ(main.lstMaps.Text(), row);
  EXPECT_EQ(session.Folder.Get(File), before);
  main.cmdDelete.Click();
  EXPECT_EQ(Texts{session.TakeMessages().at(1)}, NoConnectionLeft);
  EXPECT_EQ(main.lstMaps.Text(), "000 UNUSED");
  EXPECT_EQ(main.txtMapWidth.Text(), "0");
  EXPECT_EQ(session.Folder.Get(File), BtdBytes({"", {BtdMagic, 0}, {}, {}, Game.Maps[0].Rest}));
  EXPECT_FALSE(TablesDirty);
}
