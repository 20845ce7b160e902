#include <algorithm>
#include <cstring>
#include <memory>

#include "Session.h"
#include "platform/FolderScan.h"

using namespace corvane;
using Texts = std::vector<std::string>;
using KindAndDestination = std::pair<std::int32_t, std::uint8_t>;

// Map 4 has the given victory locations and otherwise bytes of every value.
struct EditMapBTD : testing::Test {
  void Open(const std::vector<KindAndDestination>& vls,
            const std::function<void(dlgEditBTD&)>& user) {
    SampleGame game = MakeSampleGame();
    SampleMap& map = game.Maps[4];
    map.FileName = "Bytes.BTD";
    map.Header.Magic = 7;
    unsigned char value = 1;
    const auto next = [&] { return static_cast<char>(value = value % 255 + 1); };
    std::generate_n(map.Text.AlliedBrief.begin(), 2 * 4096, next);
    map.Text.AxisBrief[1000] = '\0';
    std::memcpy(map.Text.BaseName.data(), "bytes\0old", 9);
    for (std::size_t vl = 0; vl < map.VLs.size(); ++vl) {
      const auto [kind, destination] = vl < vls.size() ? vls[vl] : KindAndDestination{};
      map.VLs[vl] = {value, value, {value, value}, kind, {}, value, destination, {value, value}};
      std::ranges::generate_n(map.VLs[vl].Name.begin(), 20, next);
    }
    session = std::make_unique<Session>(game);
    before = session->Folder.Get("Maps/Bytes.BTD");
    session->OpenFile("CC4.EXE");
    PickRow(session->Main.lstMaps, 4);
    session->Within<dlgEditBTD>(session->Main.cmdEditBTD, user);
    after = session->Folder.Get("Maps/Bytes.BTD");
  }
  static VictoryLocation& Edited(std::size_t vl) { return dlgEditBTD::VLTable[vl]; }
  std::unique_ptr<Session> session;
  std::string before, after;
};

TEST_F(EditMapBTD, AnUntouchedSaveChangesOnlyTheseBytes) {
  Open({{77, 9}, {0, 9}, {50, 43}, {77, 200}}, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.Focused, &dialog.OKButton);
    PressKey(dialog, Key::Enter);
  });
  std::string wanted = before;
  wanted.replace(0, 4, "\x36\x07\x31\x01", 4);    // the magic number
  wanted.replace(5 + 4, 4, 4, '\0');              // slot 0: a kind that has no row,
  wanted[5 + 29] = '\0';                          // the destination of what is no exit
  wanted.replace(325 + 6, 3, 3, '\0');            // behind the text of the base name
  wanted.replace(4430 + 1000, 3096, 3096, '\0');  // and of the briefing
  EXPECT_TRUE(after == wanted);
  const std::string path = GamePath + Separator + "Maps" + Separator + "Bytes.BTD";
  EXPECT_EQ(session->Told(), Texts{"Replace existing " + path + "?"});
  EXPECT_TRUE(VLDest(4, 0) == NotAnExit && VLDest(4, 2) == 43 && !TablesDirty);
  EXPECT_EQ(session->Main.lstMaps.ListIndex(), 0);
}

