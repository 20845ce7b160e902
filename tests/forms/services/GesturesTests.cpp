#include "services/Gestures.h"

#include <gtest/gtest.h>

#include <span>

#include "TestForm.h"
#include "services/Display.h"

using namespace corvane;

namespace {

// An action with the focus in a field, the event that it raises, and the focus afterwards.
struct Row {
  const char* Name;
  void (*Act)(TestForm&);
  std::string Event;
  const char* Focus;
};

// clang-format off
const Row ValidatingActions[] = {
    {"pick", [](TestForm& f) { PickRow(f.lstRows, 1); }, "rowbee ", "lstRows"},
    {"double-click", [](TestForm& f) { DoubleClick(f.lstRows, 2); }, "rowcat doublecat ", "lstRows"},
    {"double-click again", [](TestForm& f) { DoubleClick(f.lstRows, 2); }, "doublecat ", "lstRows"},
    {"combo", [](TestForm& f) { PickRow(f.cboRows, 0); }, "comboant ", "cboRows"},
    {"same row", [](TestForm& f) { PickRow(f.cboRows, 0); }, "comboant ", "cboRows"},
    {"button", [](TestForm& f) { Press(f.cmdHelp); }, "help ", "cmdHelp"},
    {"Alt+H", [](TestForm& f) { EXPECT_TRUE(PressKey(f, {'h', {.Alt = true}})); }, "help ", "cmdHelp"},
    {"Enter", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Enter)); }, "ok ", "txtNumber"},
    {"Tab", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Tab)); }, "", "txtName"},
    {"typing elsewhere", [](TestForm& f) { EditText(f.txtName, {0, 0, "y"}); }, "namey ", "txtName"}};

const Row OtherActions[] = {
    {"Esc", [](TestForm& f) { EXPECT_TRUE(PressKey(f, Key::Escape)); }, "cancel ", "txtNumber"},
    {"menu item", [](TestForm& f) { Choose(f.mnuSave); }, "save ", "txtNumber"},
    {"close box", [](TestForm& f) { CloseWindow(f); }, "unload ", "txtNumber"},
    {"no such row", [](TestForm& f) { PickRow(f.lstRows, 8); }, "", "txtNumber"},
    {"combo row -1", [](TestForm& f) { PickRow(f.cboRows, -1); }, "", "txtNumber"},
    {"greyed button", [](TestForm& f) { Press(f.cmdOff); }, "", "txtNumber"},
    {"its mnemonic", [](TestForm& f) { EXPECT_FALSE(PressKey(f, {'O', {.Alt = true}})); }, "", "txtNumber"},
    {"label", [](TestForm& f) { EXPECT_FALSE(MoveFocus(f.lblNote)); }, "", "txtNumber"}};
// clang-format on

struct Gestures : testing::Test {
  Gestures() { f.Open(); }
  void ExpectEvents(std::span<const Row> rows, const char* text, const std::string& validated) {
    const bool refused = validated == "refuse ";
    for (const Row& row : rows) {
      SCOPED_TRACE(row.Name);
      f.txtNumber.SetText(text);
      f.Focused = &f.txtNumber;
      row.Act(f);
      EXPECT_EQ(f.TakeLog(), refused ? validated : validated + row.Event);
      EXPECT_STREQ(f.Focused->Name, refused ? "txtNumber" : row.Focus);
    }
  }
  TestForm f;
};

struct Controls : Gestures {};

}  // namespace

TEST_F(Gestures, RunValidateFirst) { ExpectEvents(ValidatingActions, "", "accept "); }
TEST_F(Gestures, DoNothingWhenValidateRefuses) { ExpectEvents(ValidatingActions, "x", "refuse "); }
TEST_F(Gestures, RunNoValidateWhereTheFocusStays) { ExpectEvents(OtherActions, "x", ""); }

TEST_F(Gestures, TabCyclesThroughFocusableControls) {
  f.txtLines.SetEnabled(false);
  f.cmdOK.SetVisible(false);
  const std::pair<bool, const Control*> steps[] = {
      {true, &f.cmdHelp},    {true, &f.cmdCancel}, {false, &f.cmdHelp},
      {false, &f.lstRows},   {false, &f.lstFew},   {false, &f.cboRows},
      {false, &f.txtNumber}, {false, &f.txtName},  {false, &f.cmdCancel}};
  for (const auto& [shift, focus] : steps) {
    EXPECT_TRUE(PressKey(f, {Key::Tab, {.Shift = shift}}));
    EXPECT_EQ(f.Focused, focus) << focus->Name;
  }
}

