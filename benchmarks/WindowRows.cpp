#include "FormList.h"
#include "Groups.h"
#include "Process.h"
#include "forms/Form1.h"
#include "services/Gestures.h"

namespace corvane {
namespace {

struct Lists {
  std::string Empty, Opened;  // files with the controls of the main window
};

// The main window at start, and with the game open.
Lists ListMainWindow(const std::string& folder) {
  const Lists lists{folder + "/empty.controls", folder + "/opened.controls"};
  TheDisplay.ShowFileDialog = [&](CommonDialog& dialog) {
    dialog.FileName = folder + "/CC4.EXE";
    dialog.FileTitle = "CC4.EXE";
  };
  Form1 form;
  form.Open();
  WriteControls(lists.Empty, ListControls(form));
  OpenMenu(form.mnuFile);
  Choose(form.mnuFileOpen);
  Require(form.lstMaps.ListCount() == 43, "opening the game in the window");
  WriteControls(lists.Opened, ListControls(form));
  TheDisplay = {};
  return lists;
}

}  // namespace

void AddWindowRows(const std::string& folder) {
  const std::string exe = folder + "/CC4.EXE";
  const auto [empty, opened] = ListMainWindow(folder);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("QT_LOGGING_RULES", "*=false", 1);
  AddRow("Select a map in the real window (us)",
         ProcessJob(Cost::FirstPrinted, {PROGRAM_WINDOW, exe, "select"}),
         "the fewest calls on bare widgets",
         ProcessJob(Cost::FirstPrinted, {BARE_WINDOW, opened, "select"}), 1.5, 41);
  AddRow("Start to first window (ms)", ProcessJob(Cost::Millis, {PROGRAM_WINDOW}),
         "the same controls as bare widgets", ProcessJob(Cost::Millis, {BARE_WINDOW, empty}), 1.1,
         101);
  AddRow("Peak memory with a game open (MiB)", ProcessJob(Cost::PeakMiB, {PROGRAM_WINDOW, exe}),
         "the same controls and rows as bare widgets",
         ProcessJob(Cost::PeakMiB, {BARE_WINDOW, opened}), 1.1, 9);
}

void AddWindowsRows(const std::string& folder, const std::string& programs) {
  const std::string exe = folder + "/CC4.EXE", program = programs + "/corvane_program_window.exe",
                    bare = programs + "/corvane_bare_window.exe";
  const auto [empty, opened] = ListMainWindow(folder);
  AddRow("Windows program: start to first window (ms)",
         ProcessJob(Cost::FirstPrinted, {"wine", program}), "the same controls as bare windows",
         ProcessJob(Cost::FirstPrinted, {"wine", bare, empty}), 1.1, 41);
  AddRow("Windows program: peak memory with a game open (MiB)",
         ProcessJob(Cost::SecondPrinted, {"wine", program, exe}),
         "the same controls and rows as bare windows",
         ProcessJob(Cost::SecondPrinted, {"wine", bare, opened}), 1.1, 9);
}

}  // namespace corvane
