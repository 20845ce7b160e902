#include "services/Gestures.h"

#include <gtest/gtest.h>

#include "TestForm.h"
#include "services/Display.h"

using namespace corvane;

TEST(Gestures, ValidateComesFirstAndARefusalLeavesEverything) {
  TestForm f;
  const TextEdit letter = {0, 0, "y"};
  // What is done, the events, and where the focus is then.
  const std::tuple<std::function<void()>, std::string, const Control*> rows[] = {
      {[&] { PickRow(f.lstRows, 1); }, "accept rowbee ", &f.lstRows},
      {[&] { DoubleClick(f.lstRows, 2); }, "accept rowcat doublecat ", &f.lstRows},
      {[&] { DoubleClick(f.lstRows, 2); }, "accept doublecat ", &f.lstRows},
      {[&] { PickRow(f.cboRows, 0); }, "accept comboant ", &f.cboRows},
      {[&] { PickRow(f.cboRows, 0); }, "accept comboant ", &f.cboRows},  // a choice all the same
      {[&] { Press(f.cmdHelp); }, "accept help ", &f.cmdHelp},
      {[&] {
         EXPECT_TRUE(PressKey(f, {'h', {.Alt = true}}));
       },
       "accept help ", &f.cmdHelp},
      {[&] { EXPECT_TRUE(PressKey(f, Key::Enter)); }, "accept ok ", &f.txtNumber},
      {[&] { PressKey(f, Key::Tab); }, "accept ", &f.txtName},
      {[&] { EditText(f.txtName, letter); }, "accept namey ", &f.txtName},
      {[&] { EXPECT_TRUE(PressKey(f, Key::Escape)); }, "cancel ", &f.txtNumber},
      {[&] { Choose(f.mnuSave); }, "save ", &f.txtNumber},
      {[&] { CloseWindow(f); }, "unload ", &f.txtNumber},
      // What is not there or takes no focus.
      {[&] { PickRow(f.lstRows, 8); }, "", &f.txtNumber},
      {[&] { PickRow(f.lstRows, -1); }, "", &f.txtNumber},
      {[&] { PickRow(f.cboRows, 8); }, "", &f.txtNumber},
      {[&] { PickRow(f.cboRows, -1); }, "", &f.txtNumber},
      {[&] { Press(f.cmdOff); }, "", &f.txtNumber},
      {[&] {
         EXPECT_FALSE(PressKey(f, {'O', {.Alt = true}}));
       },
       "", &f.txtNumber},
      {[&] { EXPECT_FALSE(MoveFocus(f.lblNote)); }, "", &f.txtNumber}};
  f.Open();
  for (const auto& [gesture, events, focus] : rows) {
    SCOPED_TRACE(events);
    for (const bool refuse : {true, false}) {
      f.txtNumber.SetText(refuse ? "x" : "");
      f.Focused = &f.txtNumber;
      gesture();
      EXPECT_EQ(f.Told(), refuse && events.starts_with("accept ") ? "refuse " : events);
      EXPECT_EQ(f.Focused, refuse ? &f.txtNumber : focus);
    }
  }
}

TEST(Gestures, TabGoesRoundThroughWhatTakesTheFocus) {
  TestForm f;
  f.txtLines.SetEnabled(false);
  f.cmdOK.SetVisible(false);
  f.Open();
  std::string names;
  for (const char way : std::string("<<>>>>>>>")) {
    EXPECT_TRUE(PressKey(f, {Key::Tab, {.Shift = way == '<'}}));
    names += std::string(f.Focused->Name) + " ";
  }
  EXPECT_EQ(names, "cmdHelp cmdCancel cmdHelp lstRows lstFew cboRows txtNumber txtName cmdCancel ");
  f.Told();
  EXPECT_TRUE(PressKey(f, Key::Enter));  // presses the button that has the focus
  EXPECT_EQ(f.Told(), "cancel ");
  f.cmdHelp.SetEnabled(false);
  EXPECT_EQ(f.Focused, &f.cmdCancel);
  f.cmdCancel.SetEnabled(false);  // was the last: on to the first
  EXPECT_EQ(f.Focused, &f.lstRows);
  f.lstRows.SetVisible(false);
  EXPECT_EQ(f.Focused, &f.lstFew);
  EXPECT_FALSE(PressKey(f, Key::Enter) || PressKey(f, Key::Escape));
  EXPECT_EQ(f.Told(), "");
  for (Control* control : f.TabOrder()) control->SetVisible(false);
  EXPECT_EQ(f.Focused, nullptr);
  EXPECT_TRUE(PressKey(f, Key::Tab));
}

