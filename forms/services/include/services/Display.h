// What the program requests from a display: a record of functions, filled in by a display or a
// test. The program calls the functions below, which track open boxes and dialogs. Input from the
// display arrives as gestures.
#pragma once

#include <cstddef>
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

/// The buttons of a box from left to right. The first is the default button.
[[nodiscard]] std::span<const MessageButton> ButtonsOf(MessageButtons buttons);
/// The answer of the button with this index. Any other index, for a box closed without a button,
/// gives the answer of the last.
[[nodiscard]] MessageAnswer AnswerOf(MessageButtons buttons, std::ptrdiff_t pressed);

// Values of CommonDialog::Flags.
inline constexpr int FileMustExist = 4096;
inline constexpr int PathMustExist = 2048;

enum class FileDialogKind { Open, Save };

/// Settings and result of an open or save dialog.
struct CommonDialog {
  FileDialogKind Kind = FileDialogKind::Open;  // set by ShowOpen and ShowSave
  int Flags = 0;
  std::string DefaultExt = {};  // including the dot
  std::string Filter = {};      // description and pattern pairs, separated by '|'
  int FilterIndex = 1;          // counted from 1
  std::string InitDir = {};
  std::string FileName = {};   // full path; empty if the user cancels
  std::string FileTitle = {};  // the name without its folder; not set by displays

  /// Show the dialog and return when it closes. ShowSave appends DefaultExt to a name without an
  /// extension of the filter. A name that differs from an existing file's only in letter case
  /// becomes that file's name.
  void ShowOpen();
  void ShowSave();

  /// For a display whose dialog ignores the flags: the reason to reject a path and stay open; empty
  /// if the dialog may close.
  [[nodiscard]] std::string Refusal(const std::string& path) const;
};

struct Display {
  std::function<void(Form&)> ShowModal = [](Form&) {};     // returns when the form is unloaded
  std::function<void(Form&)> Close = [](Form&) {};         // the form has been unloaded
  std::function<void(Control&)> Redraw = [](Control&) {};  // the control's state has changed
  std::function<MessageAnswer(const std::string&, MessageButtons)> ShowMessage =
      [](const std::string&, MessageButtons) { return MessageAnswer::No; };
  std::function<void(CommonDialog&)> ShowFileDialog = [](CommonDialog&) {};
  std::function<void()> EndProgram = [] {};  // closes all windows at once

  bool HasEnded = false;  // running handlers can open no more windows, boxes or dialogs
};

inline Display TheDisplay;

/// Shows a message with an OK button.
void Tell(const std::string& text);

/// Asks a question with the buttons Yes and No. True for Yes.
[[nodiscard]] bool Ask(const std::string& text);

/// Whether a message box or a file dialog is open.
[[nodiscard]] bool IsBoxOpen();

/// Ends the program immediately, without asking.
void EndProgram();

}  // namespace corvane