TEST_F(Gestures, TheFocusLeavesDisabledAndHiddenControls) {
  EXPECT_TRUE(MoveFocus(f.cmdCancel));
  f.cmdHelp.SetEnabled(false);
  EXPECT_EQ(f.Focused, &f.cmdCancel);
  f.cmdCancel.SetEnabled(false);  // the last one: wraps to the first
  EXPECT_EQ(f.Focused, &f.lstRows);
  f.lstRows.SetVisible(false);
  EXPECT_EQ(f.Focused, &f.lstFew);
  for (Control* control : f.TabOrder()) control->SetVisible(false);
  EXPECT_EQ(f.Focused, nullptr);
  EXPECT_TRUE(PressKey(f, Key::Tab));
}

TEST_F(Gestures, EnterPressesAButtonOrBreaksALine) {
  const Modifiers ctrl = {.Ctrl = true};
  const std::tuple<Control&, Modifiers, const char*, bool> rows[] = {
      {f.txtLines, {}, "ok ", true},
      {f.txtLines, ctrl, "", false},  // left to the box
      {f.txtName, ctrl, "ok ", true},
      {f.cmdHelp, ctrl, "help ", true},
      {f.cmdHelp, {}, "help ", true}};
  for (const auto& [in, with, events, taken] : rows) {
    EXPECT_TRUE(MoveFocus(in));
    EXPECT_EQ(PressKey(f, {Key::Enter, with}), taken) << in.Name;
    EXPECT_EQ(f.TakeLog(), events) << in.Name;
  }
  EXPECT_TRUE(MoveFocus(f.lstRows));
  f.cmdOK.SetEnabled(false);
  f.cmdCancel.SetVisible(false);
  EXPECT_FALSE(PressKey(f, Key::Enter));
  EXPECT_FALSE(PressKey(f, Key::Escape));
}

TEST_F(Gestures, TabSelectsAllOfASingleLine) {
  f.txtNumber.SetText("12");
  f.txtLines.SetText("lines");
  for (int press = 0; press < 3; ++press) PressKey(f, Key::Tab);
  EXPECT_EQ(f.Focused, &f.txtNumber);
  EXPECT_TRUE(f.txtNumber.SelectionSet);
  EXPECT_EQ(f.txtNumber.SelLength, 2);
  for (int press = 0; press < 2; ++press) PressKey(f, Key::Tab);
  EXPECT_EQ(f.Focused, &f.txtLines);
  EXPECT_FALSE(f.txtLines.SelectionSet);
}

TEST_F(Gestures, APressOrAFocusFromOutsideRunsValidate) {
  EXPECT_TRUE(MoveFocus(f.txtNumber));
  EXPECT_TRUE(AllowPress(f, nullptr));
  EXPECT_FALSE(AllowPress(f, &f.lblNote));
  EXPECT_FALSE(AllowPress(f, &f.cmdOff));
  EXPECT_EQ(f.TakeLog(), "");
  f.txtNumber.SetText("x");
  EXPECT_FALSE(AllowPress(f, &f.txtName));
  FollowFocus(f.txtName);
  EXPECT_EQ(f.TakeLog(), "refuse refuse ");
  EXPECT_EQ(f.Focused, &f.txtNumber);
  f.txtNumber.SetText("");
  FollowFocus(f.txtName);
  FollowFocus(f.txtName);
  EXPECT_EQ(f.TakeLog(), "accept ");
  EXPECT_EQ(f.Focused, &f.txtName);
}

TEST_F(Gestures, ADoubleClickStopsIfItsFirstClickLeadsElsewhere) {
  TestForm dialog;
  dialog.QueryUnload = [] { return true; };
  f.lstRows.Click = [&] { dialog.Open(); };
  DoubleClick(f.lstRows, 1);
  dialog.Unload();
  f.lstRows.Click = [&] { f.lstRows.SetListIndex(-1); };
  DoubleClick(f.lstRows, 2);
  f.lstRows.Click = [&] { f.lstRows.SetEnabled(false); };
  DoubleClick(f.lstRows, 3);
  EXPECT_EQ(f.TakeLog(), "");
}