TEST(Gestures, EnterBreaksALineOnlyWithCtrlInSeveralLines) {
  TestForm f;
  f.Open();
  const Modifiers ctrl = {.Ctrl = true};
  const struct {
    Control& In;
    Modifiers With;
    const char* Events;
    bool Taken;
  } rows[] = {{f.txtLines, {}, "ok ", true},
              {f.txtLines, ctrl, "", false},  // the box has it
              {f.txtName, ctrl, "ok ", true},
              {f.cmdHelp, ctrl, "help ", true}};
  for (const auto& [in, with, events, taken] : rows) {
    EXPECT_TRUE(MoveFocus(in));
    EXPECT_EQ(PressKey(f, {Key::Enter, with}), taken) << in.Name;
    EXPECT_EQ(f.Told(), events) << in.Name;
  }
}

TEST(Gestures, TabSelectsAllOfASingleLine) {
  TestForm f;
  f.txtNumber.SetText("12");
  f.txtLines.SetText("lines");
  f.Open();
  for (int press = 0; press < 3; ++press) PressKey(f, Key::Tab);
  EXPECT_EQ(f.Focused, &f.txtNumber);
  EXPECT_TRUE(f.txtNumber.SelectionSet);
  EXPECT_EQ(f.txtNumber.SelLength, 2);
  for (int press = 0; press < 2; ++press) PressKey(f, Key::Tab);
  EXPECT_EQ(f.Focused, &f.txtLines);
  EXPECT_FALSE(f.txtLines.SelectionSet);
}

TEST(Gestures, TheWheelTurnsAComboBoxOnlyWithTheFocus) {
  TestForm f;
  f.Open();
  EXPECT_TRUE(AllowWheel(f, &f.lstRows));
  EXPECT_TRUE(AllowWheel(f, &f.txtLines));
  EXPECT_FALSE(AllowWheel(f, &f.cboRows));
  EXPECT_FALSE(AllowWheel(f, nullptr));
  EXPECT_TRUE(MoveFocus(f.cboRows));
  EXPECT_TRUE(AllowWheel(f, &f.cboRows));
}

TEST(Gestures, APressOrAFocusFromElsewhereAsksTheField) {
  TestForm f;
  f.Open();
  EXPECT_TRUE(MoveFocus(f.txtNumber));
  EXPECT_TRUE(AllowPress(f, nullptr));
  EXPECT_FALSE(AllowPress(f, &f.lblNote));
  EXPECT_FALSE(AllowPress(f, &f.cmdOff));
  EXPECT_EQ(f.Told(), "");
  f.txtNumber.SetText("x");
  EXPECT_FALSE(AllowPress(f, &f.txtName));
  FollowFocus(f.txtName);
  EXPECT_EQ(f.Told(), "refuse refuse ");
  EXPECT_EQ(f.Focused, &f.txtNumber);
  f.txtNumber.SetText("");
  FollowFocus(f.txtName);
  FollowFocus(f.txtName);
  EXPECT_EQ(f.Told(), "accept ");
  EXPECT_EQ(f.Focused, &f.txtName);
}

