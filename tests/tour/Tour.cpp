// corvane_tour FOLDER [first|second|patch]: plays the main workflow in native windows, from open to
// save, by mouse and keyboard, on a sample game created in FOLDER. It reports each step and what it
// sees, saves a picture of each window there, and fails on any unexpected result. "first" and
// "second", run in this order as separate processes, produce the same files as a run without a
// part; "patch" opens the patch file saved by "second", with the maps of the installed game.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>

#include "../FileBytes.h"
#include "Driver.h"
#include "Picture.h"
#include "data/StrategicTables.h"
#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"
#include "forms/dlgEditBTD.h"
#include "samples/SampleGame.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class Tour {
 public:
  explicit Tour(const fs::path& folder) : Folder(folder), Game(folder / "game") {}

  int Run(const std::string& part) {
    if (part.empty() || part == "first") {
      std::error_code ignored;  // leftovers make the sample game fail
      fs::remove_all(Game, ignored);
      const auto made = WriteSampleGame(Game, MakeSampleGame());
      if (!made.Done()) {
        std::printf("%s\n", FailureMessage(made.Error()).c_str());
        return 1;
      }
    }
    static_cast<void>(std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ));  // or output is delayed
    corvane::Play(Main, [&] {
      Play(part);
      ExpectScreenLikeRecords();
      Played = true;
    });
    Expect(Played && Awaited == 0, "the whole tour, and every message");
    std::printf("\n%s\n", Failed ? "The tour FAILED." : "All came out as it must.");
    return Failed ? 1 : 0;
  }

 private:
  void Expect(bool holds, const std::string& what) {
    std::printf("   %s %s\n", holds ? "seen:" : "MISSED:", what.c_str());
    if (!holds) Failed = true;
  }

  void Step(const char* what) {
    if (Steps > 0) ExpectScreenLikeRecords();
    std::printf("\n%d. %s\n", ++Steps, what);
  }

  void ExpectScreenLikeRecords() {
    const std::string differences = ScreenDifferences(Main);
    Expect(differences.empty(), "every control as its record has it" + differences);
  }

  void Picture(const char* name) {
    const fs::path file = Folder / name;
    Expect(SavePicture(file.string()), "picture " + file.string());
  }

  // Lists the changed bytes of a file as runs; expects at least one and at most `most`.
  void ExpectChanged(const std::string& name, const std::string& before, std::size_t most) {
    const std::string after = FileBytes(Game / name);
    std::size_t changed = 0;
    for (std::size_t at = 0; at < std::min(before.size(), after.size()); ++at) {
      if (before[at] == after[at]) continue;
      const std::size_t start = at;
      while (at < after.size() && before[at] != after[at]) ++at;
      std::printf("   changed in %s: %zu byte(s) at %zu\n", name.c_str(), at - start, start);
      changed += at - start;
    }
    Expect(before.size() == after.size() && changed > 0 && changed <= most,
           name + " has its old length, and only the bytes that were edited differ");
  }

  // Plays the steps in the next message box.
  void OnMessage(const std::string& start, const std::string& answer,
                 const char* picture = nullptr) {
    ++Awaited;
    WhenNext([this, start, answer, picture] {
      --Awaited;
      const ShownMessage message = SeenMessage();
      Expect(message.Text.starts_with(start) && message.OnScreen,
             "message \"" + message.Text + "\"");
      if (picture) Picture(picture);
      PressKey(answer);
    });
  }

  static void Choose(const MenuItem& item) {
    PressMenu(item.Under);
    PressItem(item);
  }

  static void AnswerFileDialog(const fs::path& file) {
    WhenNext([file] {
      Type(file.string());
      PressKey("Return");
    });
  }

  void Open(const char* file) {
    AnswerFileDialog(Game / file);
    Choose(Main.mnuFileOpen);
  }

  // Drops the rows of a combo box and picks one by keys.
  static void PickByKeys(const ComboBox& combo, int row) {
    PressAt(combo);
    PressKey("Home");
    for (; row > 0; --row) PressKey("Down");
    PressKey("Return");
  }

  static void TypeOver(const TextBox& box, const std::string& text) {
    PressAt(box);
    PressKey("End");
    for (std::size_t letters = Seen(box).size(); letters > 0; --letters) PressKey("Backspace");
    Type(text);
  }

  void OpenTheGame() {
    Step("File, Open: the sample game's CC4.EXE");
    Open("CC4.EXE");
    Expect(Main.lstMaps.ListCount() == MapSlotCount, "43 maps");
    Expect(Seen(Main.lstMaps).starts_with("000 "), "the first map selected, " + Seen(Main.lstMaps));
    Expect(Seen(Main.txtMapLeft) == std::to_string(StrMap[0].Left),
           "its tile at " + Seen(Main.txtMapLeft) + ", " + Seen(Main.txtMapTop));
    Expect(!Seen(Main.lstConnections).empty(),
           "its connection to " + Seen(Main.lstConnections) + " by arrow " + Seen(Main.cboArrows));
    Picture("main-window.png");
  }

  void MoveATile() {
    Step("Select the map below, type 321 as the left of its tile, leave the field with Tab");
    PressRow(Main.lstMaps, 1);
    TypeOver(Main.txtMapLeft, "321");
    Expect(StrMap[1].Left != 321, "nothing stored while the number is being typed");
    PressKey("Tab");
    Expect(StrMap[1].Left == 321 && TablesDirty, "321 stored, the tables marked as changed");
  }

  void ChangeAnArrow() {
    Step("Open the list of arrows and pick the next one");
    const std::string before = Seen(Main.cboArrows);
    PickByKeys(Main.cboArrows, Main.cboArrows.ListIndex() + 1);
    Expect(Seen(Main.cboArrows) != before,
           "arrow " + Seen(Main.cboArrows) + " in place of " + before);
  }

  void RemoveTheConnection(int map) {
    Step("Delete the first connection of a map");
    PressRow(Main.lstMaps, map);
    const int rows = Main.lstConnections.ListCount();
    OnMessage("Are you sure you want to delete the connection from map 00" + std::to_string(map),
              "Return", "question.png");
    PressAt(Main.cmdDeleteConnection);
    Expect(Main.lstConnections.ListCount() == rows - 1, "one connection less");
  }

  void BeRefused(const char* finding) {
    Step("File, Save EXE Changes: the check refuses");
    const std::string before = FileBytes(Game / "CC4.EXE");
    const bool dirty = TablesDirty;
    OnMessage(std::string("Error: \n") + finding, "Return", "findings.png");
    Choose(Main.mnuFileSave);
    Expect(FileBytes(Game / "CC4.EXE") == before && TablesDirty == dirty, "CC4.EXE untouched");
  }

  void AddTheConnection(int map, const char* to) {
    Step("Add the connection again");
    PressRow(Main.lstMaps, map);
    const dlgAddConnection names(map);
    WhenNext([&] {
      PickByKeys(names.cboLstMaps, map == 0 ? 1 : 0);
      Expect(Seen(names.cboLstMaps).starts_with(to), "destination " + Seen(names.cboLstMaps));
      Picture("add-connection.png");
      PressAt(names.OKButton);
    });
    PressAt(Main.cmdAddConnection);
    Expect(Seen(Main.lstConnections).starts_with(to) && Seen(Main.cboArrows) == "000",
           "the connection to " + Seen(Main.lstConnections) + ", with arrow 000");
  }

  // Edits the first victory location of the second map.
  void EditTheMapFile(const std::function<void(const dlgEditBTD& names)>& edit) {
    const dlgEditBTD names(1);
    const fs::path file = fs::path("Maps") / Main.lstMaps.List(1).substr(4);
    const std::string before = FileBytes(Game / file);
    WhenNext([&] {
      edit(names);
      Picture("edit-map-btd.png");
      OnMessage("Replace existing ", "Return");
      PressAt(names.OKButton);
    });
    DoubleClickRow(Main.lstMaps, 1);
    ExpectChanged(file.generic_string(), before, 24);
    Expect(Seen(Main.lstMaps).starts_with("000 "), "the catalogue from its first map on again");
  }

  void TakeTheExitAway() {
    Step("Double click on the second map: rename its first victory location, make it no exit, OK");
    EditTheMapFile([this](const dlgEditBTD& names) {
      TypeOver(names.txtVLName, "Touring");
      Expect(Seen(names.lstVLs) == "Touring", "the list follows each key");
      PickByKeys(names.cboVLType, 0);
      Expect(Seen(names.cboVLType) == "NONE", "type NONE");
    });
  }

  void MakeTheExit() {
    Step("Edit it again: name it after the road, make it an exit to the first map, OK");
    EditTheMapFile([this](const dlgEditBTD& names) {
      TypeOver(names.txtVLName, "Merlaut road");
      PickByKeys(names.cboVLType, 1);
      PickByKeys(names.cboVLDest, 0);
      Expect(Seen(names.cboVLType) == "Exit Location" && Seen(names.cboVLDest).starts_with("000 "),
             "an exit location that leads to " + Seen(names.cboVLDest));
    });
  }

  void SaveIntoTheExecutable() {
    Step("File, Save EXE Changes: nothing is wrong any more");
    const std::string before = FileBytes(Game / "CC4.EXE");
    OnMessage("This will directly modify the file ", "Return");
    Choose(Main.mnuFileSave);
    ExpectChanged("CC4.EXE", before, 12);
    Expect(!TablesDirty, "nothing left to save");
  }

  void SaveAPatch() {
    Step("Ctrl+S: into a patch file");
    const fs::path patch = Game / "Tour.crv";
    AnswerFileDialog(patch);
    PressKey("Ctrl+S");
    const std::string exe = FileBytes(Game / "CC4.EXE");
    Expect(
        FileBytes(patch).size() == 11212 && exe.find(FileBytes(patch).substr(0, 1204)) == 1147264,
        "11212 bytes, beginning with the tiles that stand in CC4.EXE");
  }

  void OpenAgain() {
    Step("File, Open: CC4.EXE once more");
    const ConnectionTable connections = MapConnections;
    MapConnections = {};
    Open("CC4.EXE");
    Expect(MapConnections == connections && StrMap[1].Left == 321, "all as it was saved");
  }

  void ReadTheHelp() {
    Step("Help, Basic Instructions");
    OnMessage("Basic Instructions on using Corvane:", "Return", "help.png");
    Choose(Main.mnuHelpBasic);
  }

  void OpenThePatch() {
    Step("File, Open: the patch file");
    Open("Tour.crv");
    Expect(StrMap[1].Left == 321 && !TablesDirty, "the tile where the patch has it");
    Expect(Main.lstMaps.ListCount() == MapSlotCount, "43 maps");
    for (int row = 0; row < Main.lstMaps.ListCount(); ++row)
      std::printf("   %s\n", Main.lstMaps.List(row).c_str());
  }

  void MoveAndAssign() {
    MoveATile();
    ChangeAnArrow();
  }

  void BreakAndMendTheNetwork() {
    RemoveTheConnection(1);
    RemoveTheConnection(0);
    BeRefused("No STRARROW defined for BTD link from 000 ");
    AddTheConnection(0, "001 ");
    ChangeAnArrow();
    AddTheConnection(1, "000 ");
    ChangeAnArrow();
    TakeTheExitAway();
    BeRefused("No reciprocating BTD link defined for connection from map 000 ");
    MakeTheExit();
  }

  void Play(const std::string& part) {
    if (part == "patch") return OpenThePatch();
    OpenTheGame();
    if (part != "second") MoveAndAssign();
    if (part != "first") BreakAndMendTheNetwork();
    SaveIntoTheExecutable();
    if (part == "first") return;
    SaveAPatch();
    OpenAgain();
    ReadTheHelp();
  }

  fs::path Folder, Game;
  Form1 Main;
  int Steps = 0, Awaited = 0;  // messages yet to appear
  bool Failed = false, Played = false;
};

}  // namespace
}  // namespace corvane

int main(int argc, char** argv) {
  const std::string part = argc == 3 ? argv[2] : "";
  if (argc < 2 || argc > 3 ||
      (argc == 3 && part != "first" && part != "second" && part != "patch")) {
    std::printf("usage: corvane_tour FOLDER [first|second|patch]\n");
    return 2;
  }
  return corvane::Tour(std::filesystem::absolute(argv[1])).Run(part);
}
