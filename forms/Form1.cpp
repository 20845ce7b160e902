#include "forms/Form1.h"

#include <string>

#include "CatalogueMessage.h"
#include "NumericFields.h"
#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"
#include "forms/dlgAddConnection.h"
#include "forms/dlgEditBTD.h"
#include "rules/ConnectionEditing.h"
#include "rules/MapSlots.h"

namespace corvane {
namespace {

void ShowNumber(TextBox& box, std::int32_t number) { box.SetText(std::to_string(number)); }

}  // namespace

Form1::Form1() : Form({"Corvane", 6705, 4785, Border::Resizable}) {
  for (Button* button :
       {&cmdNewBTD, &cmdEditBTD, &cmdDelete, &cmdAddConnection, &cmdDeleteConnection}) {
    button->SetEnabled(false);
  }
  cmdNewBTD.SetVisible(false);
  cmdDelete.SetVisible(false);
  WireControls();
  WireFields();
  WireMenu();
}

void Form1::WireControls() {
  QueryUnload = Form_QueryUnload;
  lstMaps.Click = [this] { lstMaps_Click(); };
  lstMaps.DblClick = [this] { lstMaps_DblClick(); };
  lstConnections.Click = [this] { lstConnections_Click(); };
  cboArrows.Click = [this] { cboArrows_Click(); };
  cmdAddConnection.Click = [this] { cmdAddConnection_Click(); };
  cmdDeleteConnection.Click = [this] { cmdDeleteConnection_Click(); };
  cmdEditBTD.Click = [this] { cmdEditBTD_Click(); };
  cmdNewBTD.Click = [this] { cmdNewBTD_Click(); };
  cmdDelete.Click = [this] { cmdDelete_Click(); };
}

// Each of the ten fields enters its number for the row selected at the time of Validate.
void Form1::WireFields() {
  BindField(txtMapLeft, MapLeft, lstMaps);
  BindField(txtMapTop, MapTop, lstMaps);
  BindField(txtMapWidth, MapWidth, lstMaps);
  BindField(txtMapHeight, MapHeight, lstMaps);
  BindField(txtMapCenterX, MapCenterX, lstMaps);
  BindField(txtMapCenterY, MapCenterY, lstMaps);
  BindField(txtArrowLeft, ArrowLeft, cboArrows);
  BindField(txtArrowTop, ArrowTop, cboArrows);
  BindField(txtArrowWidth, ArrowWidth, cboArrows);
  BindField(txtArrowHeight, ArrowHeight, cboArrows);
}

void Form1::WireMenu() {
  mnuFile.Click = [this] { mnuFile_Click(); };
  mnuFileOpen.Click = [this] { mnuFileOpen_Click(); };
  mnuFileSavePatch.Click = [this] { mnuFileSavePatch_Click(); };
  mnuFileSave.Click = [this] { mnuFileSave_Click(); };
  mnuFileExit.Click = [this] { mnuFileExit_Click(); };
  mnuHelpBasic.Click = [] { mnuHelpBasic_Click(); };
  mnuHelpAbout.Click = [] { mnuHelpAbout_Click(); };
}

void Form1::ShowCatalogue() {
  const std::string message = CatalogueMessage(LoadMapCatalogue());
  lstConnections.Clear();
  lstMaps.Clear();
  ShowMapRows();
  cboArrows.Clear();
  for (const std::string& row : ArrowRows) cboArrows.AddItem(row);
  cmdEditBTD.SetEnabled(true);
  if (lstMaps.ListCount() > 0) {
    lstMaps.SetListIndex(0);
  } else {
    ShowNoMap();
  }
  if (!message.empty()) Tell(message);
}

// Updates rows in place to keep the selection. Appends new rows regardless of the list's order,
// which can differ from that of MapRows once a slot is cleared.
void Form1::ShowMapRows() {
  const auto count = static_cast<int>(MapRows.size());
  for (int map = 0; map < count; ++map) {
    if (map < lstMaps.ListCount()) {
      lstMaps.SetList(map, MapRow(map));
    } else {
      lstMaps.InsertItem(lstMaps.ListCount(), MapRow(map));
    }
  }
}

void Form1::ShowMap(int map) {
  ShowNumber(txtMapLeft, StrMap[map].Left);
  ShowNumber(txtMapTop, StrMap[map].Top);
  ShowNumber(txtMapWidth, StrMap[map].Width);
  ShowNumber(txtMapHeight, StrMap[map].Height);
  ShowNumber(txtMapCenterX, MapHotspots[map].CenterX);
  ShowNumber(txtMapCenterY, MapHotspots[map].CenterY);
}

void Form1::ShowNoMap() {
  for (TextBox* box :
       {&txtMapLeft, &txtMapTop, &txtMapWidth, &txtMapHeight, &txtMapCenterX, &txtMapCenterY}) {
    box->SetText("");
  }
  ShowNoArrow();
  cmdAddConnection.SetEnabled(false);
  cmdDeleteConnection.SetEnabled(false);
}

void Form1::ShowArrow(int arrow) {
  ShowNumber(txtArrowLeft, StrArrow[arrow].Left);
  ShowNumber(txtArrowTop, StrArrow[arrow].Top);
  ShowNumber(txtArrowWidth, StrArrow[arrow].Width);
  ShowNumber(txtArrowHeight, StrArrow[arrow].Height);
}

void Form1::ShowNoArrow() {
  for (TextBox* box : {&txtArrowLeft, &txtArrowTop, &txtArrowWidth, &txtArrowHeight}) {
    box->SetText("");
  }
}

void Form1::lstMaps_Click() {
  const int map = lstMaps.ListIndex();
  if (map < 0) return;
  ShowMap(map);
  lstConnections.Clear();
  for (const std::string& row : ConnectionRows(map)) lstConnections.AddItem(row);
  if (lstConnections.ListCount() > 0) {
    lstConnections.SetListIndex(0);
    cmdDeleteConnection.SetEnabled(true);
  } else {
    Tell("Error: This map has no connection defined!");
    cmdDeleteConnection.SetEnabled(false);
  }
  cmdAddConnection.SetEnabled(true);
}

void Form1::lstMaps_DblClick() { cmdEditBTD_Click(); }

void Form1::lstConnections_Click() {
  SettingArrow = true;
  const int arrow = MapConnections(lstMaps.ListIndex(), RowMapIndex(lstConnections.Text()));
  cboArrows.SetListIndex(arrow);
  // An invalid arrow number selects no row; if none was selected before, Click does not run.
  if (cboArrows.ListIndex() < 0) ShowNoArrow();
  SettingArrow = false;
}

void Form1::cboArrows_Click() {
  const int arrow = cboArrows.ListIndex();
  if (arrow < 0) return;
  ShowArrow(arrow);
  if (SettingArrow) return;
  const int to = RowMapIndex(lstConnections.Text());
  if (IsMapSlot(lstMaps.ListIndex()) && IsMapSlot(to)) {
    AssignArrow(lstMaps.ListIndex(), to, arrow);
  }
}

void Form1::cmdAddConnection_Click() {
  if (!CanAddConnection(static_cast<std::int16_t>(lstConnections.ListCount()))) {
    Tell("You already have the maximum number of connections for one map.");
    return;
  }
  dlgAddConnection dialog(lstMaps.ListIndex());
  dialog.ShowModal();
  lstMaps_Click();
}

void Form1::cmdDeleteConnection_Click() {
  const int to = RowMapIndex(lstConnections.Text());
  if (!IsMapSlot(lstMaps.ListIndex()) || !IsMapSlot(to)) return;
  if (!Ask(ConnectionDeletePrompt(lstMaps.Text(), lstConnections.Text()))) return;
  DeleteConnection(lstMaps.ListIndex(), to);
  lstMaps_Click();
}

void Form1::cmdEditBTD_Click() {
  if (lstMaps.ListIndex() < 0) return;
  dlgEditBTD dialog(lstMaps.ListIndex());
  dialog.ShowModal();
  ShowCatalogue();
}

void Form1::cmdNewBTD_Click() {
  if (!AddMapSlot()) {
    Tell("You already have the maximum number of maps!");
    return;
  }
  ShowMapRows();
  lstMaps.SetListIndex(lstMaps.ListCount() - 1);
  cmdEditBTD_Click();
}

void Form1::cmdDelete_Click() {
  const int map = lstMaps.ListIndex();
  if (map < 0) return;
  if (!Ask("Are you positive you want to delete this map? NOTE: All data associated with this map, "
           "along with all connections to this map from all other maps, will be deleted.  The "
           "contents of the BTD file will also be deleted.")) {
    return;
  }
  const auto deleted = DeleteMapSlot(map);
  if (!deleted.Done()) return Tell("Error: " + FailureMessage(deleted.Error()));
  ShowMapRows();
  lstMaps_Click();
}

bool Form1::Form_QueryUnload() { return !TablesDirty || Ask("Quit without saving changes?"); }

}  // namespace corvane
