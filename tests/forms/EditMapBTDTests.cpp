#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "MapCatalogue.h"
#include "Session.h"
#include "StrategicTables.h"
#include "platform/RawFile.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

// A sample game whose map 4 has the given victory locations and otherwise bytes of every value.
SampleGame EveryByte(const std::vector<VictoryLocation>& vls) {
  SampleGame game = MakeSampleGame();
  SampleMap& map = game.Maps[4];
  map.FileName = "Bytes.BTD";
  map.Header.Magic = 7;
  unsigned char value = 1;
  const auto next = [&] { return static_cast<char>(value = value % 255 + 1); };
  std::ranges::generate(map.Text.AlliedBrief, next);
  std::ranges::generate(map.Text.AxisBrief, next);
  map.Text.AxisBrief[1000] = '\0';
  std::memcpy(map.Text.BaseName.data(), "bytes\0old", 9);
  for (std::size_t vl = 0; vl < map.VLs.size(); ++vl) {
    const VictoryLocation given = vl < vls.size() ? vls[vl] : VictoryLocation{};
    map.VLs[vl] = {value, value, {value, value},    given.Kind,
                   {},    value, given.Destination, {value, value}};
    std::ranges::generate(map.VLs[vl].Name, next);
  }
  return game;
}

VictoryLocation VL(std::int32_t kind, std::uint8_t destination) {
  VictoryLocation vl;
  vl.Kind = kind;
  vl.Destination = destination;
  return vl;
}

struct EditMapBTD : testing::Test {
  void Open(const std::vector<VictoryLocation>& vls, const std::function<void(dlgEditBTD&)>& user) {
    session = std::make_unique<Session>(EveryByte(vls));
    before = session->Folder.Get("Maps/Bytes.BTD");
    session->OpenFile("CC4.EXE");
    PickRow(session->Main.lstMaps, 4);
    session->Within<dlgEditBTD>(session->Main.cmdEditBTD, user);
    after = session->Folder.Get("Maps/Bytes.BTD");
  }
  static VictoryLocation& Edited(int vl) {
    return dlgEditBTD::VLTable[static_cast<std::size_t>(vl)];
  }
  std::unique_ptr<Session> session;
  std::string before, after;
};

TEST_F(EditMapBTD, AnUntouchedSaveChangesOnlyTheseBytes) {
  Open({VL(77, 9), VL(0, 9), VL(50, 43), VL(77, 200)}, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.Focused, &dialog.OKButton);
    PressKey(dialog, Key::Enter);
  });
  std::string wanted = before;
  wanted.replace(0, 4, "\x36\x07\x31\x01", 4);    // the magic number
  wanted.replace(5 + 4, 4, 4, '\0');              // slot 0: a kind that has no row,
  wanted[5 + 29] = '\0';                          // the destination of what is no exit
  wanted.replace(325 + 6, 3, 3, '\0');            // behind the text of the base name
  wanted.replace(4430 + 1000, 3096, 3096, '\0');  // and of the briefing
  EXPECT_EQ(after, wanted);
  const std::string path = session->File("") + "/Maps/Bytes.BTD";
  EXPECT_EQ(session->Told(), Texts{"Replace existing " + path + "?"});
  EXPECT_EQ(VLDest(4, 0), NotAnExit);
  EXPECT_EQ(VLDest(4, 2), 43);
  EXPECT_EQ(session->Main.lstMaps.ListIndex(), 0);
  EXPECT_FALSE(TablesDirty);
}

TEST_F(EditMapBTD, SelectingASlotStoresWhatItShows) {
  Open({VL(100, 5), VL(0, 6), VL(0, 7), VL(50, 254), VL(50, 8), VL(50, 43), VL(50, 99), VL(9, 1)},
       [&](dlgEditBTD& dialog) {
         EXPECT_EQ(dialog.cboVLType.Text(), "Minor Objective");
         EXPECT_FALSE(dialog.cboVLDest.Enabled());
         EXPECT_EQ(Edited(0).Destination, 0);
         const auto name = Edited(2).Name;
         PickRow(dialog.lstVLs, 1);
         EXPECT_EQ(FieldText(Edited(1).Name), "UNUSED");
         EXPECT_EQ(Edited(1).Destination, 0);
         PickRow(dialog.lstVLs, 2);  // nothing on show changes, so nothing is stored
         EXPECT_EQ(Edited(2).Name, name);
         EXPECT_EQ(Edited(2).Destination, 7);
         PickRow(dialog.lstVLs, 3);
         EXPECT_EQ(dialog.cboVLDest.Text(), "254 OFF MAP");
         PickRow(dialog.lstVLs, 4);
         EXPECT_EQ(dialog.cboVLDest.Text(), MapRows[8]);
         PickRow(dialog.lstVLs, 5);
         EXPECT_EQ(Edited(5).Destination, 254);  // 43 is the last row
         PickRow(dialog.lstVLs, 6);
         EXPECT_EQ(dialog.cboVLDest.ListIndex(), -1);
         EXPECT_EQ(Edited(6).Destination, 99);
         PickRow(dialog.cboVLDest, 43);
         EXPECT_EQ(Edited(6).Destination, 254);
         PickRow(dialog.cboVLType, 2);
         PickRow(dialog.cboVLType, 1);
         EXPECT_EQ(Edited(6).Destination, 0);
         EXPECT_EQ(dialog.cboVLDest.Text(), "254 OFF MAP");  // until selected anew
         PickRow(dialog.lstVLs, 7);
         EXPECT_EQ(Edited(7).Kind, 0);
         EXPECT_EQ(dialog.lstVLs.Text(), FieldText(Edited(7).Name));  // keeps its text
         PickRow(dialog.lstVLs, 6);
         EXPECT_EQ(dialog.cboVLDest.Text(), MapRows[0]);
         PressKey(dialog, Key::Escape);
         EXPECT_FALSE(dialog.IsOpen());
       });
  EXPECT_EQ(after, before);
}

