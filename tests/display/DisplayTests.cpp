#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <variant>

#include "TestForm.h"
#include "display/PlayWhole.h"

namespace corvane {
namespace {

// A press at a control, and keys separated by spaces.
struct At {
  const Control* Pressed;
  std::string Keys = {};
};

// An action, the events that it raises, and the control focused afterwards.
struct Step {
  std::variant<At, const char*, std::function<void()>> Do;
  std::string Events, Focus;
};

void Act(const Step& step) {
  if (step.Do.index() == 2) return std::get<2>(step.Do)();
  const At act = step.Do.index() == 0 ? std::get<0>(step.Do) : At{nullptr, std::get<1>(step.Do)};
  if (act.Pressed) PressAt(*act.Pressed);
  std::istringstream keys(act.Keys);
  for (std::string key; keys >> key;) PressKey(key);
}

void Check(TestForm& f, const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    SCOPED_TRACE("step " + std::to_string(&step - steps.data()));
    Act(step);
    EXPECT_EQ(f.TakeLog(), step.Events);
    EXPECT_EQ(SeenFocus(), step.Focus);
    EXPECT_EQ(f.Focused->Name, step.Focus);
    EXPECT_EQ(ScreenDifferences(f), "");
    EXPECT_EQ(SeenSelection(f.txtNumber), f.txtNumber.Text() == "x" ? "x" : "");
    EXPECT_FALSE(SeenPopup());
  }
}

struct Display : testing::Test {
  void Play(const std::vector<Step>& steps) {
    PlayWhole(f, [&] { Check(f, steps); });
  }
  TestForm f;
};

// A field that has refused its text once.
struct RefusedField : Display {
  void Play(std::vector<Step> steps) {
    f.txtNumber.SetText("x");
    steps.insert(steps.begin(), {At{&f.txtNumber, "Tab"}, "refuse ", "txtNumber"});
    Display::Play(steps);
  }
};

TEST_F(RefusedField, KeepsTheFocusAndBlocksOtherControls) {
  std::vector<Step> steps;
  for (const char* key : {"Tab", "Shift+Tab", "Return", "Alt+H"})
    steps.push_back({key, "refuse ", "txtNumber"});
  for (const Control* control :
       std::initializer_list<const Control*>{&f.cboRows, &f.cmdHelp, &f.txtName, &f.txtLines})
    steps.push_back({At{control}, "refuse ", "txtNumber"});
  steps.push_back({[&] { PressRow(f.lstRows, 2); }, "refuse ", "txtNumber"});
  steps.push_back({[&] { PressScrollBar(f.lstRows); }, "refuse ", "txtNumber"});
  steps.push_back({[&] { DoubleClickRow(f.lstRows, 1); }, "refuse refuse ", "txtNumber"});
  Play(steps);
}

TEST_F(RefusedField, IsNotValidatedWhereTheFocusStays) {
  const auto openAndCloseMenu = [&] {
    for (int press = 0; press < 2; ++press) PressMenu(f.mnuFile);
  };
  Play({{At{&f.Holder}, "", "txtNumber"},
        {At{&f.lblNote}, "", "txtNumber"},
        {At{&f.cmdOff}, "", "txtNumber"},
        {ClickEmptyArea, "", "txtNumber"},
        {openAndCloseMenu, "file ", "txtNumber"},
        {"Alt+F Esc Esc", "file ", "txtNumber"},
        {PressCloseBox, "unload ", "txtNumber"},
        {"Esc", "cancel ", "txtNumber"}});
}

TEST_F(RefusedField, LosesTheFocusOnceItsTextIsAccepted) {
  Play({{[] { Type("1"); }, "", "txtNumber"},
        {[&] { PressRow(f.lstRows, 1); }, "accept rowbee ", "lstRows"}});
}

TEST_F(Display, PicksRowsOfAListByMouseAndKeys) {
  Play({{"Tab", "", "lstFew"},
        {"Shift+Tab", "", "lstRows"},
        {"Down", "rowant ", "lstRows"},
        {"End", "rowhen ", "lstRows"},
        {"B", "rowbee ", "lstRows"},
        {"Ctrl+Space", "", "lstRows"},
        {[&] { PressRow(f.lstRows, 1); }, "", "lstRows"},
        {[&] { PressRow(f.lstRows, 1, true); }, "", "lstRows"},
        {[&] { PressRow(f.lstFew, 1); }, "", "lstFew"},  // below its rows
        {[&] { DoubleClickRow(f.lstFew, 1); }, "", "lstFew"},
        {[&] { DoubleClickRow(f.lstRows, 2); }, "rowcat doublecat ", "lstRows"},
        {[&] { PressRow(f.lstRows, 3); }, "rowdog ", "lstRows"},
        {"Return", "ok ", "lstRows"}});
}

TEST_F(Display, PicksRowsOfAComboBoxByMouseKeysAndWheel) {
  const auto openAndClose = [&] {
    for (const char* key : {"", "F4", "Alt+Down"}) {
      for (const bool opens : {true, false}) {
        *key ? PressKey(key) : PressAt(f.cboRows);
        EXPECT_EQ(SeenPopup(), opens) << key;
      }
    }
  };
  Play({{[&] { TurnWheel(f.cboRows); }, "", "lstRows"},
        {At{&f.cboRows, "Home Return"}, "comboant ", "cboRows"},
        {"Alt+Down Down Esc", "", "cboRows"},
        {"Down", "combobee ", "cboRows"},
        {"F", "combofox ", "cboRows"},
        {[&] { TurnWheel(f.cboRows); }, "combognu ", "cboRows"},
        {openAndClose, "", "cboRows"},
        {At{&f.cboRows, "Return"}, "combognu ", "cboRows"},
        {"End", "combohen ", "cboRows"},
        {"Down", "", "cboRows"},
        {"H", "", "cboRows"}});
}

TEST_F(Display, PressesButtonsByMouseAndKeys) {
  Play({{"Alt+H", "help ", "cmdHelp"},
        {"Space", "help ", "cmdHelp"},
        {"Return", "help ", "cmdHelp"},
        {"Up", "", "cmdHelp"},
        {At{&f.cmdOK}, "ok ", "cmdOK"},
        {At{&f.txtLines}, "", "txtLines"},
        {"Return", "ok ", "txtLines"}});
}

TEST_F(Display, ChoosesMenuItemsByMouseAndKeys) {
  const auto chooseDisabled = [&] {
    PressMenu(f.mnuFile);
    EXPECT_FALSE(SeenEnabled(f.mnuSave));
    PressItem(f.mnuSave);
    ClickEmptyArea();  // closes the menu
  };
  const auto choose = [&] {
    PressMenu(f.mnuFile);
    PressItem(f.mnuSave);
  };
  Play({{chooseDisabled, "file ", "lstRows"},
        {choose, "file save ", "lstRows"},
        {"Ctrl+S", "file ", "lstRows"},
        {"Ctrl+S", "file save ", "lstRows"},
        {"Alt+F Esc Esc", "file ", "lstRows"}});
}

const std::string Odd = "\x01\t\x0b\x0c \xC2\xA0\xC2\x81\xC3\xBF~";  // all must survive

TEST_F(Display, ShowsCorrectionsOfTypedText) {
  PlayWhole(f, [&] {
    PressAt(f.txtName);
    Type("a");
    PressKey("Home");
    Type("\xE6\xBC\xA2ZYXW");
    EXPECT_EQ(f.txtName.Text(), "?ZYXa");
    EXPECT_EQ(Seen(f.txtName), "?ZYXa");
    EXPECT_EQ(f.TakeLog(), "namea name?a name?Za name?ZYa name?ZYXa ");
    const std::pair<const char*, const char*> keys[] = {
        {"Ctrl+Z", "a"}, {"Ctrl+Z", ""}, {"Ctrl+Y", "a"}, {"Ctrl+Y", "?ZYXa"}};
    for (const auto& [key, text] : keys) {
      PressKey(key);
      EXPECT_EQ(f.txtName.Text(), text);
      EXPECT_EQ(Seen(f.txtName), text);
    }
  });
}

TEST_F(Display, PreservesTheRestOfSeveralLines) {
  f.txtLines.SetText("1\r2\n3\r\n" + Odd);
  PlayWhole(f, [&] {
    PressAt(f.txtLines);
    PressKey("Ctrl+Home");
    Type("0");
    PressKey("Ctrl+Return");
    EXPECT_EQ(f.txtLines.Text(), "0\r\n1\r2\n3\r\n" + Odd);
    EXPECT_EQ(Seen(f.txtLines), "0\n1\n2\n3\n" + Odd);
    Type("AB");  // one beyond the limit
    EXPECT_EQ(Seen(f.txtLines), "0\nA1\n2\n3\n" + Odd);
  });
}

TEST_F(Display, ShowsChangedRowsAndDisabledOrHiddenControls) {
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
    PressRow(f.lstRows, 3);
    PressAt(f.cboRows);
    PressKey("Home");
    PressKey("Return");
    PressKey("F");
    EXPECT_EQ(f.cboRows.Text(), "fox");
    PressAt(f.cmdOK);
    EXPECT_EQ(f.lstRows.ListCount(), 2);
    EXPECT_EQ(ScreenDifferences(f), "");
  });
}