TEST_F(EditMapBTD, SelectingASlotStoresWhatItShows) {
  Open({{100, 5}, {0, 6}, {0, 7}, {50, 254}, {50, 8}, {50, 43}, {50, 99}, {9, 1}},
       [&](dlgEditBTD& dialog) {
         EXPECT_EQ(dialog.cboVLType.Text(), "Minor Objective");
         EXPECT_FALSE(dialog.cboVLDest.Enabled());
         const auto name = Edited(2).Name;
         // What the row of the destination shows, and the destination stored, slot after slot; of
         // two slots not in use the second shows nothing new, so nothing is stored.
         const std::tuple<int, std::string, int> slots[] = {{1, "", 0},
                                                            {2, "", 7},
                                                            {3, "254 OFF MAP", 254},
                                                            {4, MapRow(8), 8},
                                                            {5, "254 OFF MAP", 254},
                                                            {6, "", 99},
                                                            {7, "", 0}};
         for (const auto& [slot, shown, destination] : slots) {
           PickRow(dialog.lstVLs, slot);
           EXPECT_EQ(dialog.cboVLDest.Text(), shown) << slot;
           EXPECT_EQ(Edited(static_cast<std::size_t>(slot)).Destination, destination) << slot;
           EXPECT_EQ(dialog.cboVLDest.Enabled(), slot > 2 && slot < 7) << slot;
           EXPECT_EQ(dialog.txtVLY.Text(), dialog.txtVLX.Text());
         }
         EXPECT_EQ(FieldText(Edited(1).Name), "UNUSED");
         EXPECT_EQ(Edited(2).Name, name);
         EXPECT_EQ(Edited(7).Kind, 0);
         EXPECT_EQ(dialog.lstVLs.Text(), FieldText(Edited(7).Name));  // keeps its text
         PickRow(dialog.lstVLs, 6);
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
  EXPECT_TRUE(after == before);
}

TEST_F(EditMapBTD, TypingFollowsTheSlotAndLimits) {
  Open({{100, 5}, {200, 5}}, [&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtVLName, "Ford \xD0\x96 0123456789012345");
    EXPECT_EQ(dialog.lstVLs.Text(), "Ford ? 012345678901");
    EXPECT_TRUE(Edited(0).Name[18] == '1' && Edited(0).Name[19] == '\0');
    Session::Type(dialog.txtVLX, "123");
    PickRow(dialog.lstVLs, 1);
    EXPECT_EQ(Edited(0).TileX, 12);
    EXPECT_EQ(dialog.txtVLX.Text(), std::to_string(Edited(1).TileX));
    Session::Type(dialog.txtVLY, "1-");
    Press(dialog.CancelButton);
    PressKey(dialog, Key::Enter);
    EXPECT_TRUE(session->Beeps == 2 && dialog.IsOpen());
    Session::Type(dialog.txtVLY, "9");
    Session::Type(dialog.txtFileName, "toolongname");
    EXPECT_TRUE(Edited(1).TileY == 9 && !TablesDirty);
    EditText(dialog.txtAxisBrief, {3, 1, "\n"});
    Press(dialog.cmdHelp);
    EXPECT_EQ(session->Told(), Texts{"Help text"});
    Press(dialog.OKButton);
  });
  EXPECT_TRUE(after == before && session->Told().empty());  // a new name brings no question
  const std::string made = session->Folder.Get("Maps/toolongn.btd");
  EXPECT_TRUE(made.size() == BtdSize && made[4] == 4);
  EXPECT_TRUE(made.substr(325, 4105) == std::string("toolongn", 9) + before.substr(334, 4096));
  EXPECT_TRUE(made.substr(4430, 1001) ==
              before.substr(4430, 3) + "\r\n" + before.substr(4434, 996));
}

TEST_F(EditMapBTD, ANameThatNoFileCanHaveOrThatStandsThereInOtherLetters) {
  Open({}, [&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "no/such");
    Press(dialog.OKButton);
    EXPECT_TRUE(session->Told().at(0).starts_with("Error: ") && dialog.IsOpen());
    session->Answer = MessageAnswer::No;
    Session::Type(dialog.txtFileName, "BYTES");
    Press(dialog.OKButton);
    EXPECT_TRUE(session->Told().at(0).ends_with(Separator + std::string("Bytes.BTD?")));
    EXPECT_TRUE(dialog.IsOpen());
  });
  EXPECT_TRUE(after == before);
}

TEST_F(EditMapBTD, RecordsOutliveTheWindow) {
  Open({{100, 5}}, [&](dlgEditBTD& dialog) { Session::Type(dialog.txtVLName, "Kept"); });
  Form1& main = session->Main;
  PickRow(main.lstMaps, 4);
  std::filesystem::remove(session->File("Maps/Bytes.BTD"));
  session->Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.lstVLs.Text() + dialog.txtFileName.Text(), "Keptbytes");
    EXPECT_EQ(dialog.cboVLDest.ListCount(), 44);
  });
  EXPECT_EQ(main.lstMaps.ListCount(), 42);
  // Another map's records must not be written over a file that could not be read.
  FailFrom(1);
  session->Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD&) { ADD_FAILURE(); });
  EXPECT_NE(session->Told().at(0).find("could not be read"), std::string::npos);
}
