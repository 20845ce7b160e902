// The commands of the File menu: open, check, save, exit.

#include "Saving.h"
#include "base/FolderScan.h"
#include "data/GameFolder.h"
#include "data/StrategicTables.h"
#include "data/TableImages.h"
#include "forms/Form1.h"
#include "rules/ConsistencyCheck.h"

namespace corvane {
namespace {

constexpr char PatchFilter[] = "Corvane Patch Files (*.crv)|*.crv";

bool GameIsOpen() { return KindOfFile(OpenedFile) == FileKind::GameExeFile; }

// True if the tables may be written. Otherwise shows the findings.
bool TablesAreSound() {
  const std::string findings = CheckTables();
  if (!findings.empty()) Tell("Error: " + findings);
  return findings.empty();
}

void Save(const std::string& path, FileKind kind) {
  const auto save = [&](OthersChanges others) { return SaveTables(path, kind, others); };
  if (SaveAndReport(path, save)) TablesDirty = false;
}

}  // namespace

void Form1::mnuFile_Click() {
  mnuFileSave.Enabled = GameIsOpen();
  mnuFileSavePatch.Enabled = !GamePath.empty();
}

void Form1::mnuFileOpen_Click() {
  CommonDialog1 = {.Flags = FileMustExist | PathMustExist,
                   .Filter = std::string("CC4.EXE (CC4.EXE)|CC4.EXE|") + PatchFilter,
                   .InitDir = CurrentFolder()};
  CommonDialog1.ShowOpen();
  if (CommonDialog1.FileName.empty()) return;

  const auto opened = OpenTables(CommonDialog1.FileName, CommonDialog1.FileTitle);
  if (!opened.Done()) return Tell("Error: " + FailureMessage(opened.Error()));
  switch (*opened) {
    case FileKind::GameExeFile:
    case FileKind::PatchFile:
      ShowCatalogue();
      TablesDirty = false;
      return;
    case FileKind::OtherFile:
      return Tell(
          "Error: The file you are trying to open doesn't appear to be CC4.EXE or a valid patch "
          "file.");
    case FileKind::NoInstallPath:
      Tell(
          "Error reading registry settings. You must have CC4 installed on the machine to use "
          "this utility.");
      return EndProgram();
  }
}

void Form1::mnuFileSave_Click() {
  // The item's state dates from the last opening of its menu and may be stale.
  if (!GameIsOpen() || !TablesAreSound()) return;
  const std::string path = OpenedExePath();
  if (!Ask("This will directly modify the file " + path +
           ". If there are errors in the changes you have made, the game will almost certainly "
           "crash. Are you absolutely sure you want to do this?")) {
    return;
  }
  Save(path, FileKind::GameExeFile);
}

void Form1::mnuFileSavePatch_Click() {
  if (!TablesAreSound()) return;
  CommonDialog1 = {
      .Flags = PathMustExist, .DefaultExt = ".CRV", .Filter = PatchFilter, .InitDir = GamePath};
  CommonDialog1.ShowSave();
  const std::string& fileName = CommonDialog1.FileName;
  if (fileName.empty()) return;
  if (OrdinaryFileExists(fileName) && !Ask("Overwrite file " + fileName + "?")) return;
  Save(fileName, FileKind::PatchFile);
}

void Form1::mnuFileExit_Click() { Unload(); }

}  // namespace corvane
