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
      std::error_code ignored;  // WriteSampleGame overwrites what remains
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
      Played = true;
    });
    Expect(Played && Awaited == 0, "the whole tour, and every message");
    std::printf("\n%s\n", Failed ? "The tour FAILED." : "All steps passed.");
    return Failed ? 1 : 0;
  }

 private:
  void Expect(bool holds, const std::string& what) {
    std::printf("   %s %s\n", holds ? "ok:" : "FAILED:", what.c_str());
    if (!holds) Failed = true;
  }

  void Step(const char* what, const std::function<void()>& act) {
    std::printf("\n%d. %s\n", ++Steps, what);
    act();
    ExpectScreenToMatchRecords();
  }

  void ExpectScreenToMatchRecords() {
    const std::string differences = ScreenDifferences(Main);
    Expect(differences.empty(),
           differences.empty() ? "every control matches its record" : differences);
  }

  void Picture(const char* name) {
    const fs::path file = Folder / name;
    Expect(SavePicture(file.string()), "picture " + file.string());
  }

  // Acts, and lists the changed bytes of a file as runs; expects at least one and at most `max`.
  void ExpectChange(const fs::path& name, std::size_t max, const std::function<void()>& act) {
    const std::string before = FileBytes(Game / name);
    act();
    const std::string after = FileBytes(Game / name);
    std::size_t changed = 0;
    for (std::size_t at = 0; at < std::min(before.size(), after.size()); ++at) {
      if (before[at] == after[at]) continue;
      const std::size_t start = at;
      while (at < after.size() && before[at] != after[at]) ++at;
      std::printf("   changed in %s: %zu byte(s) at %zu\n", name.generic_string().c_str(),
                  at - start, start);
      changed += at - start;
    }
    Expect(before.size() == after.size() && changed > 0 && changed <= max,
           name.generic_string() + " has its old length, and only the edited bytes differ");
  }

  // Answers the next message box with Return.
  void OnMessage(const std::string& start, const char* picture = nullptr) {
    ++Awaited;
    WhenNext([this, start, picture] {
      --Awaited;
      const ShownMessage message = SeenMessage();
      Expect(message.Text.starts_with(start), "message \"" + message.Text + "\"");
      Expect(message.OnScreen, "the complete box is on the screen");
      if (picture) Picture(picture);
      PressKey("Return");
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
    Expect(Main.lstMaps.ListCount() == MapSlotCount, "43 maps");
  }

  static void TypeOver(const TextBox& box, const std::string& text) {
    PressAt(box);
    PressKey("End");
    for (std::size_t letters = Seen(box).size(); letters > 0; --letters) PressKey("Backspace");
    Type(text);
  }

  // Opens the list of a combo box and picks a row by keys.
  static void PickByKeys(const ComboBox& combo, int row) {
    PressAt(combo);
    PressKey("Home");
    for (; row > 0; --row) PressKey("Down");
    PressKey("Return");
  }

  void PickTheNextArrow() { PickByKeys(Main.cboArrows, Main.cboArrows.ListIndex() + 1); }

  void RemoveTheConnection(int map) {
    PressRow(Main.lstMaps, map);
    OnMessage("Are you sure you want to delete the connection from map 00" + std::to_string(map));
    PressAt(Main.cmdDeleteConnection);
  }

  void AddTheConnection(int map, int to) {
    PressRow(Main.lstMaps, map);
    const dlgAddConnection names(map);
    WhenNext([&] {
      PickByKeys(names.cboLstMaps, to);
      Picture("add-connection.png");
      PressAt(names.OKButton);
    });
    PressAt(Main.cmdAddConnection);
    Expect(Seen(Main.lstConnections) == Main.lstMaps.List(to), "the connection");
    PickTheNextArrow();
  }

  // Edits the first victory location of the second map.
  void EditTheMapFile(const char* name, int type) {
    const dlgEditBTD names(1);
    WhenNext([&] {
      TypeOver(names.txtVLName, name);
      PickByKeys(names.cboVLType, type);
      if (type == 1) PickByKeys(names.cboVLDest, 0);
      Expect(Seen(names.lstVLs) == name, "the list follows each key");
      Picture("edit-map-btd.png");
      OnMessage("Replace existing ");
      PressAt(names.OKButton);
    });
    ExpectChange(fs::path("Maps") / Main.lstMaps.List(1).substr(4), 24,
                 [&] { DoubleClickRow(Main.lstMaps, 1); });
  }

  void ExpectRefusal() {
    const std::string before = FileBytes(Game / "CC4.EXE");
    OnMessage("Error: \nNo reciprocating BTD link defined for connection from map 000 ",
              "findings.png");
    Choose(Main.mnuFileSave);
    Expect(FileBytes(Game / "CC4.EXE") == before, "CC4.EXE untouched");
  }

  void BreakAndRepairTheNetwork() {
    Step("Delete the connections between the first two maps", [this] {
      RemoveTheConnection(1);
      RemoveTheConnection(0);
    });
    Step("Add them again, each with the next arrow", [this] {
      AddTheConnection(0, 1);
      AddTheConnection(1, 0);
    });
    Step("Double-click the second map: rename its first victory location, set its type to NONE, OK",
         [this] { EditTheMapFile("Touring", 0); });
    Step("File, Save EXE Changes: the check refuses", [this] { ExpectRefusal(); });
    Step("Edit it again: name it after the road, make it an exit to the first map, OK",
         [this] { EditTheMapFile("Merlaut road", 1); });
  }

  void MoveAndAssign() {
    Step("Select the map below, type 321 as the left of its tile, leave the field with Tab",
         [this] {
           PressRow(Main.lstMaps, 1);
           TypeOver(Main.txtMapLeft, "321");
           PressKey("Tab");
           Expect(StrMap[1].Left == 321, "321 stored");
         });
    Step("Open the list of arrows and pick the next one", [this] { PickTheNextArrow(); });
  }

  void SavePatchAndOpenAgain() {
    Step("Ctrl+S: into a patch file", [this] {
      AnswerFileDialog(Game / "Tour.crv");
      PressKey("Ctrl+S");
      const std::string patch = FileBytes(Game / "Tour.crv"), exe = FileBytes(Game / "CC4.EXE");
      Expect(patch.size() == 11212, "11212 bytes");
      Expect(exe.substr(1147264, 1204) == patch.substr(0, 1204), "the tiles of CC4.EXE first");
    });
    Step("File, Open: CC4.EXE again", [this] {
      const ConnectionTable connections = std::exchange(MapConnections, {});
      Open("CC4.EXE");
      Expect(MapConnections == connections && StrMap[1].Left == 321, "everything as saved");
    });
    Step("Help, Basic Instructions", [this] {
      OnMessage("Basic Instructions on using Corvane:");
      Choose(Main.mnuHelpBasic);
    });
  }

  void OpenThePatch() {
    Open("Tour.crv");
    Expect(StrMap[1].Left == 321, "the tile as in the patch");
    for (int row = 0; row < Main.lstMaps.ListCount(); ++row)
      std::printf("   %s\n", Main.lstMaps.List(row).c_str());
  }

  void Play(const std::string& part) {
    if (part == "patch") return Step("File, Open: the patch file", [this] { OpenThePatch(); });
    Step("File, Open: the sample game's CC4.EXE", [this] {
      Open("CC4.EXE");
      Picture("main-window.png");
    });
    if (part != "second") MoveAndAssign();
    if (part != "first") BreakAndRepairTheNetwork();
    Step("File, Save EXE Changes: no findings remain", [this] {
      OnMessage("This will directly modify the file ");
      ExpectChange("CC4.EXE", 12, [this] { Choose(Main.mnuFileSave); });
      Expect(!TablesDirty, "nothing left to save");
    });
    if (part != "first") SavePatchAndOpenAgain();
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