TEST_F(Controls, AListKeepsItsOrderAndItsSelectedRow) {
  ListBox& list = f.lstFew;
  for (const char* row : {"b", "C", "a"}) list.AddItem(row);
  list.SetListIndex(1);
  list.AddItem("aa");
  EXPECT_EQ(list.Text(), "b");
  const char* const rows[] = {"", "a", "aa", "b", "C", "one", ""};
  for (int row = -1; row < 6; ++row) EXPECT_EQ(list.List(row), rows[row + 1]) << row;
  for (const int row : {-1, 2, 5}) list.SetList(row, "z");
  EXPECT_EQ(list.Text(), "z");
  list.Clear();
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(Controls, AListRaisesClickOnlyWhenItsSelectedRowChanges) {
  ListBox& list = f.lstFew;
  int clicks = 0;
  list.Click = [&] { ++clicks; };
  list.AddItem("two");
  const std::tuple<int, int, int> rows[] = {
      {1, 1, 1}, {1, 1, 1}, {4, -1, 2}, {-7, -1, 2}, {1, 1, 3}};
  for (const auto& [set, index, raised] : rows) {
    list.SetListIndex(set);
    EXPECT_EQ(list.ListIndex(), index) << set;
    EXPECT_EQ(clicks, raised) << set;
  }
  list.Clear();
  EXPECT_EQ(clicks, 3);
}

TEST_F(Controls, ATextBoxRaisesChangeAndDeselectsOnlyWhenItsTextChanges) {
  f.txtName.SetText("\xC3\xA4zz");
  EXPECT_EQ(f.TakeLog(), "name\xC3\xA4zz ");
  f.txtName.SelStart = 1;
  f.txtName.SelectAll();
  EXPECT_EQ(f.txtName.SelStart, 0);
  EXPECT_EQ(f.txtName.SelLength, 3);
  EXPECT_TRUE(f.txtName.SelectionSet);
  f.txtName.SelStart = 1;
  for (const char* text : {"b", "b"}) f.txtName.SetText(text);
  EXPECT_EQ(f.TakeLog(), "nameb ");
  EXPECT_EQ(f.txtName.SelStart, 0);
  EXPECT_EQ(f.txtName.SelLength, 0);
}

TEST_F(Controls, AnEditPreservesEverythingElse) {
  // The text, the edited text before and after the caret, and the result.
  const char* const edits[][4] = {
      {"a\rb\nc\r\nd", "a\nb\nx", "c\nd", "a\rb\nxc\r\nd"},
      {"\r\n\nb", "", "\nb", "\nb"},       // Delete removes the pair after the caret
      {"a\r\n\nb", "a\n", "b", "a\r\nb"},  // Backspace removes the lone LF
      {"ab", "a\r\n", "b", "a\r\nb"},      // a typed break is CR LF
      {"\xC2\xA0\x01", "\xC2\xA0\x01?", "", "\xC2\xA0\x01?"},
      {"ab", "a\xE2\x82\xAC\xD0\xB6", "b", "a\xE2\x82\xAC?b"},  // a euro, but no Cyrillic
      {"0123456789", "01ABCD", "23456789", "01AB23456789"},
      {"0123456789", "ABCDEFGHIJKLMN", "", "ABCDEFGHIJKL"},
      {"01234567890", "01234567890\n", "", "01234567890"},  // a pair is never split
      {"0123456789abcdef", "x", "0123456789abcdef", "0123456789abcdef"},
      {"0123456789abcdef", "x0123456789abcdef", "", "0123456789abcdef"},  // edited elsewhere
      {"0123456789abcdef", "0", "23456789abcdef", "023456789abcdef"},
      {"abc", "x", "yz", "xyz"},
      {"abc", "", "", ""},
      {"a\nb\rc", "\nb\nca", "", "\nb\rca"}};  // moved: line breaks stay
  TextBox box(f, {"Brief", "", {}, 11}, 12, TextLines::Several);
  for (const auto& [text, before, rest, wanted] : edits) {
    box.SetText(text);
    EditText(box, FindEdit(box, std::string(before) + rest, before));
    EXPECT_EQ(box.Text(), wanted);
  }
}

TEST_F(Controls, TheTypedLimitOrANulEndsAnInsertion) {
  f.txtName.SetText("1\r\n456");
  f.txtName.SelectAll();
  f.TakeLog();
  EditText(f.txtName, {6, 0, "7"});  // no room for it
  EXPECT_EQ(f.TakeLog(), "");
  EXPECT_EQ(f.txtName.Text(), "1\r\n456");
  EXPECT_EQ(ShownText(f.txtName, "\n", 2), "1\r");
  EXPECT_EQ(WithLineBreaks(f.txtName.Text(), "/"), "1/456");
  EXPECT_EQ(f.txtName.SelLength, 0);
  EditText(f.txtName, FindEdit(f.txtName, "\r\n456", ""));
  EXPECT_EQ(f.txtName.Text(), "\r\n456");
  EXPECT_EQ(f.txtName.SelStart, 0);
  EditText(f.txtName, {0, 5, std::string{'a', '\0', 'b'}});
  EXPECT_EQ(f.txtName.Text(), "a");
}
