#include <algorithm>
#include <cstring>

#include "Session.h"
#include "base/FolderScan.h"

using namespace corvane;

// A game whose map 4 has a file of which no two neighbouring bytes are alike.
static SampleGame OddBytes() {
  SampleGame game = MakeSampleGame();
  SampleMap& map = game.Maps[4];
  map.FileName = "Bytes.BTD";
  unsigned char value = 1;
  const auto next = [&] { return static_cast<char>(value = value % 255 + 1); };
  std::generate_n(map.Text.AlliedBrief.begin(), 2 * 4096, next);
  map.Text.AxisBrief[1000] = '\0';
  std::memcpy(map.Text.BaseName.data(), "bytes\0old", 9);
  const std::vector<std::pair<std::int32_t, std::uint8_t>> kindsAndDestinations = {
      {77, 9}, {0, 6}, {100, 7}, {50, 8}, {50, 254}, {50, 43}, {50, 99}, {9, 1}, {0, 5}, {0, 4}};
  std::size_t vl = 0;
  for (const auto& [kind, destination] : kindsAndDestinations) {
    map.VLs[vl] = {value, value, {value, value}, VLKind{kind},
                   {},    value, destination,    {value, value}};
    std::ranges::generate_n(map.VLs[vl++].Name.begin(), 20, next);
  }
  return game;
}

struct EditMapBTD : testing::Test {
  void Edit(const std::function<void(dlgEditBTD&)>& user) {
    bool opened = false;
    session.InDialog = [&](Form& form) {
      opened = true;
      user(static_cast<dlgEditBTD&>(form));
    };
    DoubleClick(session.Main.lstMaps, 4);
    EXPECT_TRUE(opened);
  }
  static VictoryLocation& Edited(int vl) { return dlgEditBTD::VLTable[std::size_t(vl)]; }
  [[nodiscard]] std::string File() const { return session.Folder.Get("Maps/Bytes.BTD"); }
  Session session{OddBytes()};
  const std::string Before = File();
};

TEST_F(EditMapBTD, AnUntouchedSaveChangesOnlyTheseBytes) {
  Edit([](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.Focused, &dialog.OKButton);
    PressKey(dialog, Key::Enter);
  });
  std::string wanted = Before;
  wanted.replace(5 + 4, 4, 4, '\0');              // slot 0: a kind that has no row,
  wanted[5 + 29] = '\0';                          // the destination of what is no exit
  wanted.replace(325 + 6, 3, 3, '\0');            // behind the text of the base name
  wanted.replace(4430 + 1000, 3096, 3096, '\0');  // and of the briefing
  EXPECT_TRUE(File() == wanted);
  const std::string path = GamePath + Separator + "Maps" + Separator + "Bytes.BTD";
  EXPECT_EQ(session.Told(), Texts{"Replace existing " + path + "?"});
  EXPECT_TRUE(VLDest(4, 0) == NotAnExit && VLDest(4, 5) == 43 && !TablesDirty);
}

