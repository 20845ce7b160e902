#include "forms/dlgAddConnection.h"

#include "data/MapCatalogue.h"
#include "rules/ConnectionEditing.h"
#include "services/Display.h"

namespace corvane {

dlgAddConnection::dlgAddConnection(int fromMap)
    : Form({"Add Connection", 5490, 1575, Border::FixedDialog, Place{2760, 3750, 0, 0}}),
      From(fromMap) {
  Load = [this] { Form_Load(); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
}

void dlgAddConnection::Form_Load() {
  for (const std::string& row : MapRows) cboLstMaps.AddItem(row);
}

void dlgAddConnection::OKButton_Click() {
  if (cboLstMaps.ListIndex() < 0) return Tell("Please choose a destination map.");
  if (!AddConnection(From, cboLstMaps.ListIndex())) {
    return Tell("You can not link a map to itself.");
  }
  Unload();
}

void dlgAddConnection::CancelButton_Click() { Unload(); }

}  // namespace corvane
