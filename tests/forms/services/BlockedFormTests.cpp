// A form below another form, a box or a file dialog ignores all input.
#include <gtest/gtest.h>

#include "TestForm.h"
#include "services/Display.h"
#include "services/FormView.h"
#include "services/Gestures.h"

using namespace corvane;

namespace {

struct Gesture {
  const char* Name;
  void (*At)(TestForm&);
};

// clang-format off
const Gesture Gestures[] = {
    {"move the focus", [](TestForm& f) { EXPECT_FALSE(MoveFocus(f.txtName)); }},
    {"focus from elsewhere", [](TestForm& f) { FollowFocus(f.txtName); }},
    {"press at a control", [](TestForm& f) { EXPECT_FALSE(AllowPress(f, &f.txtName)); }},
    {"press an empty area", [](TestForm& f) { EXPECT_FALSE(AllowPress(f, nullptr)); }},
    {"turn the wheel", [](TestForm& f) { EXPECT_FALSE(AllowWheel(f, &f.lstRows)); }},
    {"pick in a list", [](TestForm& f) { PickRow(f.lstRows, 2); }},
    {"pick in a combo box", [](TestForm& f) { PickRow(f.cboRows, 2); }},
    {"double-click", [](TestForm& f) { DoubleClick(f.lstRows, 2); }},
    {"edit", [](TestForm& f) { EditText(f.txtNumber, {0, 0, "1"}); }},
    {"undo", [](TestForm& f) { Undo(f.txtNumber); }},
    {"redo", [](TestForm& f) { Redo(f.txtNumber); }},
    {"press a button", [](TestForm& f) { Press(f.cmdHelp); }},
    {"open a menu", [](TestForm& f) { OpenMenu(f.mnuFile); }},
    {"choose an item", [](TestForm& f) { Choose(f.mnuSave); }},
    {"close", [](TestForm& f) { CloseWindow(f); }},
    // The focused widget must not get the key either.
    {"Tab", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Tab)); }},
    {"Enter", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Enter)); }},
    {"Esc", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Escape)); }},
    {"Ctrl+S", [](TestForm& f) { EXPECT_TRUE(PressKey(f, {'S', {.Ctrl = true}})); }},
    {"Ctrl+Z", [](TestForm& f) { EXPECT_TRUE(PressKey(f, {'Z', {.Ctrl = true}})); }},
    {"Alt+H", [](TestForm& f) { EXPECT_TRUE(PressKey(f, {'H', {.Alt = true}})); }},
    {"another key", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Other)); }}};
// clang-format on

// A form whose focused field has one edit to undo and one to redo.
struct Blocked : testing::Test {
  Blocked() {
    f.Open();
    EXPECT_TRUE(MoveFocus(f.txtNumber));
    for (const char* text : {"ab", "c"}) EditText(f.txtNumber, {0, 0, text});
    Undo(f.txtNumber);
    f.TakeLog();
  }
  ~Blocked() override { TheDisplay = {}; }

  void TryEverything() {
    for (const Gesture& gesture : Gestures) {
      SCOPED_TRACE(gesture.Name);
      gesture.At(f);
      EXPECT_EQ(f.TakeLog(), "");
      EXPECT_EQ(f.Focused, &f.txtNumber);
      EXPECT_EQ(f.txtNumber.Text(), "ab");
      EXPECT_EQ(f.lstRows.ListIndex(), -1);
      EXPECT_TRUE(f.IsOpen());
    }
    ++Tried;
  }

  TestForm f;
  int Tried = 0;
};

}  // namespace

TEST_F(Blocked, IgnoresInputUnderADialog) {
  TestForm dialog;
  TheDisplay.ShowModal = [&](Form&) {
    TryEverything();
    dialog.QueryUnload = [] { return true; };
    Press(dialog.cmdHelp);
    CloseWindow(dialog);
  };
  dialog.ShowModal();
  EXPECT_EQ(dialog.TakeLog(), "help ");
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_EQ(Tried, 1);
  Press(f.cmdHelp);  // now it reacts again
  EXPECT_EQ(f.TakeLog(), "accept help ");
}

TEST_F(Blocked, IgnoresInputBehindMessageBoxes) {
  TheDisplay.ShowMessage = [&](const std::string&, MessageButtons) {
    TryEverything();
    EXPECT_FALSE(QueryEndSession());
    return MessageAnswer::Yes;
  };
  f.cmdOK.Click = [&] {
    f.TakeLog();
    Tell("first");
    EXPECT_TRUE(Ask("second"));
  };
  EXPECT_TRUE(PressKey(f, Key::Enter));
  EXPECT_EQ(Tried, 2);
  EXPECT_FALSE(IsBoxOpen());
}

TEST_F(Blocked, IgnoresInputBehindFileDialogs) {
  TheDisplay.ShowFileDialog = [&](CommonDialog&) { TryEverything(); };
  CommonDialog dialog;
  dialog.ShowOpen();
  dialog.ShowSave();
  EXPECT_EQ(Tried, 2);
}

TEST_F(Blocked, IgnoresInputOnceItIsClosed) {
  f.QueryUnload = [] { return true; };
  CloseWindow(f);
  EXPECT_FALSE(f.IsOpen());
  PickRow(f.lstRows, 1);
  EXPECT_EQ(f.lstRows.ListIndex(), -1);
}

// What a blocked widget did by itself must be reverted on the screen.
TEST_F(Blocked, RestoresItsControls) {
  std::vector<const Control*> redrawn;
  TheDisplay.Redraw = [&](Control& control) { redrawn.push_back(&control); };
  TheDisplay.ShowMessage = [&](const std::string&, MessageButtons) {
    PickRow(f.lstRows, 2);
    PickRow(f.cboRows, 2);
    EditText(f.txtNumber, {0, 0, "1"});
    return MessageAnswer::Ok;
  };
  Tell("box");
  EXPECT_EQ(redrawn, (std::vector<const Control*>{&f.lstRows, &f.cboRows, &f.txtNumber}));
}