TEST(Controls, SpeakAndAreDrawnAnewOnChangeAlone) {
  TestForm f;
  ListBox& list = f.lstFew;
  list.Click = [&] { f.Log += std::to_string(list.ListIndex()) + " "; };
  TheDisplay.Redraw = [&](Control& control) { f.Log += control.Name[0]; };
  for (const char* row : {"b", "C", "a"}) list.AddItem(row);
  EXPECT_EQ(list.List(0) + list.List(1) + list.List(2) + list.List(3) + list.List(4), "abCone");
  for (const int row : {1, 1, 4, -7, 1}) list.SetListIndex(row);
  EXPECT_EQ(f.Told(), "llll1 l-1 l1 ");
  list.AddItem("aa");
  EXPECT_EQ(list.Text(), "b");  // moved down, still selected
  for (const int row : {-1, 2, 5}) list.SetList(row, "z");
  EXPECT_EQ(list.Text(), "z");
  list.Clear();
  EXPECT_EQ(f.Told() + list.Text(), "lll");
  f.cboRows.AddItem("ibex");
  f.cmdOff.SetEnabled(false);
  f.cmdOff.SetVisible(true);
  f.cmdOff.SetVisible(false);
  EXPECT_EQ(f.Told(), "cc");
  f.txtName.SetText("\xC3\xA4zz");
  f.txtName.SelStart = 1;
  f.txtName.SelectAll();
  EXPECT_TRUE(f.txtName.SelStart == 0 && f.txtName.SelLength == 3);
  f.txtName.SelStart = 1;
  for (const char* text : {"b", "b"}) f.txtName.SetText(text);
  EXPECT_EQ(f.txtName.SelStart + f.txtName.SelLength, 0);
  EXPECT_EQ(f.Told(), "tname\xC3\xA4zz ttnameb ");
  TheDisplay = {};
}

TEST(TextEditing, AnEditChangesWhatTheUserChangedAndNothingElse) {
  TestForm f;
  TextBox box(f, {"Brief", "", {}, 11}, 12, TextLines::Several);
  f.Open();
  // The text, what the user makes of it before and behind the caret, and what it becomes.
  const char* const rows[][4] = {
      {"a\rb\nc\r\nd", "a\nb\nx", "c\nd", "a\rb\nxc\r\nd"},
      {"\r\n\nb", "", "\nb", "\nb"},       // Delete takes the pair behind the caret
      {"a\r\n\nb", "a\n", "b", "a\r\nb"},  // Backspace takes the lone one
      {"ab", "a\r\n", "b", "a\r\nb"},      // a typed break is a pair
      {"\xC2\xA0\x01", "\xC2\xA0\x01?", "", "\xC2\xA0\x01?"},
      {"ab", "a\xE2\x82\xAC\xD0\xB6", "b", "a\xE2\x82\xAC?b"},  // a euro, no Cyrillic
      {"0123456789", "01ABCD", "23456789", "01AB23456789"},
      {"0123456789", "ABCDEFGHIJKLMN", "", "ABCDEFGHIJKL"},
      {"01234567890", "01234567890\n", "", "01234567890"},  // no half of a pair
      {"0123456789abcdef", "x", "0123456789abcdef", "0123456789abcdef"},
      {"0123456789abcdef", "x0123456789abcdef", "", "0123456789abcdef"},  // done elsewhere
      {"0123456789abcdef", "0", "23456789abcdef", "023456789abcdef"},
      {"abc", "x", "yz", "xyz"},
      {"abc", "", "", ""},
      {"a\nb\rc", "\nb\nca", "", "\nb\rca"}};  // moved: the breaks stay as they are
  for (const auto& [text, before, behind, wanted] : rows) {
    box.SetText(text);
    EditText(box, FindEdit(box, std::string(before) + behind, before));
    EXPECT_EQ(box.Text(), wanted);
  }
  EXPECT_EQ(ShownText(box, "<>", 3), "<>b<>");
  f.txtName.SetText("1\r\n456");  // the program's own filling is not held to the limit
  f.txtName.SelectAll();
  f.Told();
  EditText(f.txtName, {6, 0, "7"});
  EXPECT_EQ(f.Told() + f.txtName.Text(), "1\r\n456");
  EXPECT_EQ(f.txtName.SelLength, 0);
  EditText(f.txtName, FindEdit(f.txtName, "\r\n456", ""));
  EXPECT_EQ(f.txtName.Text(), "\r\n456");
  EditText(f.txtName, {0, 5, {"a\0b\r", 4}});  // the end of a text or of its line does not come in
  EXPECT_EQ(f.txtName.Text(), "ab");
  EXPECT_EQ(f.txtName.SelStart, 2);
  EXPECT_EQ(WithLineBreaks("a\r\nb\rc\n", "<>"), "a<>b<>c<>");
}