TEST_F(EditMapBTD, TypingFollowsTheSlotAndLimits) {
  Open({VL(100, 5), VL(200, 5)}, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.txtVLName.Text().size(), dialog.lstVLs.Text().size());
    Session::Type(dialog.txtVLName, "Ford \xD0\x96 0123456789012345");
    EXPECT_EQ(dialog.lstVLs.Text(), "Ford ? 012345678901");
    EXPECT_EQ(Edited(0).Name[18], '1');
    EXPECT_EQ(Edited(0).Name[19], '\0');
    Session::Type(dialog.txtVLX, "123");
    EXPECT_EQ(dialog.txtVLX.Text(), "12");
    PickRow(dialog.lstVLs, 1);
    EXPECT_EQ(Edited(0).TileX, 12);
    EXPECT_EQ(dialog.txtVLX.Text(), std::to_string(Edited(1).TileX));
    Session::Type(dialog.txtVLY, "1-");
    Press(dialog.CancelButton);
    PressKey(dialog, Key::Enter);
    EXPECT_EQ(session->Beeps, 2);
    EXPECT_TRUE(dialog.IsOpen());
    Session::Type(dialog.txtVLY, "9");
    Session::Type(dialog.txtFileName, "toolongname");
    EXPECT_EQ(dialog.txtFileName.Text(), "toolongn");
    EXPECT_EQ(Edited(1).TileY, 9);
    EditText(dialog.txtAxisBrief, {3, 1, "\n"});
    Press(dialog.cmdHelp);
    EXPECT_EQ(session->Told(), Texts{"Help text"});
    Press(dialog.OKButton);
  });
  EXPECT_EQ(after, before);
  EXPECT_EQ(session->Told(), Texts{});  // a new name brings no question
  const std::string made = session->Folder.Get("Maps/toolongn.btd");
  EXPECT_EQ(made.size(), BtdSize);
  EXPECT_EQ(made[4], 4);
  EXPECT_EQ(made.substr(325, 9), std::string("toolongn", 9));
  EXPECT_EQ(made.substr(334, 4096), before.substr(334, 4096));
  EXPECT_EQ(made.substr(4430, 1001), before.substr(4430, 3) + "\r\n" + before.substr(4434, 996));
}

TEST_F(EditMapBTD, AFailedWriteKeepsTheDialogAndEverything) {
  Open({}, [&](dlgEditBTD& dialog) {
    const DestinationTable destinations = VLDest;
    const BtdText text = dialog.VLText;
    Session::Type(dialog.txtFileName, "no/such");
    PickRow(dialog.cboVLType, 1);
    Press(dialog.OKButton);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_TRUE(session->Told()[0].starts_with("Error: "));
    EXPECT_EQ(dialog.txtFileName.Text(), "no/such");
    EXPECT_EQ(VLDest, destinations);
    EXPECT_EQ(dialog.VLText, text);
    session->Answer = MessageAnswer::No;
    Session::Type(dialog.txtFileName, "BYTES");  // reaches the file that stands there
    Press(dialog.OKButton);
    EXPECT_TRUE(session->Told()[0].ends_with("/Bytes.BTD?"));
    EXPECT_TRUE(dialog.IsOpen());
  });
  EXPECT_EQ(after, before);
}

TEST_F(EditMapBTD, RecordsOutliveTheWindow) {
  Open({VL(100, 5)}, [&](dlgEditBTD& dialog) { Session::Type(dialog.txtVLName, "Kept"); });
  Form1& main = session->Main;
  PickRow(main.lstMaps, 4);
  std::filesystem::remove(session->File("Maps/Bytes.BTD"));
  session->Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    EXPECT_EQ(dialog.lstVLs.Text(), "Kept");
    EXPECT_EQ(dialog.txtFileName.Text(), "bytes");
    EXPECT_EQ(dialog.cboVLDest.ListCount(), 44);
  });
  EXPECT_EQ(main.lstMaps.ListCount(), 42);
  InjectedFault = [](FileStep step, std::size_t&) {
    return step == FileStep::Read ? std::make_error_code(std::errc::io_error) : std::error_code();
  };
  bool shown = false;
  session->Told();
  session->Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD&) { shown = true; });
  InjectedFault = nullptr;
  EXPECT_FALSE(shown);  // another map's records must not be written over a file not read
  EXPECT_NE(session->Told()[0].find("could not be read"), std::string::npos);
}

}  // namespace
}  // namespace corvane
