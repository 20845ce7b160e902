// The program of scripts/faults.sh: "play FOLDER FILE LENGTH" plays a session while the system is
// made to fail, "judge OLD NEW NOW saved|failed|killed" judges the file that is left.
#include <iostream>

#include "forms/Session.h"

using namespace corvane;

// Opens the game in a folder, edits all tables, and saves FILE; a CC4.EXE is cut to a length ahead
// of that. 0: saved. 2: told that it failed and left nothing torn. 3: told anything else.
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
  for (const std::string& told : session.Messages) {
    if (!told.starts_with("Error: ")) continue;
    std::cout << told << "\n";
    for (const char* end : {" is unchanged.", " was not created.", " was removed.",
                            "not confirm them. Check the file."})
      if (told.ends_with(end)) return 2;
    return 3;
  }
  return 0;
}

static bool IsKnown(const std::string& file, std::size_t at) {
  if (file.ends_with(".crv")) return at < 11212;
  if (file.ends_with(".btd")) return at < 8526;
  return (at >= 1147264 && at < 1148468) || (at >= 1148480 && at < 1150748) ||
         (at >= 1153780 && at < 1161176) || (at >= 1200968 && at < 1201312);
}

static int Judge(const std::string& old, const std::string& fresh, const std::string& now,
                 const std::string& file, const std::string& outcome) {
  if (outcome != "killed") return now == (outcome == "saved" ? fresh : old) ? 0 : 1;
  if (now.size() < old.size() || now.size() > fresh.size()) return 1;
  for (std::size_t at = 0; at < now.size(); ++at) {
    const bool isOld = at < old.size() && now[at] == old[at];
    const bool mayBeNew = at >= old.size() || IsKnown(file, at);
    if (!isOld && !(mayBeNew && now[at] == fresh[at])) return 1;
  }
  return 0;
}

int main(int argc, char** argv) {
  const std::vector<std::string> word(argv, argv + argc);
  if (word.at(1) == "play") return Play(word.at(2), word.at(3), word.at(4));
  return Judge(Bytes(word.at(2)), Bytes(word.at(3)), Bytes(word.at(4)), word[4], word.at(5));
}
