#include <algorithm>
#include <cstring>

#include "Session.h"
#include "base/FolderScan.h"

using namespace corvane;

// A game whose map 4 has a file in which adjacent bytes always differ.
static SampleGame OddBytes() {
  SampleGame game = MakeSampleGame();
  SampleMap& map = game.Maps[4];
  map.FileName = "Bytes.BTD";
  unsigned char value = 1;
  const auto next = [&] { return static_cast<char>(value = value % 255 + 1); };
  std::ranges::generate(map.Text.AlliedBrief, next);
  std::ranges::generate(map.Text.AxisBrief, next);
  map.Text.AxisBrief[1000] = '\0';
  std::memcpy(map.Text.BaseName.data(), "bytes\0old", 9);
  const std::vector<std::pair<std::int32_t, std::uint8_t>> kindsAndDestinations = {
      {77, 9}, {0, 6}, {100, 7}, {50, 8}, {50, 254}, {50, 43}, {50, 99}, {200, 1}, {0, 5}, {0, 4}};
  std::uint8_t slot = 0;
  for (const auto& [kind, destination] : kindsAndDestinations) {
    VictoryLocation& vl = map.VLs[slot];
    const auto y = static_cast<std::uint8_t>(200 + slot++);
    vl = {slot, y, {value, y}, VLKind{kind}, {}, value, destination, {y, value}};
    std::ranges::generate_n(vl.Name.begin(), 20, next);
  }
  return game;
}

struct EditMapBTD : testing::Test {
  void Edit(const std::function<void(dlgEditBTD&)>& user) {
    PickRow(session.Main.lstMaps, 4);
    session.Within<dlgEditBTD>(session.Main.cmdEditBTD, user);
  }
  static VictoryLocation& Edited(int vl) { return dlgEditBTD::VLTable[std::size_t(vl)]; }
  // The spelling of Bytes.BTD in the question: as on disk, or as typed if the system is
  // case-insensitive.
  static std::string Spelled(const std::string& typed) {
    return Separator == '\\' ? typed + ".btd" : "Bytes.BTD";
  }
  static std::string PathOf(const std::string& name) {
    return GamePath + Separator + "Maps" + Separator + name;
  }
  [[nodiscard]] std::string File() const { return session.Folder.Get("Maps/Bytes.BTD"); }
  Session session{OddBytes()};
  const std::string Before = File();
};

TEST_F(EditMapBTD, OpensByADoubleClickOnTheMap) {
  std::string name;
  session.InDialog = [&](Form& form) {
    auto& dialog = static_cast<dlgEditBTD&>(form);
    name = dialog.txtFileName.Text();
    EXPECT_EQ(dialog.Focused, &dialog.OKButton);
    EXPECT_EQ(dialog.txtAlliedBrief.Text(), FieldText(OddBytes().Maps[4].Text.AlliedBrief));
    EXPECT_EQ(dialog.txtAxisBrief.Text(), FieldText(OddBytes().Maps[4].Text.AxisBrief));
    EXPECT_EQ(dialog.cboVLDest.ListCount(), 44);
    EXPECT_EQ(dialog.cboVLDest.List(42), MapRow(42));
  };
  DoubleClick(session.Main.lstMaps, 4);
  EXPECT_EQ(name, "bytes");
  EXPECT_EQ(session.Main.lstMaps.ListIndex(), 0);
}

TEST_F(EditMapBTD, AnUntouchedSaveChangesOnlyTheseBytes) {
  Edit([](dlgEditBTD& dialog) {
    for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(4, vl) = 77;
    PressKey(dialog, Key::Enter);
  });
  const int exits[] = {-1, -1, -1, 8, 254, 43, 99, -1, -1, -1};
  for (int vl = 0; vl < VLSlotCount; ++vl) EXPECT_EQ(VLDest(4, vl), exits[vl]) << vl;
  std::string wanted = Before;
  wanted.replace(5 + 4, 4, 4, '\0');              // slot 0: a kind without a row,
  wanted[5 + 29] = '\0';                          // the destination of a non-exit
  wanted.replace(325 + 6, 3, 3, '\0');            // after the end of the base name
  wanted.replace(4430 + 1000, 3096, 3096, '\0');  // and of the briefing
  EXPECT_TRUE(File() == wanted);
  EXPECT_EQ(session.TakeMessages(), Texts{"Replace existing " + PathOf(Spelled("bytes")) + "?"});
  EXPECT_FALSE(TablesDirty);
}

