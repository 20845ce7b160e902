#include <gtest/gtest.h>

#include "HelpTexts.h"
#include "MapCatalogue.h"
#include "Session.h"
#include "StrategicTables.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

// Maps 0 and 1 know nothing of each other, but map 0 has an exit to map 1 in VL slot 0.
SampleGame MissingLink() {
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

void Connect(Session& session, int from, int to, int arrow) {
  Form1& main = session.Main;
  PickRow(main.lstMaps, from);
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    EXPECT_EQ(dialog.cboLstMaps.ListIndex(), -1);
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
  for (int row = 0; row < main.lstConnections.ListCount(); ++row) {
    if (main.lstConnections.List(row) == MapRows[static_cast<std::size_t>(to)]) {
      PickRow(main.lstConnections, row);
    }
  }
  EXPECT_EQ(main.cboArrows.Text(), "000");
  PickRow(main.cboArrows, arrow);
}

TEST(WholeSession, ABrokenNetworkIsMendedSavedAndOpenedAgain) {
  Session session(MissingLink());
  Form1& main = session.Main;
  session.OpenFile("CC4.EXE");
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Told(), Texts{"Error: \r\nNo STRARROW defined for BTD link from " + MapRows[0] +
                                  " to map " + MapRows[1] + " via VL0"});
  Connect(session, 0, 1, 79);
  Connect(session, 1, 0, 80);
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Told(), Texts{"Error: \r\nNo reciprocating BTD link defined for connection "
                                  "from map " +
                                  MapRows[0] + " to map " + MapRows[1]});
  PickRow(main.lstMaps, 1);
  session.Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, 9);
    PickRow(dialog.cboVLType, 1);
    PickRow(dialog.cboVLDest, 42);
    PickRow(dialog.cboVLDest, 0);
    Session::Type(dialog.txtVLName, "To the west");
    Press(dialog.OKButton);
  });
  EXPECT_TRUE(session.Told()[0].starts_with("Replace existing "));
  session.Menu(main.mnuFileSave);
  EXPECT_TRUE(session.Told()[0].starts_with("This will directly modify"));
  EXPECT_FALSE(TablesDirty);
  const std::string saved = session.Folder.Get("CC4.EXE");
  SampleTables wanted = MissingLink().Tables;
  wanted.Connections(0, 1) = 79;
  wanted.Connections(1, 0) = 80;
  EXPECT_EQ(saved, GameExeBytes(wanted));
  ResetTables();
  session.OpenFile("CC4.EXE");
  EXPECT_EQ(MapConnections, wanted.Connections);
  EXPECT_EQ(VLDest(1, 9), 0);
  session.Menu(main.mnuFileSave);
  EXPECT_EQ(session.Folder.Get("CC4.EXE"), saved);
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
  bool shown = false;
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection& dialog) {
    PickRow(dialog.cboLstMaps, 42);
    Press(dialog.OKButton);
  });
  EXPECT_EQ(main.lstConnections.ListCount(), 9);
  EXPECT_EQ(main.lstConnections.ListIndex(), 0);
  EXPECT_FALSE(TablesDirty);
  session.Within<dlgAddConnection>(main.cmdAddConnection, [&](dlgAddConnection&) { shown = true; });
  EXPECT_EQ(session.Told(),
            Texts{"You already have the maximum number of connections for one map."});
  EXPECT_FALSE(shown);
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
    EXPECT_EQ(main.lstMaps.Text(), "040");
    EXPECT_EQ(dialog.lstVLs.Text(), "UNUSED");
    Session::Type(dialog.txtFileName, "Added");
    Press(dialog.OKButton);
  });
  EXPECT_EQ(main.lstMaps.List(40), "040 Added.btd");
  session.Told();
  Press(main.cmdNewBTD);
  EXPECT_EQ(session.Told(), Texts{"You already have the maximum number of maps!"});

  const std::string name = game.Maps[6].FileName;
  PickRow(main.lstMaps, 6);
  session.Told();
  Press(main.cmdDelete);
  EXPECT_EQ(session.Told(),
            (Texts{"Are you positive you want to delete this map? NOTE: All data associated with "
                   "this map, along with all connections to this map from all other maps, will be "
                   "deleted.  The contents of the BTD file will also be deleted.",
                   "Error: This map has no connection defined!"}));
  EXPECT_EQ(main.lstMaps.Text(), "006 UNUSED");
  EXPECT_EQ(main.txtMapWidth.Text(), "0");
  SampleMap cleared{name, {BtdMagic, 6}, {}, {}, game.Maps[6].Rest};
  EXPECT_EQ(session.Folder.Get("Maps/" + name), BtdBytes(cleared));
  main.ShowCatalogue();
  EXPECT_EQ(main.lstMaps.List(6), "006 " + name);
  for (Button* button : {&main.cmdNewBTD, &main.cmdDelete}) button->SetVisible(false);
}

TEST(WholeSession, HelpIsThereBeforeAnythingIsOpen) {
  Session session;
  session.Menu(session.Main.mnuHelpAbout);
  session.Menu(session.Main.mnuHelpBasic);
  ASSERT_EQ(session.Messages.size(), 2U);
  EXPECT_EQ(session.Messages[0], "Corvane for Close Combat 4");
  EXPECT_EQ(session.Messages[1].size(), std::string(BasicInstructions).size());
  EXPECT_NE(session.Messages[1].find("CC4 are are related, seek"), std::string::npos);
  EXPECT_NE(session.Messages[1].find("modify  CC4.EXE with this tool! \r\n\r\nBefore"),
            std::string::npos);
}

}  // namespace
}  // namespace corvane
