// A form with a control of each kind, which logs a word per event. Tests of the gestures and of the
// displays share it, since both must raise the same events.
#pragma once

#include <string>
#include <utility>

#include "services/Form.h"

namespace corvane {

struct TestForm : Form {
  TestForm() : Form({"Test", 6600, 5400, Border::FixedDialog, Place{600, 600, 0, 0}}) {
    for (const char* row : {"ant", "bee", "cat", "dog", "eel", "fox", "gnu", "hen"}) {
      lstRows.AddItem(row);
      cboRows.AddItem(row);
    }
    lstFew.AddItem("one");
    cmdOff.SetEnabled(false);
    EnterButton = &cmdOK;
    EscapeButton = &cmdCancel;
    const auto say = [this](const char* word) { return [this, word] { Log += word; }; };
    cmdOK.Click = say("ok ");
    cmdCancel.Click = say("cancel ");
    cmdHelp.Click = say("help ");
    mnuSave.Click = say("save ");
    mnuFile.Click = [this] {
      Log += "file ";
      mnuSave.Enabled = !mnuSave.Enabled;
    };
    lstRows.Click = [this] { Log += "row" + lstRows.Text() + " "; };
    lstRows.DblClick = [this] { Log += "double" + lstRows.Text() + " "; };
    cboRows.Click = [this] { Log += "combo" + cboRows.Text() + " "; };
    txtName.Change = [this] { Log += "name" + txtName.Text() + " "; };
    txtNumber.Validate = [this] {
      const bool refused = txtNumber.Text() == "x";
      Log += refused ? "refuse " : "accept ";
      if (refused) txtNumber.SelectAll();
      return !refused;
    };
    QueryUnload = [this] {
      Log += "unload ";
      return false;
    };
  }
  // Returns the events since the last call.
  std::string TakeLog() { return std::exchange(Log, ""); }

  // clang-format off
  Button   cmdCancel{*this, {"cmdCancel", "Cancel", {2760, 3360, 1215,  375},  7}};
  Button   cmdOK    {*this, {"cmdOK",     "OK",     {2760, 2880, 1215,  375},  6}};
  Button   cmdOff   {*this, {"cmdOff",    "&Off",   {2760, 4320, 1215,  375},  9}};
  Button   cmdHelp  {*this, {"cmdHelp",   "&Help",  {2760, 3840, 1215,  375},  8}};
  Frame    Holder   {*this, {"Holder",    "Holder", { 120,  360, 2400, 4980}, 20}};
  ListBox  lstRows  {*this, {"lstRows",   "",       { 120,  240, 2055, 1005},  0, &Holder}};
  ListBox  lstFew   {*this, {"lstFew",    "",       { 120, 1440, 2055,  990},  1, &Holder}, RowOrder::ByText};
  ComboBox cboRows  {*this, {"cboRows",   "",       { 120, 2640,  975,  315},  2, &Holder}};
  TextBox  txtNumber{*this, {"txtNumber", "",       {2760,  360,  615,  285},  3}};
  TextBox  txtName  {*this, {"txtName",   "",       {2760,  720, 1455,  285},  4, nullptr, "Name"}, 5};
  TextBox  txtLines {*this, {"txtLines",  "",       {2760, 1200, 3600, 1335},  5}, 20, TextLines::Several};
  Label    lblNote  {*this, {"lblNote",   "Note",   {4200, 2880, 1215,  255}, 10}, Alignment::Left};
  MenuEntry mnuFile {*this,   "mnuFile", "&File"};
  MenuItem  mnuSave {mnuFile, "mnuSave", "&Save", Shortcut::CtrlS};
  // clang-format on
  std::string Log;
};

}  // namespace corvane
