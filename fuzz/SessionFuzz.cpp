// The input drives a session on the sample game: gestures on every control of the front window,
// answers to questions, a failing file operation. It is also a patch file and, if its length
// is odd, a BTD file of that game.
#include <fuzzer/FuzzedDataProvider.h>

#include "Fuzz.h"
#include "base/AnsiText.h"
#include "forms/Session.h"

namespace corvane {

static const std::map<std::string, std::string> Files = GameFiles(MakeSampleGame());

struct Player : Session {
  FuzzedDataProvider Input;
  std::vector<std::string> Gone;  // files removed behind the program's back
  int Steps = 0, FaultAt = -1;

  auto UpTo(auto max) { return Input.ConsumeIntegralInRange(decltype(max){0}, max); }
  auto& Pick(auto& list) { return *std::next(list.begin(), UpTo(std::ssize(list) - 1)); }

  explicit Player(const std::string& input)
      : Session(Files), Input(reinterpret_cast<const std::uint8_t*>(input.data()), input.size()) {
    Folder.Put("p.crv", input);
    if (input.size() % 2 == 1) Folder.Put("Maps/input.btd", input);
    Folder.Put(".wine/system.reg",
               R"([Software\\Strategic Simulations Inc.\\Close Combat\\4.00]
                  "InstalledTo"=")" +
                   File("") + '"');
    setenv("HOME", Folder.Path.c_str(), 1);
    InDialog = [this](Form& dialog) { Play(dialog); };
    TheDisplay.ShowFileDialog = [this](CommonDialog& dialog) {
      const bool opens = dialog.DefaultExt.empty();
      Require(opens || CheckTables().empty(), "only sound tables are saved");
      constexpr const char* Names[] = {"p.crv", "New.CRV", "Maps", "no/p.crv", "CC4.EXE"};
      dialog.FileName = File(dialog.FileTitle = Names[UpTo(opens ? 4 : 3)]);
    };
    TheDisplay.ShowMessage = [this](const std::string& text, MessageButtons buttons) {
      const bool saves = text.starts_with("This will") || text.starts_with("Overwrite");
      Require(!saves || CheckTables().empty(), "only sound tables are saved");
      if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
      return UpTo(3) == 0 ? MessageAnswer::No : MessageAnswer::Yes;
    };
    InjectedFault = [this](FileStep, Moment, std::size_t&) {
      return Steps++ == FaultAt ? std::make_error_code(std::errc::io_error) : std::error_code();
    };
  }

  void Play(Form& form) {
    while (form.IsOpen() && !Ended && Input.remaining_bytes() > 0) {
      const int gesture = UpTo(15);
      if (gesture == 0)
        PressKey(form, {static_cast<Key>(UpTo(5)), {UpTo(1) == 1, UpTo(1) == 1, UpTo(1) == 1}});
      if (gesture == 1) FaultAt = Steps + UpTo(60);
      if (gesture == 2)
        UpTo(3) == 0 ? CloseWindow(form)
                     : static_cast<void>(PressKey(form, {"SZYH" [UpTo(3)], { .Ctrl = true }}));
      if (gesture == 3 && !form.Menus.empty()) Menu(*Pick(Pick(form.Menus)->Items));
      if (gesture == 4 && &form == &Main)
        UpTo(1) == 0 ? Main.cmdNewBTD_Click() : Main.cmdDelete_Click();
      if (gesture == 5) std::filesystem::remove(File(Gone.emplace_back(Pick(Files).first)));
      if (gesture > 5) std::visit([this](auto* control) { Use(*control); }, Pick(form.Controls));
      Require(!Main.SettingArrow, "SettingArrow is off between gestures");
      Require(std::ranges::count(form.TabOrder(), form.Focused) == 1,
              "the focused control is in the tab order");
      for (int map = 0; map < Main.lstMaps.ListCount(); ++map)
        Require(Main.lstMaps.List(map) == MapRow(map), "rows match the map slots");
      for (const AnyControl& any : form.Controls) std::visit([](auto* each) { Check(*each); }, any);
    }
  }
  void Use(Control& label) { static_cast<void>(MoveFocus(label)); }
  void Use(Button& button) { Press(button); }
  void Use(ComboBox& combo) { PickRow(combo, UpTo(combo.ListCount())); }
  void Use(ListBox& list) { DoubleClick(list, UpTo(list.ListCount())); }
  void Use(TextBox& box) {
    const std::string text = Input.ConsumeRandomLengthString(40);
    EditText(box, {UpTo(3), UpTo(99), UpTo(1) == 0 ? std::to_string(UpTo(900)) : text});
  }
  static void Check(const Control&) {}
  static void Check(const RowControl& list) {
    Require(list.ListIndex() >= -1 && list.ListIndex() < list.ListCount(),
            "the selected row exists");
  }
  static void Check(const TextBox& box) {
    const std::string bytes = TextToAnsi(box.Text());
    const bool fits = box.TypedLimit == 0 || std::ssize(bytes) <= box.TypedLimit + 1;
    Require(fits && AnsiToText(bytes) == box.Text(), "the text shown can be stored");
  }
};

}  // namespace corvane

void corvane::Run(const TestFolder&, const std::string& input) {
  Player player(input);
  player.Menu(player.Main.mnuFileOpen);
  player.Play(player.Main);
  for (const auto& [name, old] : Files) {
    if (std::ranges::count(player.Gone, name) > 0) continue;
    std::string now = player.Folder.Get(name);
    Require(now.size() >= old.size(), "a save never shortens a file");
    if (name != "CC4.EXE") now.replace(0, BtdSize, old, 0, BtdSize);
    for (const auto& [at, patch, size] : TablePlaces)
      if (now.size() > at) now.replace(at, size, old, at, size);
    Require(now == old, "a save changes only known bytes");
  }
}