// The second of two unused slots shows the same text, so nothing is stored.
TEST_F(EditMapBTD, SelectingASlotShowsItAndStoresWhatItShows) {
  Edit([](dlgEditBTD& dialog) {
    const std::tuple<const char*, std::string, int> slots[] = {
        {"NONE", "", 0},
        {"NONE", "", 6},
        {"Minor Objective", "", 0},
        {"Exit Location", MapRow(8), 8},
        {"Exit Location", "254 OFF MAP", 254},
        {"Exit Location", "254 OFF MAP", 254},
        {"Exit Location", "", 99},
        {"Major Objective", "", 0},
        {"NONE", "", 0},
        {"NONE", "", 4}};
    int slot = 0;
    EXPECT_FALSE(dialog.cboVLDest.Enabled());
    for (const auto& [type, destination, stored] : slots) {
      PickRow(dialog.lstVLs, slot);
      EXPECT_EQ(dialog.cboVLType.Text(), type) << slot;
      EXPECT_EQ(dialog.cboVLDest.Text(), destination) << slot;
      EXPECT_EQ(Edited(slot).Destination, stored) << slot;
      EXPECT_EQ(dialog.cboVLDest.Enabled(), type == std::string("Exit Location")) << slot;
      EXPECT_EQ(dialog.txtVLX.Text(), std::to_string(slot + 1));
      EXPECT_EQ(dialog.txtVLY.Text(), std::to_string(slot + 200));
      EXPECT_EQ(dialog.txtVLName.Text(), dialog.lstVLs.Text()) << slot;
      ++slot;
    }
    EXPECT_EQ(dialog.lstVLs.List(9), "UNUSED");
    EXPECT_EQ(FieldText(Edited(8).Name), "UNUSED");
    EXPECT_EQ(Edited(0).Kind, VLKind::Unused);
  });
  EXPECT_TRUE(File() == Before);
}

TEST_F(EditMapBTD, TypeAndDestinationGoIntoTheSlot) {
  Edit([](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, 6);
    PickRow(dialog.cboVLDest, 0);
    EXPECT_EQ(Edited(6).Destination, 0);
    PickRow(dialog.cboVLDest, 42);
    EXPECT_EQ(Edited(6).Destination, 42);
    PickRow(dialog.cboVLDest, 43);
    EXPECT_EQ(Edited(6).Destination, 254);
    const VLKind kinds[] = {VLKind{0}, VLKind{50}, VLKind{100}, VLKind{200}};
    for (const int row : {2, 3, 0, 1}) {
      PickRow(dialog.cboVLType, row);
      EXPECT_EQ(Edited(6).Kind, kinds[row]) << row;
      EXPECT_EQ(dialog.cboVLDest.Enabled(), row == 1) << row;
      EXPECT_EQ(Edited(6).Destination, 0) << row;
    }
    EXPECT_EQ(dialog.cboVLDest.Text(), "254 OFF MAP");  // until selected again
    PickRow(dialog.lstVLs, 7);
    PickRow(dialog.lstVLs, 6);
    EXPECT_EQ(dialog.cboVLDest.Text(), MapRow(0));
    PressKey(dialog, Key::Escape);
    EXPECT_FALSE(dialog.IsOpen());
  });
  EXPECT_TRUE(File() == Before);
}

TEST_F(EditMapBTD, TheRowFollowsTheNameWithinItsLimitAndCodePage) {
  Edit([](dlgEditBTD& dialog) {
    Session::Type(dialog.txtVLName, "Ford \xD0\x96 0123456789012345");
    EXPECT_EQ(dialog.lstVLs.Text(), "Ford ? 012345678901");
    EXPECT_EQ(FieldText(Edited(0).Name), "Ford ? 012345678901");
  });
}

