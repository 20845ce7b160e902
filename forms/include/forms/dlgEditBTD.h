// The dialog that edits the BTD file of the selected map. It works on its own copy of the records
// and writes the file on OK.
#pragma once

#include <optional>
#include <string>

#include "data/BtdFile.h"
#include "services/Form.h"

namespace corvane {

struct dlgEditBTD : Form {
  explicit dlgEditBTD(int map);

  // The edited records. They outlive the window: without a file to read, the dialog shows what the
  // previous opening left in them.
  static inline VictoryLocations VLTable;
  static inline BtdText VLText;  // as last read or saved; the boxes hold the edits

  // Controls: name, caption, place {left, top, width, height}, tab index, parent, accessible name;
  // then, for a text box, the typed limit and whether it is multi-line.
  // clang-format off
  Button   OKButton      {*this, {"OKButton",       "OK",                {2895, 4440, 1215,  375},  0, nullptr, "OK"}};
  Frame    Frame1        {*this, {"Frame1",         "Victory Locations", { 120,  360, 2655, 3855},  1}};
  ListBox  lstVLs        {*this, {"lstVLs",         "",                  { 120,  360, 2415, 1425},  2, &Frame1, "Victory locations"}};
  TextBox  txtVLName     {*this, {"txtVLName",      "",                  {1080, 1920, 1455,  285},  3, &Frame1, "Name of the victory location"}, 19};
  Label    Label1        {*this, {"Label1",         "Name:",             { 120, 1920,  855,  255},  4, &Frame1}, Alignment::Right};
  Label    Label2        {*this, {"Label2",         "Tile X:",           { 120, 2280,  855,  255},  5, &Frame1}, Alignment::Right};
  Label    Label3        {*this, {"Label3",         "Tile Y:",           { 120, 2640,  855,  255},  6, &Frame1}, Alignment::Right};
  TextBox  txtVLX        {*this, {"txtVLX",         "",                  {1080, 2280,  495,  315},  7, &Frame1, "Tile X of the victory location"}, 2};
  TextBox  txtVLY        {*this, {"txtVLY",         "",                  {1080, 2640,  495,  315},  8, &Frame1, "Tile Y of the victory location"}, 2};
  Label    Label4        {*this, {"Label4",         "Type:",             { 120, 3000,  855,  255},  9, &Frame1}, Alignment::Right};
  Label    Label5        {*this, {"Label5",         "Destination:",      { 120, 3360,  855,  255}, 10, &Frame1}, Alignment::Right};
  ComboBox cboVLType     {*this, {"cboVLType",      "",                  {1080, 3000, 1455,  315}, 11, &Frame1, "Type of the victory location"}};
  ComboBox cboVLDest     {*this, {"cboVLDest",      "",                  {1080, 3360, 1455,  315}, 12, &Frame1, "Destination of the exit"}};
  Label    Label6        {*this, {"Label6",         "Base File Name:",   {2880,  480, 1215,  255}, 13}, Alignment::Right};
  TextBox  txtFileName   {*this, {"txtFileName",    "",                  {4200,  480, 1335,  285}, 14, nullptr, "Base file name"}, 8};
  Label    Label7        {*this, {"Label7",         "Allied Briefing:",  {4680,  960, 1215,  255}, 15}, Alignment::Centre};
  Label    Label8        {*this, {"Label8",         "Axis Briefing:",    {4680, 2760, 1215,  255}, 16}, Alignment::Centre};
  TextBox  txtAlliedBrief{*this, {"txtAlliedBrief", "",                  {2880, 1200, 5295, 1335}, 17, nullptr, "Allied briefing"}, 4095, TextLines::Several};
  TextBox  txtAxisBrief  {*this, {"txtAxisBrief",   "",                  {2880, 3000, 5295, 1215}, 18, nullptr, "Axis briefing"}, 4095, TextLines::Several};
  Button   CancelButton  {*this, {"CancelButton",   "Cancel",            {4245, 4440, 1215,  375}, 19, nullptr, "Cancel"}};
  Button   cmdHelp       {*this, {"cmdHelp",        "&Help",             {6840,  360, 1215,  375}, 20, nullptr, "Help"}};
  // clang-format on

  void Form_Load();
  void lstVLs_Click();
  void txtVLName_Change();
  void cboVLType_Click();
  void cboVLDest_Click();
  void OKButton_Click();
  void CancelButton_Click();
  static void cmdHelp_Click();
  [[nodiscard]] bool Form_QueryEndSession() const;

 private:
  void Wire();
  void FillLists();
  [[nodiscard]] Result<> ReadRecords();
  void ShowVLs();
  [[nodiscard]] VictoryLocation& SelectedVL() const;
  [[nodiscard]] std::string ListedFile() const;
  [[nodiscard]] BtdText TextOfBoxes() const;

  const int Map;
  VictoryLocations OpenedVLs;  // as first shown
  BtdText OpenedText;
  std::string ReadPath;  // the file that was read; empty if none
  std::optional<BtdFile> AsRead;
};

}  // namespace corvane
