#include "HelpTexts.h"
#include "Session.h"

using namespace corvane;
using Texts = std::vector<std::string>;

// Maps 0 and 1 know nothing of each other, but map 0 has an exit to map 1 in VL slot 0.
static SampleGame MissingLink() {
  SampleGame game = MakeSampleGame();
  game.Tables.Connections(0, 1) = game.Tables.Connections(1, 0) = NoConnection;
  for (VictoryLocation& vl : game.Maps[1].VLs) {
    if (vl.Kind == KindExit && vl.Destination == 0) vl.Kind = KindUnused;
  }
  for (VictoryLocation& vl : game.Maps[0].VLs) {
    if (vl.Kind == KindExit && vl.Destination == 1) vl.Kind = KindMinor;
  }
  game.Maps[0].VLs[0].Kind = KindExit;
  game.Maps[0].VLs[0].Destination = 1;
  return game;
}

static void Connect(Session& session, int from, int to, int arrow) {
  Form1& main = session.Main;
  PickRow(main.lstMaps, from);
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    Press(dialog.OKButton);
    PickRow(dialog.cboLstMaps, from);
    Press(dialog.OKButton);
    EXPECT_TRUE(dialog.IsOpen());
    PickRow(dialog.cboLstMaps, to);
    Press(dialog.OKButton);
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_EQ(session.Told(),
            (Texts{"Please choose a destination map.", "You can not link a map to itself."}));
  int row = 0;
  while (main.lstConnections.List(row) != MapRow(to)) ++row;
  PickRow(main.lstConnections, row);
  EXPECT_EQ(main.cboArrows.Text(), "000");
  PickRow(main.cboArrows, arrow);
}

TEST(WholeSession, ABrokenNetworkIsMendedSavedAndOpenedAgain) {
  Session session(MissingLink());
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Told(), Texts{"Error: \r\nNo STRARROW defined for BTD link from " + MapRow(0) +
                                  " to map " + MapRow(1) + " via VL0"});
  Connect(session, 0, 1, 79);
  Connect(session, 1, 0, 80);
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Told(), Texts{"Error: \r\nNo reciprocating BTD link defined for connection "
                                  "from map " +
                                  MapRow(0) + " to map " + MapRow(1)});
  PickRow(main.lstMaps, 1);
  session.Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, 9);
    PickRow(dialog.cboVLType, 1);
    PickRow(dialog.cboVLDest, 42);
    PickRow(dialog.cboVLDest, 0);
    Press(dialog.OKButton);
  });
  session.Told();
  session.Menu(main.mnuFileSave);
  EXPECT_TRUE(session.Told().at(0).starts_with("This will directly modify") && !TablesDirty);
  const std::string saved = session.Folder.Get("CC4.EXE");
  SampleTables wanted = MissingLink().Tables;
  wanted.Connections(0, 1) = 79;
  wanted.Connections(1, 0) = 80;
  EXPECT_TRUE(saved == GameExeBytes(wanted));
  ResetTables();
  session.OpenFile("CC4.EXE");
  EXPECT_TRUE(MapConnections == wanted.Connections && VLDest(1, 9) == 0);
  session.Menu(main.mnuFileSave);
  EXPECT_TRUE(session.Folder.Get("CC4.EXE") == saved);
}

TEST(WholeSession, AddConnectionStopsAtNineRows) {
  SampleGame game = MakeSampleGame();
  for (int to = 0; to < MapSlotCount; ++to) {
    game.Tables.Connections(2, to) = to > 2 && to <= 10 ? 5 : NoConnection;
  }
  Session session(game);
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  PickRow(main.lstMaps, 2);
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    PickRow(dialog.cboLstMaps, 42);
    Press(dialog.OKButton);
  });
  EXPECT_EQ(main.lstConnections.ListCount(), 9);
  EXPECT_TRUE(main.lstConnections.ListIndex() == 0 && !TablesDirty);
  session.Within<dlgAddConnection>(main.cmdAddConnection, [](auto&) { ADD_FAILURE(); });
  EXPECT_EQ(session.Told(),
            Texts{"You already have the maximum number of connections for one map."});
}

TEST(WholeSession, MapSlotsAreAddedAndCleared) {
  SampleGame game = MakeSampleGame();
  game.Maps.resize(40);
  Session session(game);
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  for (Button* hidden : {&main.cmdNewBTD, &main.cmdDelete}) {
    EXPECT_FALSE(hidden->Enabled() || hidden->Visible());
    hidden->SetEnabled(true);
    hidden->SetVisible(true);
  }
  session.Within<dlgEditBTD>(main.cmdNewBTD, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(main.lstMaps.Text() + dialog.lstVLs.Text(), "040UNUSED");
    Session::Type(dialog.txtFileName, "Added");
    Press(dialog.OKButton);
  });
  EXPECT_EQ(main.lstMaps.List(40), "040 Added.btd");
  session.Told();
  Press(main.cmdNewBTD);
  EXPECT_EQ(session.Told(), Texts{"You already have the maximum number of maps!"});

  const std::string name = game.Maps[6].FileName;
  PickRow(main.lstMaps, 6);
  Press(main.cmdDelete);
  EXPECT_EQ(session.Told(),
            (Texts{"Are you positive you want to delete this map? NOTE: All data associated with "
                   "this map, along with all connections to this map from all other maps, will be "
                   "deleted.  The contents of the BTD file will also be deleted.",
                   "Error: This map has no connection defined!"}));
  EXPECT_EQ(main.lstMaps.Text() + main.txtMapWidth.Text(), "006 UNUSED0");
  const SampleMap cleared{name, {BtdMagic, 6}, {}, {}, game.Maps[6].Rest};
  EXPECT_TRUE(session.Folder.Get("Maps/" + name) == BtdBytes(cleared));
  main.ShowCatalogue();
  EXPECT_EQ(main.lstMaps.List(6), "006 " + name);
}

TEST(WholeSession, HelpIsThereBeforeAnythingIsOpen) {
  Session session;
  session.Menu(session.Main.mnuHelpAbout);
  session.Menu(session.Main.mnuHelpBasic);
  EXPECT_EQ(session.Told(), (Texts{"Corvane for Close Combat 4", BasicInstructions}));
}
