// What the program asks of whatever shows it: one record of functions, filled in by a display or
// by a test. The program goes through the functions below, which note what stands on the screen.
// Everything that comes back the other way is a gesture.
#pragma once

#include <functional>
#include <span>
#include <string>

namespace corvane {

struct Control;
struct Form;

inline constexpr char ProgramName[] = "Corvane";  // the title of every message box

enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct MessageButton {
  const char* Caption;  // '&' marks the mnemonic
  MessageAnswer Answer;
};

/// The buttons of a box from left to right. The first is the default button; the last one's answer
/// is also that of a box that was closed without a button.
[[nodiscard]] std::span<const MessageButton> ButtonsOf(MessageButtons buttons);

// Values of CommonDialog::Flags.
inline constexpr int FileMustExist = 4096;
inline constexpr int PathMustExist = 2048;

/// Settings of an open or save dialog, and what it gave back.
struct CommonDialog {
  int Flags = 0;
  std::string DefaultExt = {};  // including the dot
  std::string Filter = {};      // pairs of description and pattern, all separated by '|'
  int FilterIndex = 1;          // counted from 1
  std::string InitDir = {};
  std::string FileName = {};   // full path; a display leaves it empty when the user cancels
  std::string FileTitle = {};  // the name without its folder; no display's business

  /// Show the dialog and return when it is closed. A name that a save dialog gives back ends in an
  /// extension of the filter or gets the default one; one that matches a file but for its letter
  /// case is that file's.
  void ShowOpen();
  void ShowSave();

  /// For a display whose dialog does not look at the flags: why it has to refuse a path and stay
  /// open; empty if it may close.
  [[nodiscard]] std::string Refusal(const std::string& path) const;
};

struct Display {
  std::function<void(Form&)> ShowModal = [](Form&) {};     // returns when the form is unloaded
  std::function<void(Form&)> Close = [](Form&) {};         // the form has been unloaded
  std::function<void(Control&)> Redraw = [](Control&) {};  // its state has changed
  std::function<MessageAnswer(const std::string&, MessageButtons)> ShowMessage =
      [](const std::string&, MessageButtons) { return MessageAnswer::No; };
  std::function<void(CommonDialog&)> ShowOpenDialog = [](CommonDialog&) {};
  std::function<void(CommonDialog&)> ShowSaveDialog = [](CommonDialog&) {};
  std::function<void()> EndProgram = [] {};  // closes all windows at once

  bool HasEnded = false;  // running handlers may open no further windows, boxes or dialogs
};

inline Display TheDisplay;

/// A message with an OK button.
void Tell(const std::string& text);

/// A question with the buttons Yes and No; True for Yes.
[[nodiscard]] bool Ask(const std::string& text);

/// Whether a message box or a file dialog stands.
[[nodiscard]] bool BoxStands();

/// Ends the program at once, with no question.
void EndProgram();

}  // namespace corvane
