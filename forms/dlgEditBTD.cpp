#include "forms/dlgEditBTD.h"

#include <string>

#include "HelpTexts.h"
#include "NumericFields.h"
#include "Saving.h"
#include "base/RawFile.h"
#include "data/MapCatalogue.h"
#include "services/Display.h"

namespace corvane {
namespace {

// The rows of cboVLType and their Kinds.
struct KindRow {
  const char* Text;
  VLKind Kind;
};
constexpr std::array<KindRow, 4> KindRows{{{"NONE", VLKind::Unused},
                                           {"Exit Location", VLKind::Exit},
                                           {"Minor Objective", VLKind::MinorObjective},
                                           {"Major Objective", VLKind::MajorObjective}}};
constexpr int ExitRow = 1;

// The first row for a Kind without a row.
int RowOfKind(VLKind kind) {
  for (std::size_t row = 0; row < KindRows.size(); ++row) {
    if (KindRows[row].Kind == kind) return static_cast<int>(row);
  }
  return 0;
}

VictoryLocation& EditedVL(int vl) { return dlgEditBTD::VLTable[static_cast<std::size_t>(vl)]; }

constexpr std::int32_t MaxByte = 255;
constexpr NumericField VLX{MaxByte, false, [](int vl, std::int32_t number) {
                             EditedVL(vl).TileX = static_cast<std::uint8_t>(number);
                           }};
constexpr NumericField VLY{MaxByte, false, [](int vl, std::int32_t number) {
                             EditedVL(vl).TileY = static_cast<std::uint8_t>(number);
                           }};

}  // namespace

dlgEditBTD::dlgEditBTD(int map)
    : Form({"Edit Map BTD File", 8355, 4965, Border::FixedDialog, Place{2760, 3750, 0, 0}}),
      Map(map) {
  EnterButton = &OKButton;
  EscapeButton = &CancelButton;
  Wire();
}

void dlgEditBTD::Wire() {
  Load = [this] { Form_Load(); };
  QueryEndSession = [this] { return Form_QueryEndSession(); };
  lstVLs.Click = [this] { lstVLs_Click(); };
  txtVLName.Change = [this] { txtVLName_Change(); };
  BindField(txtVLX, VLX, lstVLs);
  BindField(txtVLY, VLY, lstVLs);
  cboVLType.Click = [this] { cboVLType_Click(); };
  cboVLDest.Click = [this] { cboVLDest_Click(); };
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Click = [this] { CancelButton_Click(); };
  cmdHelp.Click = [] { cmdHelp_Click(); };
}

// The BTD file named in the map's row.
std::string dlgEditBTD::ListedFile() const { return RowFileName(MapRow(Map)); }

VictoryLocation& dlgEditBTD::SelectedVL() const { return EditedVL(lstVLs.ListIndex()); }

void dlgEditBTD::Form_Load() {
  FillLists();
  const auto read = ReadRecords();
  if (!read.Done()) {
    // The records still hold another map, which OK would write.
    Tell("Error: " + FailureMessage(read.Error()));
    return Unload();
  }
  txtFileName.SetText(FieldText(VLText.BaseName));
  txtAlliedBrief.SetText(FieldText(VLText.AlliedBrief));
  txtAxisBrief.SetText(FieldText(VLText.AxisBrief));
  ShowVLs();
  OpenedVLs = VLTable;
  OpenedText = TextOfBoxes();
}

void dlgEditBTD::FillLists() {
  for (const KindRow& row : KindRows) cboVLType.AddItem(row.Text);
  for (int map = 0; map < MapSlotCount; ++map) cboVLDest.AddItem(MapRow(map));
  cboVLDest.AddItem("254 OFF MAP");
  cboVLDest.SetEnabled(false);
}

Result<> dlgEditBTD::ReadRecords() {
  const std::string path = BtdPath(ListedFile(), ListedFile());
  if (ListedFile().empty() || !BtdExists(path)) return {};
  const auto file = ReadBtd(path);
  if (!file.Done()) return file.Error();
  VLTable = file->VLs;
  VLText = file->Text;
  ReadPath = path;
  AsRead = *file;
  return {};
}

void dlgEditBTD::ShowVLs() {
  lstVLs.Clear();
  for (const VictoryLocation& vl : VLTable) {
    lstVLs.AddItem(vl.Kind == VLKind::Unused ? "UNUSED" : FieldText(vl.Name));
  }
  lstVLs.SetListIndex(0);
}

void dlgEditBTD::lstVLs_Click() {
  txtVLName.SetText(lstVLs.Text());
  txtVLX.SetText(std::to_string(SelectedVL().TileX));
  txtVLY.SetText(std::to_string(SelectedVL().TileY));
  cboVLType.SetListIndex(RowOfKind(SelectedVL().Kind));
  cboVLDest.SetEnabled(cboVLType.ListIndex() == ExitRow);
  if (cboVLType.ListIndex() == ExitRow) {
    const int last = cboVLDest.ListCount() - 1;
    const int row = SelectedVL().Destination == OffMap ? last : SelectedVL().Destination;
    cboVLDest.SetListIndex(row);
    if (row == last) SelectedVL().Destination = OffMap;  // 43 also selects that row
  }
}

void dlgEditBTD::txtVLName_Change() {
  SetField(SelectedVL().Name, txtVLName.Text());
  lstVLs.SetList(lstVLs.ListIndex(), txtVLName.Text());
}

void dlgEditBTD::cboVLType_Click() {
  const int row = cboVLType.ListIndex();
  if (row < 0) return;
  cboVLDest.SetEnabled(row == ExitRow);
  if (row != ExitRow) SelectedVL().Destination = 0;
  SelectedVL().Kind = KindRows[static_cast<std::size_t>(row)].Kind;
}

void dlgEditBTD::cboVLDest_Click() {
  const int row = cboVLDest.ListIndex();
  if (row < 0) return;  // keeps a destination that has no row
  const bool offMap = row == cboVLDest.ListCount() - 1;
  SelectedVL().Destination = static_cast<std::uint8_t>(offMap ? OffMap : row);
}

void dlgEditBTD::OKButton_Click() {
  const auto path = BtdSavePath(txtFileName.Text(), ListedFile());
  if (!path.Done()) return Tell("Error: " + FailureMessage(path.Error()));
  if (BtdExists(*path) && !Ask("Replace existing " + *path + "?")) return;
  const BtdText text = TextOfBoxes();
  const bool isReadFile = AsRead && IsSameFile(*path, ReadPath);
  const auto save = [&](OthersChanges others) {
    const BtdFile* known = isReadFile && others == OthersChanges::Keep ? &*AsRead : nullptr;
    auto saved = WriteBtd(*path, static_cast<std::uint8_t>(Map), VLTable, text, known);
    // After a torn save, differences from the file as read are this program's own.
    if (isReadFile && !saved.Done() && IsTorn(saved.Error().State)) AsRead.reset();
    return saved;
  };
  if (!SaveAndReport(*path, save)) return;
  VLText = text;
  SetDestinations(Map, VLTable);
  Unload();
}

BtdText dlgEditBTD::TextOfBoxes() const {
  BtdText text;
  SetField(text.BaseName, txtFileName.Text());
  SetField(text.AlliedBrief, txtAlliedBrief.Text());
  SetField(text.AxisBrief, txtAxisBrief.Text());
  return text;
}

// Closing the dialog discards edits on purpose; a session may end by accident.
bool dlgEditBTD::Form_QueryEndSession() const {
  const bool edited = VLTable != OpenedVLs || TextOfBoxes() != OpenedText ||
                      txtVLX.Text() != std::to_string(SelectedVL().TileX) ||  // being typed
                      txtVLY.Text() != std::to_string(SelectedVL().TileY);
  return !edited || Ask("Quit without saving the changes to the BTD file?");
}

void dlgEditBTD::CancelButton_Click() { Unload(); }

void dlgEditBTD::cmdHelp_Click() { Tell(EditHelp); }

}  // namespace corvane
