// The main window: the catalogue of maps, the tile and hotspot of the selected map, its
// connections, and the arrow of the selected connection.
#pragma once

#include "services/Display.h"
#include "services/Form.h"

namespace corvane {

struct Form1 : Form {
  Form1();

  // Controls: name, caption, place {left, top, width, height}, tab index, parent, accessible name.
  // clang-format off
  Frame    Frame2             {*this, {"Frame2",              "Map Connections", {4320,  360, 2175, 4215}, 15}};
  Frame    Frame1             {*this, {"Frame1",              "STRMAP Data",     {2400,  360, 1815, 2775},  2}};
  Button   cmdDelete          {*this, {"cmdDelete",           "Delete",          {1560, 4200,  615,  255}, 31, nullptr, "Delete map slot"}};
  Button   cmdEditBTD         {*this, {"cmdEditBTD",          "Edit",            { 840, 4200,  615,  255}, 30, nullptr, "Edit BTD file of the map"}};
  Button   cmdNewBTD          {*this, {"cmdNewBTD",           "Add",             { 120, 4200,  615,  255}, 29, nullptr, "Add map slot"}};
  Button   cmdDeleteConnection{*this, {"cmdDeleteConnection", "Delete",          {1200, 1680,  735,  255}, 28, &Frame2, "Delete connection"}};
  Button   cmdAddConnection   {*this, {"cmdAddConnection",    "Add",             { 240, 1680,  735,  255}, 27, &Frame2, "Add connection"}};
  ListBox  lstConnections     {*this, {"lstConnections",      "",                { 120,  240, 1935, 1425}, 21, &Frame2, "Connections of the map"}};
  TextBox  txtArrowLeft       {*this, {"txtArrowLeft",        "",                {1440, 2640,  615,  285}, 20, &Frame2, "Left of the arrow"}};
  TextBox  txtArrowTop        {*this, {"txtArrowTop",         "",                {1440, 3000,  615,  285}, 19, &Frame2, "Top of the arrow"}};
  TextBox  txtArrowWidth      {*this, {"txtArrowWidth",       "",                {1440, 3360,  615,  285}, 18, &Frame2, "Width of the arrow"}};
  TextBox  txtArrowHeight     {*this, {"txtArrowHeight",      "",                {1440, 3720,  615,  285}, 17, &Frame2, "Height of the arrow"}};
  ComboBox cboArrows          {*this, {"cboArrows",           "",                {1440, 2280,  615,  315}, 16, &Frame2, "Arrow of the connection"}};
  Label    Label5             {*this, {"Label5",              "Left:",           { 600, 2640,  735,  255}, 26, &Frame2}, Alignment::Right};
  Label    Label6             {*this, {"Label6",              "Top:",            { 600, 3000,  735,  255}, 25, &Frame2}, Alignment::Right};
  Label    Label7             {*this, {"Label7",              "Width:",          { 600, 3360,  735,  255}, 24, &Frame2}, Alignment::Right};
  Label    Label8             {*this, {"Label8",              "Height:",         { 600, 3720,  735,  255}, 23, &Frame2}, Alignment::Right};
  Label    Label9             {*this, {"Label9",              "STRARROW:",       { 240, 2280, 1095,  255}, 22, &Frame2}, Alignment::Right};
  TextBox  txtMapLeft         {*this, {"txtMapLeft",          "",                { 960,  240,  615,  285},  8, &Frame1, "Left of the tile"}};
  TextBox  txtMapTop          {*this, {"txtMapTop",           "",                { 960,  600,  615,  285},  7, &Frame1, "Top of the tile"}};
  TextBox  txtMapWidth        {*this, {"txtMapWidth",         "",                { 960,  960,  615,  285},  6, &Frame1, "Width of the tile"}};
  TextBox  txtMapHeight       {*this, {"txtMapHeight",        "",                { 960, 1320,  615,  285},  5, &Frame1, "Height of the tile"}};
  TextBox  txtMapCenterY      {*this, {"txtMapCenterY",       "",                { 960, 2280,  615,  285},  4, &Frame1, "Center Y of the hotspot"}};
  TextBox  txtMapCenterX      {*this, {"txtMapCenterX",       "",                { 960, 1920,  615,  285},  3, &Frame1, "Center X of the hotspot"}};
  Label    Label1             {*this, {"Label1",              "Left:",           { 120,  240,  735,  255}, 14, &Frame1}, Alignment::Right};
  Label    Label2             {*this, {"Label2",              "Top:",            { 120,  600,  735,  255}, 13, &Frame1}, Alignment::Right};
  Label    Label3             {*this, {"Label3",              "Width:",          { 120,  960,  735,  255}, 12, &Frame1}, Alignment::Right};
  Label    Label4             {*this, {"Label4",              "Height:",         { 120, 1320,  735,  255}, 11, &Frame1}, Alignment::Right};
  Label    Label11            {*this, {"Label11",             "Center Y:",       { 120, 2280,  735,  255}, 10, &Frame1}, Alignment::Right};
  Label    Label12            {*this, {"Label12",             "Center X:",       { 120, 1920,  735,  255},  9, &Frame1}, Alignment::Right};
  ListBox  lstMaps            {*this, {"lstMaps",             "",                { 120,  360, 2055, 3765},  0, nullptr, "Maps"}, RowOrder::ByText};
  Label    Label10            {*this, {"Label10",             " Idx   Map",      { 120,  120, 1935,  255},  1}, Alignment::Left};

  MenuEntry mnuFile         {*this,   "mnuFile",         "&File"};
  MenuItem  mnuFileOpen     {mnuFile, "mnuFileOpen",     "&Open..."};
  MenuItem  mnuFileSavePatch{mnuFile, "mnuFileSavePatch", "&Save Patch File...", Shortcut::CtrlS};
  MenuItem  mnuFileSave     {mnuFile, "mnuFileSave",     "Save EXE &Changes"};
  MenuItem  mnuFileExit     {mnuFile, "mnuFileExit",     "E&xit"};
  MenuEntry mnuHelp         {*this,   "mnuHelp",         "&Help"};
  MenuItem  mnuHelpBasic    {mnuHelp, "mnuHelpBasic",    "&Basic Instructions..."};
  MenuItem  mnuHelpAbout    {mnuHelp, "mnuHelpAbout",    "&About..."};
  // clang-format on

  CommonDialog CommonDialog1;
  bool SettingArrow = false;  // the program, not the user, is changing the displayed arrow

  /// Rebuilds the catalogue from the BTD files and shows it from the first row.
  void ShowCatalogue();

  void lstMaps_Click();
  void lstMaps_DblClick();
  void lstConnections_Click();
  void cboArrows_Click();
  void cmdAddConnection_Click();
  void cmdDeleteConnection_Click();
  void cmdEditBTD_Click();
  void cmdNewBTD_Click();
  void cmdDelete_Click();
  void mnuFile_Click();
  void mnuFileOpen_Click();
  void mnuFileSavePatch_Click();
  void mnuFileSave_Click();
  void mnuFileExit_Click();
  static void mnuHelpBasic_Click();
  static void mnuHelpAbout_Click();
  [[nodiscard]] static bool Form_QueryUnload();

 private:
  void WireControls();
  void WireFields();
  void WireMenu();
  void ShowMapRows();
  void ShowMap(int map);
  void ShowNoMap();
  void ShowArrow(int arrow);
  void ShowNoArrow();
};

}  // namespace corvane
