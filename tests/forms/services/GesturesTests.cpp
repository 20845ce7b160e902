#include "Gestures.h"

#include <gtest/gtest.h>

#include "Display.h"

using namespace corvane;

// Two fields, a list, a combo box and two buttons that write down their events.
struct EventForm : Form {
  EventForm() : Form({"Events", 1500, 1500, Border::Resizable}) {
    Second.Validate = [this](bool& cancel) {
      Log += "validate(" + std::to_string(List.ListIndex()) + ") ";
      cancel = Refuse;
    };
    First.Change = [this] { Log += "change "; };
    List.Click = [this] { Log += "list" + std::to_string(List.ListIndex()) + " "; };
    List.DblClick = [this] { Log += "double "; };
    Combo.Click = [this] { Log += "combo" + std::to_string(Combo.ListIndex()) + " "; };
    Ok.Click = [this] { Log += "ok "; };
    Cancel.Click = [this] { Log += "cancel "; };
    Menu.Click = [this] {
      Log += "menu ";
      Item.Enabled = Allow;
    };
    Item.Click = [this] { Log += "item "; };
    QueryUnload = [this](bool& cancel) { cancel = Refuse; };
    for (const char* row : {"b", "C", "a"}) {
      List.AddItem(row);
      Combo.AddItem(row);
    }
    EnterButton = &Ok;
    EscapeButton = &Cancel;
    Open();
  }
  Button Ok{*this, {"Ok", "OK", {}, 5}};
  TextBox Second{*this, {"Second", "", {}, 2}};
  TextBox First{*this, {"First", "", {}, 1}, 3};
  Label Between{*this, {"Between", "", {}, 3}, Alignment::Left};
  ListBox List{*this, {"List", "", {}, 4}, true};
  ComboBox Combo{*this, {"Combo", "", {}, 7}};
  Button Cancel{*this, {"Cancel", "", {}, 6}};
  MenuEntry Menu{*this, "Menu", ""};
  MenuItem Item{Menu, "Item", "", Shortcut::CtrlS};
  bool Refuse = false, Allow = true;
  std::string Log;

  std::string After(const std::function<void()>& gesture) {
    Log.clear();
    gesture();
    return Log;
  }
};

TEST(Gestures, ValidateComesFirstAndARefusalLeavesEverything) {
  EventForm form;
  ASSERT_EQ(form.Focused, &form.First);
  PickRow(form.List, 0);
  for (const bool refuse : {true, false}) {
    form.Refuse = refuse;
    const auto check = [&](const std::function<void()>& gesture, const char* wanted) {
      form.Focused = &form.Second;
      const std::string log = form.After(gesture);
      EXPECT_EQ(log, refuse ? log.substr(0, 12) : wanted);
      EXPECT_TRUE(log.starts_with("validate(")) << wanted;
      if (refuse) {
        EXPECT_EQ(form.Focused, &form.Second) << wanted;
      }
    };
    check([&] { PickRow(form.List, 1); }, "validate(0) list1 ");
    check([&] { DoubleClick(form.List, 2); }, "validate(1) list2 double ");
    check([&] { PickRow(form.Combo, refuse ? 0 : 1); }, "validate(2) combo1 ");
    check([&] { Press(form.Cancel); }, "validate(2) cancel ");
    check([&] { PressKey(form, Key::Enter); }, "validate(2) ok ");
    check([&] { PressKey(form, Key::Tab); }, "validate(2) ");
    check([&] { PressKey(form, Key::BackTab); }, "validate(2) ");
    check([&] { EditText(form.First, {0, 0, refuse ? "x" : "y"}); }, "validate(2) change ");
  }
  EXPECT_EQ(form.First.Text(), "y");
  form.Refuse = true;
  form.Focused = &form.Second;
  EXPECT_EQ(form.After([&] { PressKey(form, Key::Escape); }), "cancel ");
  EXPECT_EQ(form.After([&] { Choose(form.Item); }), "item ");
  EXPECT_EQ(form.After([&] { CloseWindow(form); }), "");
  EXPECT_TRUE(form.IsOpen());
  form.Refuse = false;
  CloseWindow(form);
  EXPECT_FALSE(form.IsOpen());
}

TEST(Gestures, TabGoesRoundThroughWhatTakesTheFocus) {
  EventForm form;
  form.Cancel.SetEnabled(false);
  form.Ok.SetVisible(false);
  std::string names;
  for (int press = 0; press < 5; ++press) {
    names += std::string(form.Focused->Name) + " ";
    PressKey(form, Key::Tab);
  }
  EXPECT_EQ(names, "First Second List Combo First ");
  PressKey(form, Key::BackTab);
  PressKey(form, Key::BackTab);
  EXPECT_EQ(form.Focused, &form.Combo);
  form.Combo.SetEnabled(false);  // was the last: on to the first
  EXPECT_EQ(form.Focused, &form.First);
  EXPECT_FALSE(MoveFocus(form.Combo));
  EXPECT_EQ(form.After([&] { PickRow(form.Combo, 2); }), "");
  EXPECT_EQ(form.After([&] { PressKey(form, Key::Enter); }), "");
  form.Cancel.SetEnabled(true);
  Press(form.Cancel);
  EXPECT_EQ(form.After([&] { PressKey(form, Key::Enter); }), "cancel ");  // it has the focus
}

