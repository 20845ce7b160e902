#include <gtest/gtest.h>

#include <variant>

#include "Driver.h"

namespace corvane {
namespace {

// A control of each kind; every event leaves a word in the log.
struct TestForm : Form {
  TestForm() : Form({"Test", 6600, 5400, Border::FixedDialog, Place{600, 600, 0, 0}}) {
    for (const char* row : {"ant", "bee", "cat", "dog", "eel", "fox", "gnu", "hen"})
      lstRows.AddItem(row), cboRows.AddItem(row);
    EnterButton = &cmdOK, EscapeButton = &cmdCancel;
    lstFew.AddItem("one"), cmdOff.SetEnabled(false);
    const auto say = [this](const char* word) { return [this, word] { Log += word; }; };
    cmdOK.Click = say("ok "), cmdCancel.Click = say("cancel "), cmdHelp.Click = say("help ");
    mnuSave.Click = say("save ");
    mnuFile.Click = [this] { Log += "file ", mnuSave.Enabled = !mnuSave.Enabled; };
    lstRows.Click = [this] { Log += "row" + lstRows.Text() + " "; };
    lstRows.DblClick = [this] { Log += "double" + lstRows.Text() + " "; };
    cboRows.Click = [this] { Log += "combo" + cboRows.Text() + " "; };
    txtName.Change = [this] { Log += "name" + txtName.Text() + " "; };
    QueryUnload = [this](bool& cancel) { Log += "unload ", cancel = true; };
    txtNumber.Validate = [this](bool& cancel) {
      cancel = txtNumber.Text() == "x";
      Log += cancel ? "refuse " : "accept ";
      if (cancel) txtNumber.SelectAll();
    };
  }
  // clang-format off
  Frame    Holder   {*this, {"Holder",    "Holder", { 120,  360, 2400, 4980}, 20}};
  ListBox  lstRows  {*this, {"lstRows",   "",       { 120,  240, 2055, 1005},  0, &Holder}};
  ListBox  lstFew   {*this, {"lstFew",    "",       { 120, 1440, 2055,  990},  1, &Holder}};
  ComboBox cboRows  {*this, {"cboRows",   "",       { 120, 2640,  975,  315},  2, &Holder}};
  TextBox  txtNumber{*this, {"txtNumber", "",       {2760,  360,  615,  285},  3}};
  TextBox  txtName  {*this, {"txtName",   "",       {2760,  720, 1455,  285},  4}, 5};
  TextBox  txtLines {*this, {"txtLines",  "",       {2760, 1200, 3600, 1335},  5}, 0, true};
  Button   cmdOK    {*this, {"cmdOK",     "OK",     {2760, 2880, 1215,  375},  6}};
  Button   cmdCancel{*this, {"cmdCancel", "Cancel", {2760, 3360, 1215,  375},  7}};
  Button   cmdHelp  {*this, {"cmdHelp",   "&Help",  {2760, 3840, 1215,  375},  8}};
  Button   cmdOff   {*this, {"cmdOff",    "Off",    {2760, 4320, 1215,  375},  9}};
  Label    lblNote  {*this, {"lblNote",   "Note",   {4200, 2880, 1215,  255}, 10}, Alignment::Left};
  MenuEntry mnuFile {*this,   "mnuFile", "&File"};
  MenuItem  mnuSave {mnuFile, "mnuSave", "&Save", Shortcut::CtrlS};
  std::string Log;
};

// The events raised by a key, a press at a control or more, and where the keyboard is then.
struct Step {
  std::string Events, Focus;
  std::variant<const char*, const Control*, std::function<void()>> Do;
};

void Check(TestForm& f, const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    const auto& [events, focus, act] = step;
    if (act.index() == 0) Strike(std::get<0>(act));
    if (act.index() == 1) PressAt(*std::get<1>(act));
    if (act.index() == 2) std::get<2>(act)();
    SCOPED_TRACE("step " + std::to_string(&step - steps.data()));
    EXPECT_EQ(std::exchange(f.Log, ""), events);
    EXPECT_EQ(SeenFocus() + "/" + f.Focused->Name, focus + "/" + focus);
    EXPECT_EQ(Seen(f.lstRows) + Seen(f.cboRows), f.lstRows.Text() + f.cboRows.Text());
    EXPECT_EQ(Seen(f.txtNumber), f.txtNumber.Text() == "x" ? "[x]" : f.txtNumber.Text());
    EXPECT_FALSE(SeenPopup());
  }
}

TEST(Display, KeepsTheFocusInARefusedFieldAndLetsNothingReact) {
  TestForm f;
  f.txtNumber.SetText("x");
  const char *no = "refuse ", *in = "txtNumber";
  Play(f, [&] {
    PressAt(f.txtNumber), Strike("Tab"), f.Log = "";
    Check(f, {{no, in, "Tab"}, {no, in, "Shift+Tab"}, {no, in, "Return"}, {no, in, "Alt+H"},
              {no, in, &f.cboRows}, {no, in, &f.cmdHelp}, {no, in, &f.txtName},
              {no, in, &f.txtLines}, {no, in, [&] { PressRow(f.lstRows, 2); }},
              {no, in, [&] { PressScrollBar(f.lstRows); }},
              {"refuse refuse ", in, [&] { DoubleClickRow(f.lstRows, 1); }},
              {"", in, &f.Holder}, {"", in, &f.lblNote}, {"", in, &f.cmdOff}, {"", in, PressBeside},
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
    PressItem(f.mnuSave), PressBeside();  // which closes the menu
  };
  Play(f, [&] {
    Check(f, {
        {"", "lstFew", "Tab"}, {"", "lstRows", "Shift+Tab"}, {"rowant ", "lstRows", "Down"},
        {"rowhen ", "lstRows", "End"}, {"rowbee ", "lstRows", "B"}, {"", "lstRows", "Ctrl+Space"},
        {"", "lstRows", [&] { PressRow(f.lstRows, 1), PressRow(f.lstRows, 1, true); }},
        {"", "lstFew", [&] { PressRow(f.lstFew, 1); }},  // below its rows
        {"rowcat doublecat ", "lstRows", [&] { DoubleClickRow(f.lstRows, 2); }},
        {"", "lstRows", [&] { TurnWheel(f.cboRows); }},
        {"comboant ", "cboRows", [&] { PressAt(f.cboRows), Strike("Home"), Strike("Return"); }},
        {"", "cboRows", [] { Strike("Alt+Down"), Strike("Down"), Strike("Esc"); }},
        {"combobee ", "cboRows", "Down"}, {"combofox ", "cboRows", "F"},
        {"combognu ", "cboRows", [&] { TurnWheel(f.cboRows); }}, {"help ", "cmdHelp", "Alt+H"},
        {"help ", "cmdHelp", "Space"}, {"help ", "cmdHelp", "Return"}, {"", "cmdHelp", "Up"},
        {"ok ", "cmdOK", &f.cmdOK}, {"", "txtLines", &f.txtLines}, {"ok ", "txtLines", "Return"},
        {"rowdog ok ", "lstRows", [&] { PressRow(f.lstRows, 3), Strike("Return"); }},
        {"file ", "lstRows", openInVain},
        {"file save ", "lstRows", [&] { PressMenu(f.mnuFile), PressItem(f.mnuSave); }},
        {"file ", "lstRows", "Ctrl+S"}, {"file save ", "lstRows", "Ctrl+S"},
        {"file ", "lstRows", [] { Strike("Alt+F"), Strike("Esc"), Strike("Esc"); }}});
    EXPECT_EQ(Seen(f.lstFew), "");
  });
}
// clang-format on

TEST(Display, ShowsWhatBecomesOfATextAndSparesTheRest) {
  const std::string odd = "\x01\t\x0b\x0c \xC2\xA0\xC2\x81\xC3\xBF~";  // none may be lost
  TestForm f;
  f.txtNumber.SetText(odd), f.txtName.SetText("beyond"), f.txtLines.SetText("1\r2\n3\r\n" + odd);
  Play(f, [&] {
    PressAt(f.txtName), Strike("End"), Type("s");
    EXPECT_EQ(Seen(f.txtName), "beyond");
    f.txtName.SetText(""), Strike("Tab"), Strike("Shift+Tab"), f.Log = "";
    Type("a"), Strike("Home"), Type("\xE6\xBC\xA2ZYXW");
    EXPECT_EQ(f.Log + Seen(f.txtName), "namea name?a name?Za name?ZYa name?ZYXa ?ZYXa");
    Strike("Ctrl+Z");
    EXPECT_EQ(Seen(f.txtName), f.txtName.Text());
    PressAt(f.txtNumber), Strike("End"), Type("1");
    EXPECT_EQ(f.txtNumber.Text(), odd + "1");
    PressAt(f.txtLines), Strike("Ctrl+Home"), Type("0"), Strike("Ctrl+Return");
    EXPECT_EQ(f.txtLines.Text(), "0\r\n1\r2\n3\r\n" + odd);
    EXPECT_EQ(Seen(f.txtLines), "0\n1\n2\n3\n" + odd);
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
      Strike(texts[1]);
    };
    Play(f, [&] { WhenNext(answer), Check(f, {{texts[2], "cmdOK", &f.cmdOK}}); });
  }
}

TEST(Display, RunsADialogUntilItIsUnloadedAndEndsWithNoQuestion) {
  TestForm f, dialog;
  f.cmdOK.Click = [&] { dialog.ShowModal(), f.txtName.SetText("back"); };
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  const auto leave = [&] {
    Check(dialog, {{"unload ", "lstRows", "Esc"}});
    dialog.QueryUnload = [](bool&) {};
    Strike("Esc");
  };
  Play(f, [&] {
    WhenNext(leave), Check(f, {{"nameback ", "cmdOK", &f.cmdOK}});
    EXPECT_EQ(Seen(f.txtName), "back");
    dialog.cmdCancel.Click = [] { TheDisplay.EndProgram(); };
    WhenNext([] { Strike("Esc"); }), PressAt(f.cmdOK);
  });
  EXPECT_EQ(f.Log, "");
}

}  // namespace
}  // namespace corvane
