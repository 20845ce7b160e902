// The dialog that picks the destination of a new connection from the selected map.
#pragma once

#include "services/Form.h"

namespace corvane {

struct dlgAddConnection : Form {
  explicit dlgAddConnection(int fromMap);

  // Controls: name, caption, place {left, top, width, height}, tab index, parent, accessible name.
  // clang-format off
  Button   OKButton    {*this, {"OKButton",     "OK",               {4080,  360, 1215,  375},  0, nullptr, "OK"}};
  Button   CancelButton{*this, {"CancelButton", "Cancel",           {4080,  840, 1215,  375},  1, nullptr, "Cancel"}};
  Label    Label1      {*this, {"Label1",       "Destination Map:", { 240, 1080, 1455,  255},  2}, Alignment::Right};
  ComboBox cboLstMaps  {*this, {"cboLstMaps",   "",                 {1800, 1080, 2055,  315},  3, nullptr, "Destination map"}};
  Label    Label2      {*this, {"Label2", "NOTE: You must have a reciprocating link from the destination back to this map.  "
                                          "You must also edit the BTD files and set up a Victory Location on each map to "
                                          "represent the link.", {240, 120, 3615, 855}, 4}, Alignment::Left};
  // clang-format on

  void Form_Load();
  void OKButton_Click();
  void CancelButton_Click();

 private:
  const int From;
};

}  // namespace corvane
