// Runs the program without a display: the test makes the gestures, and this fixture answers the
// program's questions.
#pragma once

#include <string>

#include "TestFolder.h"
#include "forms/Form1.h"
#include "forms/dlgAddConnection.h"
#include "forms/dlgEditBTD.h"
#include "rules/FieldEntry.h"
#include "services/Gestures.h"

namespace corvane {

using Texts = std::vector<std::string>;

struct Session {
  /// Opens a game.
  explicit Session(const SampleGame& game = MakeSampleGame()) : Session(GameFiles(game)) {
    OpenFile("CC4.EXE");
  }
  explicit Session(const std::map<std::string, std::string>& files) {
    dlgEditBTD::VLTable = {};
    dlgEditBTD::VLText = {};
    for (const auto& [name, bytes] : files) Folder.Put(name, bytes);
    TheDisplay.ShowMessage = [this](const std::string& text, MessageButtons buttons) {
      Messages.push_back(text);
      if (text.starts_with(Refused)) return MessageAnswer::No;
      return buttons == MessageButtons::Ok ? MessageAnswer::Ok : Answer;
    };
    TheDisplay.ShowFileDialog = [this](CommonDialog& dialog) {
      Asked = dialog;
      dialog.FileName = Choice;
      dialog.FileTitle = std::filesystem::path(Choice).filename().string();
    };
    TheDisplay.ShowModal = [this](Form& form) {
      InDialog(form);
      if (form.IsOpen()) CloseWindow(form);
    };
    TheDisplay.EndProgram = [this] { Ended = true; };
    Beep = [this] { ++Beeps; };
    Main.Open();
  }
  ~Session() {
    TheDisplay = {};
    Beep = [] {};
  }

  TestFolder Folder;
  Form1 Main;
  Texts Messages;
  MessageAnswer Answer = MessageAnswer::Yes;
  std::string Refused = "?";                           // start of a question answered with No
  std::string Choice;                                  // result of the next file dialog
  CommonDialog Asked;                                  // the program's settings for it
  std::function<void(Form&)> InDialog = [](Form&) {};  // the user's actions in a modal dialog
  int Beeps = 0;
  bool Ended = false;

  [[nodiscard]] std::string File(const std::string& name) const { return Folder / name; }

  // Returns the messages since the last call.
  Texts TakeMessages() { return std::exchange(Messages, {}); }

  void OpenFile(const std::string& name) {
    Choice = File(name);
    Menu(Main.mnuFileOpen);
  }
  void SavePatch(const std::string& name) {
    Choice = File(name);
    Menu(Main.mnuFileSavePatch);
  }
  static void Menu(MenuItem& item) {
    OpenMenu(item.Under);
    Choose(item);
  }

  // Replaces the text of a box by typing.
  static void Type(TextBox& box, const std::string& text) {
    EditText(box, {0, CharacterCount(ShownText(box)), text});
  }

  template <typename Dialog>
  void Within(Button& button, const std::function<void(Dialog&)>& user) {
    bool opened = false;
    InDialog = [&](Form& form) {
      opened = true;
      user(static_cast<Dialog&>(form));
    };
    Press(button);
    InDialog = [](Form&) {};
    EXPECT_TRUE(opened);
  }
};

}  // namespace corvane