TEST(Gestures, AShortcutSeesWhatOpeningTheMenuWouldGive) {
  EventForm form;
  form.Allow = false;
  EXPECT_EQ(form.After([&] { PressShortcut(form, Shortcut::CtrlS); }), "menu ");
  form.Allow = true;
  EXPECT_EQ(form.After([&] { PressShortcut(form, Shortcut::CtrlS); }), "menu item ");
}

TEST(Controls, ASelectedRowSpeaksOnChangeAlone) {
  EventForm form;
  EXPECT_EQ(form.List.List(0) + form.List.List(1) + form.List.List(2) + form.List.List(3), "abC");
  EXPECT_EQ(form.Combo.List(0), "b");
  EXPECT_EQ(form.After([&] { form.List.SetListIndex(1); }), "list1 ");
  EXPECT_EQ(form.After([&] { form.List.SetListIndex(1); }), "");
  EXPECT_EQ(form.After([&] { form.List.AddItem("aa"); }), "");
  EXPECT_EQ(form.List.Text(), "b");  // moved down, still selected
  EXPECT_EQ(form.After([&] { form.List.SetList(2, "z"); }), "");
  EXPECT_EQ(form.After([&] { form.List.SetListIndex(4); }), "list-1 ");
  EXPECT_EQ(form.After([&] { form.List.SetListIndex(-7); }), "");
  form.List.SetListIndex(0);
  EXPECT_EQ(form.After([&] { form.List.Clear(); }), "");
  EXPECT_EQ(form.List.ListIndex(), -1);
  PickRow(form.Combo, 1);
  EXPECT_EQ(form.After([&] { PickRow(form.Combo, 1); }), "combo1 ");  // a choice of the user counts
}

TEST(TextEditing, AnEditChangesWhatTheUserChangedAndNothingElse) {
  struct Row {
    const char *Text, *Shown, *After;
    int Caret;
    const char* Wanted;
  };
  EventForm form;
  TextBox box(form, {"Brief", "", {}, 9}, 12, true);
  for (const Row& row : {
           Row{"a\rb\nc\r\nd", "a\nb\nc\nd", "a\nb\nxc\nd", 5, "a\rb\nxc\r\nd"},
           {"a\r\n\nb", "a\n\nb", "a\nb", 1, "a\nb"},    // Delete takes the pair before the caret
           {"a\r\n\nb", "a\n\nb", "a\nb", 2, "a\r\nb"},  // Backspace takes the lone one
           {"ab", "ab", "a\nb", 2, "a\r\nb"},            // a typed break is a pair
           {"\xC2\xA0\x01", "\xC2\xA0\x01", "\xC2\xA0\x01?", 3, "\xC2\xA0\x01?"},
           {"ab", "ab",
            "a\xE2\x82\xAC\xD0\xB6"
            "b",
            3, "a\xE2\x82\xAC?b"},  // a euro, no Cyrillic
           {"0123456789", "0123456789", "01ABCD23456789", 6, "01AB23456789"},
           {"0123456789", "0123456789", "ABCDEFGHIJKLMN", 14, "ABCDEFGHIJKL"},
           {"01234567890", "01234567890", "01234567890\n", 12, "01234567890"},  // no half of a pair
           {"0123456789abcdef", "0123456789abcdef", "x0123456789abcdef", 1, "0123456789abcdef"},
           {"0123456789abcdef", "0123456789abcdef", "023456789abcdef", 1, "023456789abcdef"},
           {"a\nb\rc", "a\nb\nc", "\nb\nca", 5, "\nb\rca"},  // moved: the breaks stay as they are
           {"aaa", "aaa", "aaaa", 1, "aaaa"},
           {"abc", "abc", "", 0, ""},
       }) {
    SCOPED_TRACE(row.Wanted);
    box.SetText(row.Text);
    EXPECT_EQ(ShownText(box), row.Shown);
    EditText(box, FindEdit(row.Shown, row.After, row.Caret));
    EXPECT_EQ(box.Text(), row.Wanted);
  }
  EXPECT_EQ(FindEdit("aXbXc", "aXc", 1).Start, 1);
  EXPECT_EQ(FindEdit("abc", "xyz", 99).Removed, 3);
  box.SetText("\xC3\xA4\r\nb");
  box.SelectAll();
  EXPECT_EQ(box.SelLength, 3);
  form.First.SetText("12345");  // the program's own filling is not held to the limit
  EXPECT_EQ(form.After([&] { EditText(form.First, {5, 0, "\n6"}); }), "");
  EXPECT_EQ(form.First.Text(), "12345");
}
