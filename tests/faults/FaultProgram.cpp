// corvane_fault_program FOLDER FILE LENGTH: plays a session, in which faults.py makes the system
// fail.
#include <iostream>

#include "base/Signals.h"
#include "forms/Session.h"

using namespace corvane;

// Opens the game in a folder, edits all tables, and saves a file. If a length is given, truncates
// CC4.EXE to it before the save. Returns 0 if the file was saved, 2 if the save failed and left
// nothing torn, and 3 after any other error.
static int Play(const std::string& folder, const std::string& file, const std::string& length) {
  Session session(std::map<std::string, std::string>{});
  Form1& main = session.Main;
  session.OpenFile(folder + "/CC4.EXE");
  for (int map = 0; map < MapSlotCount; ++map) {
    PickRow(main.lstMaps, map);
    PickRow(main.cboArrows, 80 - main.cboArrows.ListIndex());
    for (const AnyControl& any : main.Controls)
      if (auto* box = std::get_if<TextBox*>(&any)) Session::Type(**box, std::to_string(200 + map));
  }
  if (!length.empty()) std::filesystem::resize_file(folder + "/CC4.EXE", std::stoul(length));
  if (file == "CC4.EXE") Session::Menu(main.mnuFileSave);
  if (file.ends_with(".crv")) session.SavePatch(folder + "/" + file);
  if (file.starts_with("Maps/"))
    session.Within<dlgEditBTD>(main.cmdEditBTD, [&](dlgEditBTD& dialog) {
      for (TextBox* box : {&dialog.txtVLName, &dialog.txtAxisBrief}) Session::Type(*box, "Other");
      Session::Type(dialog.txtFileName, std::filesystem::path(file).stem());
      Press(dialog.OKButton);
    });
  for (const std::string& message : session.Messages) {
    if (!message.starts_with("Error: ")) continue;
    std::cout << message << "\n";
    for (const char* end : {" is unchanged.", " was not created.", " was removed.",
                            "not confirm them. Check the file."})
      if (message.ends_with(end)) return 2;
    return 3;
  }
  return 0;
}

int main(int argc, char** argv) {
  IgnoreFileSizeSignal();
  const std::vector<std::string> word(argv, argv + argc);
  return Play(word.at(1), word.at(2), word.at(3));
}
