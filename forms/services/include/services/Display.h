// What the program asks of whatever shows it: one record of functions, filled in by a display or
// by a test. Everything that comes back the other way is a gesture.
#pragma once

#include <functional>
#include <string>

namespace corvane {

struct Control;
struct Form;

inline constexpr char ProgramName[] = "Corvane";  // the title of every message box

enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };  // a question that was closed without an answer is No

// Values of CommonDialog::Flags.
inline constexpr int FileMustExist = 4096;
inline constexpr int PathMustExist = 2048;

/// Settings of an open or save dialog, and what it gave back.
struct CommonDialog {
  int Flags = 0;
  std::string DefaultExt = {};  // with its point
  std::string Filter = {};      // pairs of description and pattern, all parted by '|'
  int FilterIndex = 1;          // counted from 1
  std::string InitDir = {};
  std::string FileName = {};   // full path; empty when the user cancelled
  std::string FileTitle = {};  // the name without its folder

  /// Show the dialog and return when it is closed.
  void ShowOpen();
  void ShowSave();
};

struct Display {
  std::function<void(Form&)> ShowModal = [](Form&) {};     // returns when the form is unloaded
  std::function<void(Form&)> Close = [](Form&) {};         // the form has been unloaded
  std::function<void(Control&)> Redraw = [](Control&) {};  // its state has changed
  std::function<MessageAnswer(const std::string&, MessageButtons)> ShowMessage =
      [](const std::string&, MessageButtons) { return MessageAnswer::No; };
  std::function<void(CommonDialog&)> ShowOpenDialog = [](CommonDialog&) {};
  std::function<void(CommonDialog&)> ShowSaveDialog = [](CommonDialog&) {};
  std::function<void()> EndProgram = [] {};  // at once, with no question
};

inline Display TheDisplay;

/// A message with an OK button.
void Tell(const std::string& text);

/// A question with the buttons Yes and No; True for Yes.
[[nodiscard]] bool Ask(const std::string& text);

}  // namespace corvane