// Every input from outside, on a window that must ignore it.
void ActFromOutside(TestForm& f) {
  CloseFromOutside(f);
  ChooseFromOutside(f.mnuSave);
  ClickFromOutside(f.cmdHelp);
  FillFromOutside(f.txtName, "late");
  EXPECT_EQ(f.TakeLog(), "");
  EXPECT_EQ(f.txtName.Text(), "");
  EXPECT_TRUE(f.IsOpen());
}

TEST_F(Display, AcceptsInputFromOutsideInTheTopmostWindowOnly) {
  TestForm dialog;
  int attempts = 0;
  dialog.Caption = "Dialog";
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  dialog.QueryUnload = [] { return true; };
  f.cmdOK.Click = [&] { Tell("box"); };
  f.cmdCancel.Click = [&] { dialog.ShowModal(); };
  PlayWhole(f, [&] {
    for (const char* key : {"Return", "Esc"}) {  // first a box, then a dialog
      WhenNext([&, key] {
        ActFromOutside(f);
        ++attempts;
        PressKey(key);
      });
      PressKey(key);
      EXPECT_EQ(ScreenDifferences(f), "");
    }
    EXPECT_EQ(attempts, 2);
    CloseFromOutside(f);
    ClickFromOutside(f.cmdHelp);
    ChooseFromOutside(f.mnuSave);
    FillFromOutside(f.txtName, "now");
    EXPECT_EQ(f.TakeLog(), "unload help save namenow ");
  });
}

