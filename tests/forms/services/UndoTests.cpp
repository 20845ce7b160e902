#include <gtest/gtest.h>

#include "TestForm.h"
#include "services/Gestures.h"

using namespace corvane;

namespace {

struct Undoing : testing::Test {
  Undoing() { f.Open(); }
  void Type(TextBox& box, const std::string& letters) {
    for (const char letter : letters) EditText(box, {box.SelStart, 0, {letter}});
  }
  // Returns the texts that undoing or redoing the history passes through, in order.
  static std::vector<std::string> Steps(TextBox& box, void (*step)(TextBox&)) {
    std::vector<std::string> texts;
    for (std::string before = box.Text();; before = texts.emplace_back(box.Text())) {
      step(box);
      if (box.Text() == before) return texts;
    }
  }
  TestForm f;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(Undoing, GoesStepByStepAndBack) {
  Type(f.txtLines, "abc");
  EditText(f.txtLines, {1, 1, ""});
  EditText(f.txtLines, {0, 0, "pasted"});
  EXPECT_EQ(f.txtLines.Text(), "pastedac");
  EXPECT_EQ(Steps(f.txtLines, Undo), (Texts{"ac", "abc", ""}));
  EXPECT_EQ(Steps(f.txtLines, Redo), (Texts{"abc", "ac", "pastedac"}));
}

TEST_F(Undoing, ConsecutiveTypedCharactersAreOneStep) {
  Type(f.txtLines, "abc");
  f.txtLines.SelStart = 1;
  Type(f.txtLines, "xy");
  EXPECT_TRUE(MoveFocus(f.cmdOK));
  EXPECT_TRUE(MoveFocus(f.txtLines));
  Type(f.txtLines, "z");
  EXPECT_EQ(f.txtLines.Text(), "axyzbc");
  EXPECT_EQ(Steps(f.txtLines, Undo), (Texts{"axybc", "abc", ""}));
}

TEST_F(Undoing, ACorrectedEditIsOneStepAndARefusedOneIsNone) {
  EditText(f.txtName, {0, 0, "Ж1234567"});  // not in the code page; too long
  EXPECT_EQ(f.txtName.Text(), "?1234");
  EditText(f.txtName, {5, 0, "8"});
  EXPECT_EQ(Steps(f.txtName, Undo), Texts{""});
  EXPECT_EQ(Steps(f.txtName, Redo), Texts{"?1234"});
}

TEST_F(Undoing, StopsAtATextSetByTheProgram) {
  for (const char* filling : {"same", "other"}) {
    f.txtNumber.SetText("");
    EditText(f.txtNumber, {0, 0, "same"});
    f.txtNumber.SetText(filling);
    EXPECT_FALSE(f.txtNumber.History.CanUndo()) << filling;
    Undo(f.txtNumber);
    EXPECT_EQ(f.txtNumber.Text(), filling);
  }
}

TEST_F(Undoing, ANewEditDropsUndoneSteps) {
  EditText(f.txtNumber, {0, 0, "12"});
  Undo(f.txtNumber);
  EXPECT_TRUE(f.txtNumber.History.CanRedo());
  EditText(f.txtNumber, {0, 0, "3"});
  EXPECT_FALSE(f.txtNumber.History.CanRedo());
  EXPECT_EQ(Steps(f.txtNumber, Undo), Texts{""});
}

TEST_F(Undoing, RaisesChangeAndPlacesTheCaretAtTheEdit) {
  f.txtName.SetText("abcd");
  EditText(f.txtName, {1, 2, ""});
  f.TakeLog();
  f.txtName.SelectionSet = false;
  Undo(f.txtName);
  EXPECT_EQ(f.TakeLog(), "nameabcd ");
  EXPECT_EQ(f.txtName.SelStart, 3);
  EXPECT_EQ(f.txtName.SelLength, 0);
  EXPECT_TRUE(f.txtName.SelectionSet);
}

TEST_F(Undoing, RespondsToItsKeys) {
  const std::pair<KeyStroke, const char*> rows[] = {
      {{'Z', {.Ctrl = true}}, ""},           {{'y', {.Ctrl = true}}, "1"},
      {{Key::Backspace, {.Alt = true}}, ""}, {{'Z', {.Ctrl = true, .Shift = true}}, "1"},
      {{'Z', {.Ctrl = true}}, ""},           {{Key::Backspace, {.Shift = true, .Alt = true}}, "1"}};
  EditText(f.txtName, {0, 0, "1"});
  for (const auto& [stroke, text] : rows) {
    EXPECT_TRUE(PressKey(f, stroke));
    EXPECT_EQ(f.txtName.Text(), text);
  }
  EXPECT_FALSE(PressKey(f, {'Z', {.Ctrl = true, .Alt = true}}));  // AltGr: types a character
  EXPECT_FALSE(PressKey(f, Key::Backspace));
  EXPECT_TRUE(MoveFocus(f.lstRows));
  EXPECT_FALSE(PressKey(f, {'Z', {.Ctrl = true}}));
}
