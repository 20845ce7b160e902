#include <gtest/gtest.h>

#include <variant>

#include "Driver.h"
#include "TestForm.h"

namespace corvane {
namespace {

// The events raised by a key, a press at a control or more, and where the keyboard is then.
struct Step {
  std::string Events, Focus;
  std::variant<const char*, const Control*, std::function<void()>> Do;
};

void Check(TestForm& f, const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    const auto& [events, focus, act] = step;
    if (act.index() == 0) PressKey(std::get<0>(act));
    if (act.index() == 1) PressAt(*std::get<1>(act));
    if (act.index() == 2) std::get<2>(act)();
    SCOPED_TRACE("step " + std::to_string(&step - steps.data()));
    EXPECT_EQ(f.Told(), events);
    EXPECT_EQ(SeenFocus(), focus);
    EXPECT_EQ(f.Focused->Name, focus);
    EXPECT_EQ(ScreenDifferences(f), "");
    EXPECT_EQ(Seen(f.txtNumber), f.txtNumber.Text() == "x" ? "[x]" : f.txtNumber.Text());
    EXPECT_FALSE(SeenPopup());
  }
}

// Without a window the script would not be played, and nothing in it could fail.
void PlayWhole(TestForm& f, const std::function<void()>& script) {
  bool played = false;
  Play(f, [&] { script(), played = true; });
  EXPECT_TRUE(played);
}

// clang-format off
TEST(Display, KeepsTheFocusInARefusedFieldAndLetsNothingReact) {
  TestForm f;
  f.txtNumber.SetText("x");
  const char *no = "refuse ", *in = "txtNumber";
  PlayWhole(f, [&] {
    PressAt(f.txtNumber), PressKey("Tab"), f.Log = "";
    Check(f, {{no, in, "Tab"}, {no, in, "Shift+Tab"}, {no, in, "Return"}, {no, in, "Alt+H"},
              {no, in, &f.cboRows}, {no, in, &f.cmdHelp}, {no, in, &f.txtName},
              {no, in, &f.txtLines}, {no, in, [&] { PressRow(f.lstRows, 2); }},
              {no, in, [&] { PressScrollBar(f.lstRows); }},
              {"refuse refuse ", in, [&] { DoubleClickRow(f.lstRows, 1); }},
              {"", in, &f.Holder}, {"", in, &f.lblNote}, {"", in, &f.cmdOff}, {"", in, ClickEmptyArea},
              {"file ", in, [&] { PressMenu(f.mnuFile), PressMenu(f.mnuFile); }},
              {"unload ", in, PressCloseBox}, {"cancel ", in, "Esc"},
              {"accept rowbee ", "lstRows", [&] { Type("1"), PressRow(f.lstRows, 1); }}});
  });
}

TEST(Display, TurnsMouseAndKeysIntoEvents) {
  TestForm f;
  const auto openInVain = [&] {
    PressMenu(f.mnuFile);
    EXPECT_FALSE(SeenEnabled(f.mnuSave));
    PressItem(f.mnuSave), ClickEmptyArea();  // which closes the menu
  };
  PlayWhole(f, [&] {
    Check(f, {
        {"", "lstFew", "Tab"}, {"", "lstRows", "Shift+Tab"}, {"rowant ", "lstRows", "Down"},
        {"rowhen ", "lstRows", "End"}, {"rowbee ", "lstRows", "B"}, {"", "lstRows", "Ctrl+Space"},
        {"", "lstRows", [&] { PressRow(f.lstRows, 1), PressRow(f.lstRows, 1, true); }},
        {"", "lstFew", [&] { PressRow(f.lstFew, 1); }},  // below its rows
        {"rowcat doublecat ", "lstRows", [&] { DoubleClickRow(f.lstRows, 2); }},
        {"", "lstRows", [&] { TurnWheel(f.cboRows); }},
        {"comboant ", "cboRows", [&] { PressAt(f.cboRows), PressKey("Home"), PressKey("Return"); }},
        {"", "cboRows", [] { PressKey("Alt+Down"), PressKey("Down"), PressKey("Esc"); }},
        {"combobee ", "cboRows", "Down"}, {"combofox ", "cboRows", "F"},
        {"combognu ", "cboRows", [&] { TurnWheel(f.cboRows); }}, {"help ", "cmdHelp", "Alt+H"},
        {"help ", "cmdHelp", "Space"}, {"help ", "cmdHelp", "Return"}, {"", "cmdHelp", "Up"},
        {"ok ", "cmdOK", &f.cmdOK}, {"", "txtLines", &f.txtLines}, {"ok ", "txtLines", "Return"},
        {"rowdog ok ", "lstRows", [&] { PressRow(f.lstRows, 3), PressKey("Return"); }},
        {"file ", "lstRows", openInVain},
        {"file save ", "lstRows", [&] { PressMenu(f.mnuFile), PressItem(f.mnuSave); }},
        {"file ", "lstRows", "Ctrl+S"}, {"file save ", "lstRows", "Ctrl+S"},
        {"file ", "lstRows", [] { PressKey("Alt+F"), PressKey("Esc"), PressKey("Esc"); }}});
    EXPECT_EQ(Seen(f.lstFew), "");
  });
}
// clang-format on

TEST(Display, ShowsWhatBecomesOfATextAndSparesTheRest) {
  const std::string odd = "\x01\t\x0b\x0c \xC2\xA0\xC2\x81\xC3\xBF~";  // none may be lost
  TestForm f;
  f.txtNumber.SetText(odd), f.txtName.SetText("beyond"), f.txtLines.SetText("1\r2\n3\r\n" + odd);
  PlayWhole(f, [&] {
    PressAt(f.txtName), PressKey("End"), Type("s");
    EXPECT_EQ(Seen(f.txtName), "beyond");
    f.txtName.SetText(""), PressKey("Tab"), PressKey("Shift+Tab"), f.Log = "";
    Type("a"), PressKey("Home"), Type("\xE6\xBC\xA2ZYXW");
    EXPECT_EQ(f.Log + Seen(f.txtName), "namea name?a name?Za name?ZYa name?ZYXa ?ZYXa");
    for (const auto& [key, text] : {std::pair("Ctrl+Z", "a"), std::pair("Ctrl+Z", ""),
                                    std::pair("Ctrl+Y", "a"), std::pair("Ctrl+Y", "?ZYXa")}) {
      PressKey(key);
      EXPECT_EQ(f.txtName.Text(), text);
      EXPECT_EQ(Seen(f.txtName), text);
    }
    PressAt(f.txtNumber), PressKey("End"), Type("1");
    EXPECT_EQ(f.txtNumber.Text(), odd + "1");
    PressAt(f.txtLines), PressKey("Ctrl+Home"), Type("0"), PressKey("Ctrl+Return");
    EXPECT_EQ(f.txtLines.Text(), "0\r\n1\r2\n3\r\n" + odd);
    EXPECT_EQ(Seen(f.txtLines), "0\n1\n2\n3\n" + odd);
    Type("AB");  // one more than the limit takes
    EXPECT_EQ(Seen(f.txtLines), "0\nA1\n2\n3\n" + odd);
  });
}

TEST(Display, ShowsRowsThatComeAndGoAndWhatIsGreyedOrHidden) {
  TestForm f;
  f.cmdOK.Click = [&] {
    f.lstRows.Clear();
    for (const char* row : {"dog", "ant"}) f.lstRows.AddItem(row);
    f.cboRows.Clear();
    f.cboRows.AddItem("only");
    f.lstFew.SetList(0, "changed");
    f.txtName.SetText("set");
    f.cmdOff.SetEnabled(true);
    f.cmdHelp.SetVisible(false);
    f.lstFew.SetEnabled(false);
  };
  PlayWhole(f, [&] {
    PressRow(f.lstRows, 3), PressAt(f.cboRows), PressKey("Home"), PressKey("Return"), PressKey("F");
    EXPECT_EQ(f.cboRows.Text(), "fox");
    EXPECT_EQ(ScreenDifferences(f), "");
    PressAt(f.cmdOK);
    EXPECT_EQ(f.lstRows.ListCount(), 2);
    EXPECT_EQ(ScreenDifferences(f), "");
  });
}

// Every way from outside into a window that must not hear it.
void Disturb(TestForm& f) {
  CloseFromOutside(f);
  ChooseFromOutside(f.mnuSave);
  ClickFromOutside(f.cmdHelp);
  FillFromOutside(f.txtName, "late");
  EXPECT_EQ(f.Told(), "");
  EXPECT_EQ(f.txtName.Text(), "");
  EXPECT_TRUE(f.IsOpen());
}

TEST(Display, HearsAnyoneOnlyInTheTopmostWindow) {
  TestForm f, dialog;
  int disturbed = 0;
  dialog.Caption = "Dialog";
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  dialog.QueryUnload = [] { return true; };
  f.cmdOK.Click = [&] { Tell("box"); };
  f.cmdCancel.Click = [&] { dialog.ShowModal(); };
  PlayWhole(f, [&] {
    for (const char* key : {"Return", "Esc"}) {  // a box, then a dialog
      WhenNext([&, key] {
        Disturb(f);
        ++disturbed;
        PressKey(key);
      });
      PressKey(key);
      EXPECT_EQ(ScreenDifferences(f), "");
    }
    EXPECT_EQ(disturbed, 2);
    CloseFromOutside(f);
    ClickFromOutside(f.cmdHelp);
    ChooseFromOutside(f.mnuSave);
    FillFromOutside(f.txtName, "now");
    EXPECT_EQ(f.Told(), "unload help save namenow ");
  });
}

TEST(Display, AsksBeforeTheSessionEnds) {
  TestForm f;
  PlayWhole(f, [&] {
    EndSessionFromOutside();
    EXPECT_EQ(f.Told(), "unload ");
    EXPECT_FALSE(TheDisplay.HasEnded);
    f.QueryUnload = [] { return true; };
    EndSessionFromOutside();
    EXPECT_TRUE(TheDisplay.HasEnded);
  });
}

TEST(Display, ShowsMessagesWholeOverTheStateOfTheirMoment) {
  const std::string lines(400, '\n'), letters(2000, 'w'), yes = "nameset yes ", no = "nameset no ";
  const std::vector<std::vector<std::string>> cases = {
      {"?", "Return", yes}, {"?", "Y", yes}, {lines, "Esc", no}, {letters, "N", no}};
  for (const std::vector<std::string>& texts : cases) {
    TestForm f;
    f.cmdOK.Click = [&] { f.txtName.SetText("set"), f.Log += Ask(texts[0]) ? "yes " : "no "; };
    const auto answer = [&] {
      const ShownMessage seen = SeenMessage();
      EXPECT_EQ(seen.Title + seen.Buttons + seen.Text, "CorvaneYes No " + texts[0]);
      EXPECT_TRUE(seen.OnScreen && Seen(f.txtName) == "set") << texts[0];
      PressKey(texts[1]);
    };
    PlayWhole(f, [&] { WhenNext(answer), Check(f, {{texts[2], "cmdOK", &f.cmdOK}}); });
  }
}

TEST(Display, RunsADialogUntilItIsUnloadedAndEndsWithNoQuestion) {
  TestForm f, dialog;
  f.cmdOK.Click = [&] { dialog.ShowModal(), f.txtName.SetText("back"); };
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  const auto leave = [&] {
    Check(dialog, {{"unload ", "lstRows", "Esc"}});
    dialog.QueryUnload = [&] { return f.Log += "left ", true; };
    PressKey("Esc");
  };
  PlayWhole(f, [&] {
    WhenNext(leave), Check(f, {{"left nameback ", "lstRows", "Return"}});
    EXPECT_EQ(Seen(f.txtName), "back");
    dialog.cmdCancel.Click = [&] { f.Log += "end ", EndProgram(); };
    WhenNext([] { PressKey("Esc"); }), PressAt(f.cmdOK);
  });
  EXPECT_EQ(f.Log, "end ");
}

}  // namespace
}  // namespace corvane