TEST_F(Display, AsksBeforeTheSessionEnds) {
  PlayWhole(f, [&] {
    EndSessionFromOutside();
    EXPECT_EQ(f.TakeLog(), "unload ");
    EXPECT_FALSE(TheDisplay.HasEnded);
    f.QueryUnload = [] { return true; };
    EndSessionFromOutside();
    EXPECT_TRUE(TheDisplay.HasEnded);
  });
}

TEST_F(Display, EndsWithoutAQuestionWhileADialogIsOpen) {
  TestForm dialog;
  f.cmdOK.Click = [&] { dialog.ShowModal(); };
  dialog.cmdCancel.Click = [] { EndProgram(); };
  PlayWhole(f, [&] {
    WhenNext([] { PressKey("Esc"); });
    PressAt(f.cmdOK);
  });
  EXPECT_EQ(f.TakeLog() + dialog.TakeLog(), "");
}

struct Question : testing::TestWithParam<std::pair<std::string, const char*>> {};
INSTANTIATE_TEST_SUITE_P(, Question,
                         testing::Values(std::pair("?", "Return"), std::pair("?", "Y"),
                                         std::pair(std::string(400, '\n'), "Esc"),
                                         std::pair(std::string(2000, 'w'), "N")));

TEST_P(Question, IsShownCompletelyOverTheCurrentState) {
  const std::string& text = GetParam().first;  // clang++ 14 cannot capture structured bindings
  const char* const key = GetParam().second;
  const bool yes = key == std::string("Return") || key == std::string("Y");
  TestForm f;
  std::optional<bool> answer;
  f.cmdOK.Click = [&] {
    f.txtName.SetText("set");
    answer = Ask(text);
  };
  PlayWhole(f, [&] {
    WhenNext([&] {
      const ShownMessage seen = SeenMessage();
      EXPECT_EQ(seen.Title, "Corvane");
      EXPECT_EQ(seen.Buttons, "Yes No ");
      EXPECT_EQ(seen.Text, text);
      EXPECT_EQ(seen.Description, text);
      EXPECT_TRUE(seen.OnScreen);
      EXPECT_EQ(Seen(f.txtName), "set");
      PressKey(key);
    });
    PressAt(f.cmdOK);
    EXPECT_EQ(SeenFocus(), "cmdOK");
  });
  EXPECT_EQ(answer, yes);
}

TEST_F(Display, RunsADialogUntilItIsUnloaded) {
  TestForm dialog;
  f.cmdOK.Click = [&] {
    dialog.ShowModal();
    f.txtName.SetText("back");
  };
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  PlayWhole(f, [&] {
    WhenNext([&] {
      Check(dialog, {{"Esc", "unload ", "lstRows"}});  // refused
      EXPECT_EQ(f.txtName.Text(), "");
      dialog.QueryUnload = [] { return true; };
      PressKey("Esc");
    });
    PressKey("Return");
    EXPECT_EQ(Seen(f.txtName), "back");
    EXPECT_EQ(SeenFocus(), "lstRows");
  });
}

}  // namespace
}  // namespace corvane