TEST_F(EditMapBTD, TileNumbersGoIntoThePreviousSlotAndARefusedOneKeepsTheDialogOpen) {
  Edit([&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtVLX, "123");
    PickRow(dialog.lstVLs, 1);
    EXPECT_EQ(Edited(0).TileX, 12);
    EXPECT_EQ(Edited(0).TileY, 200);
    Session::Type(dialog.txtVLY, "9");
    Press(dialog.cmdHelp);
    EXPECT_EQ(Edited(1).TileY, 9);
    EXPECT_EQ(session.TakeMessages(), Texts{"Help text"});
    Session::Type(dialog.txtVLY, "1-");
    Press(dialog.CancelButton);
    PressKey(dialog, Key::Enter);
    EXPECT_EQ(session.Beeps, 2);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(Edited(1).TileY, 9);
  });
}

TEST_F(EditMapBTD, RefusingToReplaceAFileInOtherLetterCaseChangesNothing) {
  Edit([&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "BYTES");
    session.Answer = MessageAnswer::No;
    Press(dialog.OKButton);
    EXPECT_EQ(session.TakeMessages(), Texts{"Replace existing " + PathOf(Spelled("BYTES")) + "?"});
    EXPECT_TRUE(dialog.IsOpen());
  });
  EXPECT_TRUE(File() == Before);
}

TEST_F(EditMapBTD, ANewNameCreatesAFileWithoutAQuestion) {
  Edit([&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "toolongname");
    EditText(dialog.txtAxisBrief, {3, 1, "\r\n"});
    Press(dialog.OKButton);
  });
  EXPECT_TRUE(File() == Before);
  EXPECT_EQ(session.TakeMessages(), Texts());
  const std::string made = session.Folder.Get("Maps/toolongn.btd");
  ASSERT_EQ(made.size(), BtdSize);
  EXPECT_EQ(made[4], 4);
  EXPECT_EQ(made.substr(325, 9), std::string("toolongn\0", 9));
  EXPECT_EQ(made.substr(334, 4096), Before.substr(334, 4096));
  EXPECT_EQ(made.substr(4430, 1001), Before.substr(4430, 3) + "\r\n" + Before.substr(4434, 996));
}

TEST_F(EditMapBTD, RecordsOutliveTheWindow) {
  Edit([](dlgEditBTD& dialog) {
    PickRow(dialog.lstVLs, 3);
    Session::Type(dialog.txtVLName, "Kept");
  });
  std::filesystem::remove(session.File("Maps/Bytes.BTD"));
  Edit([](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.lstVLs.List(3), "Kept");
    EXPECT_EQ(dialog.txtFileName.Text(), "bytes");
  });
}

// Prevents overwriting the file with another map's records.
TEST_F(EditMapBTD, AFileThatCannotBeReadIsReportedAndNotEdited) {
  PickRow(session.Main.lstMaps, 4);
  FailFrom(1);
  session.InDialog = [](Form&) { ADD_FAILURE(); };
  Press(session.Main.cmdEditBTD);
  ASSERT_EQ(session.Messages.size(), 2U);  // for this file, then for all
  EXPECT_NE(session.Messages[0].find("could not be read"), std::string::npos);
}

TEST_F(EditMapBTD, TheEndOfTheSessionAsksAboutEdits) {
  const std::string question = "Quit without saving the changes to the BTD file?";
  const std::vector<void (*)(dlgEditBTD&)> edits = {
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLName, "Ford"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLX, "7"); },  // not yet committed
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtVLY, "7"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtFileName, "new"); },
      [](dlgEditBTD& dialog) { Session::Type(dialog.txtAxisBrief, "new"); }};
  for (const auto& edit : edits) {
    Edit([&](dlgEditBTD& dialog) {
      EXPECT_TRUE(QueryEndSession());
      edit(dialog);
      for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        session.Answer = answer;
        EXPECT_EQ(QueryEndSession(), answer == MessageAnswer::Yes);
      }
      EXPECT_EQ(session.TakeMessages(), Texts(2, question));
    });
    PickRow(session.Main.lstMaps, 3);
  }
}
