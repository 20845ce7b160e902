#include <gtest/gtest.h>

#include "TestForm.h"
#include "services/Display.h"
#include "services/Gestures.h"

using namespace corvane;

namespace {

struct SessionEnd : testing::Test {
  SessionEnd() {
    TheDisplay.EndProgram = [this] { ++Ends; };
    Main.Open();
    Dialog.Open();
    Main.QueryUnload = [this] { return Main.Log += "unload ", MainAgrees; };
    Dialog.QueryUnload = [] { return true; };
    Dialog.QueryEndSession = [this] { return Main.Log += "dialog ", DialogAgrees; };
  }
  ~SessionEnd() override { TheDisplay = {}; }

  TestForm Main, Dialog;
  bool MainAgrees = true, DialogAgrees = true;
  int Ends = 0;
};

}  // namespace

TEST_F(SessionEnd, AsksFromTheTopmostWindowDown) {
  EXPECT_TRUE(QueryEndSession());
  EXPECT_EQ(Main.TakeLog(), "dialog unload ");
  EXPECT_EQ(Ends, 0);  // the session may still continue
  EndSession();
  EXPECT_EQ(Ends, 1);
}

TEST_F(SessionEnd, IsRefusedByAnyWindowWithUnsavedChanges) {
  for (bool* agrees : {&MainAgrees, &DialogAgrees}) {
    *agrees = false;
    EXPECT_FALSE(QueryEndSession());
    EndSession();
    EXPECT_EQ(Ends, 0);
    EXPECT_TRUE(Main.IsOpen());
    EXPECT_TRUE(Dialog.IsOpen());
    *agrees = true;
  }
}

TEST_F(SessionEnd, WaitsForOpenBoxesAndFileDialogs) {
  TheDisplay.ShowMessage = [this](const std::string&, MessageButtons) {
    EndSession();
    EXPECT_EQ(Main.TakeLog(), "");
    return MessageAnswer::Yes;
  };
  TheDisplay.ShowFileDialog = [](CommonDialog&) { EndSession(); };
  Dialog.cmdHelp.Click = [this] {
    CommonDialog().ShowOpen();
    Main.Log += Ask("Save?") ? "saved " : "no ";
  };
  Press(Dialog.cmdHelp);
  EXPECT_EQ(Main.TakeLog(), "saved dialog unload ");
  EXPECT_EQ(Ends, 1);
}

TEST_F(SessionEnd, AsksOnceWhileItsQuestionIsOpen) {
  TheDisplay.ShowMessage = [](const std::string&, MessageButtons) {
    EndSession();
    return MessageAnswer::No;
  };
  Main.QueryUnload = [] { return Ask("Save?"); };
  EndSession();
  Main.TakeLog();
  Press(Dialog.cmdHelp);
  EXPECT_EQ(Main.TakeLog(), "");
  EXPECT_EQ(Ends, 0);
}

TEST_F(SessionEnd, LetsRunningHandlersShowNothing) {
  TheDisplay.ShowMessage = [](const std::string& text, MessageButtons) {
    ADD_FAILURE() << text;
    return MessageAnswer::Yes;
  };
  TheDisplay.ShowFileDialog = [](CommonDialog&) { ADD_FAILURE(); };
  TheDisplay.ShowModal = [](Form&) { ADD_FAILURE(); };
  EndProgram();
  Tell("late");
  EXPECT_FALSE(Ask("late"));
  CommonDialog dialog;
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName, "");
  Dialog.ShowModal();
}