TEST_F(EditMapBTD, SelectingASlotStoresWhatItShows) {
  Edit([](dlgEditBTD& dialog) {
    // What the rows of type and destination show, and the destination stored, slot after slot; of
    // two slots not in use the second shows nothing new, so nothing is stored.
    const std::tuple<const char*, std::string, int> slots[] = {
        {"NONE", "", 0},
        {"NONE", "", 6},
        {"Minor Objective", "", 0},
        {"Exit Location", MapRow(8), 8},
        {"Exit Location", "254 OFF MAP", 254},
        {"Exit Location", "254 OFF MAP", 254},
        {"Exit Location", "", 99},
        {"NONE", "", 0},
        {"NONE", "", 5},
        {"NONE", "", 4}};
    int slot = 0;
    for (const auto& [type, shown, destination] : slots) {
      PickRow(dialog.lstVLs, slot);
      EXPECT_EQ(dialog.cboVLType.Text(), type) << slot;
      EXPECT_EQ(dialog.cboVLDest.Text(), shown) << slot;
      EXPECT_EQ(dialog.cboVLDest.Enabled(), dialog.cboVLType.ListIndex() == 1) << slot;
      EXPECT_EQ(dialog.txtVLY.Text(), dialog.txtVLX.Text()) << slot;
      EXPECT_EQ(Edited(slot++).Destination, destination) << slot;
    }
    EXPECT_EQ(FieldText(Edited(8).Name), "UNUSED");
    EXPECT_EQ(dialog.lstVLs.List(7), FieldText(Edited(7).Name));  // keeps its text
    PickRow(dialog.lstVLs, 6);
    PickRow(dialog.cboVLDest, 0);
    EXPECT_EQ(Edited(6).Destination, 0);
    PickRow(dialog.cboVLDest, 43);
    EXPECT_EQ(Edited(6).Destination, 254);
    PickRow(dialog.cboVLType, 2);
    PickRow(dialog.cboVLType, 1);
    EXPECT_EQ(Edited(6).Destination, 0);
    EXPECT_EQ(dialog.cboVLDest.Text(), "254 OFF MAP");  // until selected anew
    PickRow(dialog.lstVLs, 7);
    PickRow(dialog.lstVLs, 6);
    EXPECT_EQ(dialog.cboVLDest.Text(), MapRow(0));
    PressKey(dialog, Key::Escape);
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_TRUE(File() == Before);
}

TEST_F(EditMapBTD, TypingFollowsTheSlotAndLimits) {
  Edit([&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtVLName, "Ford \xD0\x96 0123456789012345");
    EXPECT_EQ(dialog.lstVLs.Text(), "Ford ? 012345678901");
    EXPECT_EQ(FieldText(Edited(0).Name), "Ford ? 012345678901");
    Session::Type(dialog.txtVLX, "123");
    PickRow(dialog.lstVLs, 1);
    EXPECT_EQ(Edited(0).TileX, 12);
    EXPECT_EQ(dialog.txtVLX.Text(), std::to_string(Edited(1).TileX));
    Session::Type(dialog.txtVLY, "1-");
    Press(dialog.CancelButton);
    PressKey(dialog, Key::Enter);
    EXPECT_TRUE(session.Beeps == 2 && dialog.IsOpen());
    Session::Type(dialog.txtVLY, "9");
    Press(dialog.cmdHelp);
    EXPECT_EQ(Edited(1).TileY, 9);
    Session::Type(dialog.txtFileName, "no/such");
    Press(dialog.OKButton);
    Session::Type(dialog.txtFileName, "BYTES");  // stands there in other letters
    session.Answer = MessageAnswer::No;
    Press(dialog.OKButton);
    const Texts told = session.Told();
    EXPECT_TRUE(told.at(0) == "Help text" && told.at(1).starts_with("Error: "));
    EXPECT_TRUE(told.at(2).ends_with(Separator + std::string("Bytes.BTD?")));
    EXPECT_TRUE(dialog.IsOpen() && !TablesDirty);
    Session::Type(dialog.txtFileName, "toolongname");
    EditText(dialog.txtAxisBrief, {3, 1, "\r\n"});
    Press(dialog.OKButton);
  });
  EXPECT_TRUE(File() == Before && session.Told().empty());  // a new name brings no question
  const std::string made = session.Folder.Get("Maps/toolongn.btd");
  EXPECT_TRUE(made.size() == BtdSize && made[4] == 4);
  EXPECT_TRUE(made.substr(325, 4105) == std::string("toolongn", 9) + Before.substr(334, 4096));
  EXPECT_TRUE(made.substr(4430, 1001) ==
              Before.substr(4430, 3) + "\r\n" + Before.substr(4434, 996));
}

TEST_F(EditMapBTD, RecordsOutliveTheWindow) {
  Edit([](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, 3);
    Session::Type(dialog.txtVLName, "Kept");
  });
  PickRow(session.Main.lstMaps, 4);
  std::filesystem::remove(session.File("Maps/Bytes.BTD"));
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.lstVLs.List(3) + dialog.txtFileName.Text(), "Keptbytes");
    EXPECT_EQ(dialog.cboVLDest.ListCount(), 44);
  });
  // Another map's records must not be written over a file that could not be read.
  FailFrom(1);
  session.InDialog = [](Form&) { ADD_FAILURE(); };
  Press(session.Main.cmdEditBTD);
  const Texts told = session.Told();  // of this file, then of them all
  EXPECT_TRUE(told.size() == 2 && told[0].find("could not be read") != std::string::npos);
}

TEST_F(EditMapBTD, TheEndOfTheSessionAsksAboutEdits) {
  const std::string question = "Quit without saving the changes to the BTD file?";
  const std::vector<void (*)(dlgEditBTD&)> edits = {
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLName, "Ford"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLX, "7"); },  // still being typed
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLY, "7"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtFileName, "new"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtAxisBrief, "new"); }};
  for (const auto& edit : edits) {
    Edit([&](dlgEditBTD& dialog) {
      EXPECT_TRUE(QueryEndSession());
      EXPECT_TRUE(session.Told().empty());
      edit(dialog);
      session.Answer = MessageAnswer::No;
      EXPECT_FALSE(QueryEndSession());
      EXPECT_TRUE(dialog.IsOpen());
      session.Answer = MessageAnswer::Yes;
      EXPECT_TRUE(QueryEndSession());
      EXPECT_EQ(session.Told(), Texts(2, question));
    });
    PickRow(session.Main.lstMaps, 3);
  }
}

TEST_F(EditMapBTD, AQuestionThatStandsKeepsTheDialogOpen) {
  Edit([&](dlgEditBTD& dialog) {
    TheDisplay.ShowMessage = [&](const std::string& text, MessageButtons) {
      EXPECT_TRUE(text.starts_with("Replace existing "));
      CloseWindow(dialog);
      CloseWindow(session.Main);
      DoubleClick(session.Main.lstMaps, 9);
      EXPECT_FALSE(QueryEndSession());
      EXPECT_TRUE(dialog.IsOpen());
      EXPECT_TRUE(session.Main.IsOpen());
      return MessageAnswer::Yes;
    };
    Press(dialog.OKButton);
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_EQ(File()[4], 4);  // the map number of the dialog's own map
}

TEST(NumericField, RefusesSeveralLines) {
  Session session;
  Form1& main = session.Main;
  const std::int32_t before = StrMap[0].Left;
  Session::Type(main.txtMapLeft, "1\n2");
  PressKey(main, Key::Tab);
  EXPECT_EQ(session.Beeps, 1);
  EXPECT_EQ(main.Focused, &main.txtMapLeft);
  EXPECT_EQ(StrMap[0].Left, before);
  Session::Type(main.txtMapLeft, "12\r\n");  // one line, copied whole
  PressKey(main, Key::Tab);
  EXPECT_EQ(StrMap[0].Left, 12);
}
