#include "forms/dlgAddConnection.h"

#include "forms/Form1.h"
#include "rules/ConnectionEditing.h"

namespace corvane {

dlgAddConnection::dlgAddConnection(Form1& owner)
    : Form({"Add Connection", 5490, 1575, Border::FixedDialog, Place{2760, 3750, 0, 0}}),
      Main(owner) {
  Load = [this] { Form_Load(); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
}

void dlgAddConnection::Form_Load() {
  for (int map = 0; map < Main.lstMaps.ListCount(); ++map) {
    cboLstMaps.AddItem(Main.lstMaps.List(map));
  }
}

void dlgAddConnection::OKButton_Click() {
  if (cboLstMaps.ListIndex() < 0) return Tell("Please choose a destination map.");
  if (!AddConnection(Main.lstMaps.ListIndex(), cboLstMaps.ListIndex())) {
    return Tell("You can not link a map to itself.");
  }
  Unload();
}

void dlgAddConnection::CancelButton_Click() { Unload(); }

}  // namespace corvane
