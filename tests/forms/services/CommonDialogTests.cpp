#include <gtest/gtest.h>

#include "TestFolder.h"
#include "base/FolderScan.h"
#include "services/Display.h"

using namespace corvane;

namespace {

struct Dialogs : testing::Test {
  ~Dialogs() override { TheDisplay = {}; }
  // The result of a dialog in which the user chooses a name in the folder.
  CommonDialog Choose(CommonDialog dialog, void (CommonDialog::*show)(), const std::string& name) {
    TheDisplay.ShowFileDialog = [&](CommonDialog& shown) { shown.FileName = Folder / name; };
    (dialog.*show)();
    return dialog;
  }
  TestFolder Folder;
};

}  // namespace

TEST_F(Dialogs, ASavedNameEndsInAnExtensionOfTheFilter) {
  const char* const rows[][3] = {{"*.crv", "a", "a.CRV"},
                                 {"*.crv", "v1.2", "v1.2.CRV"},
                                 {"*.crv", "a.crv", "a.crv"},
                                 {"*.crv", "a.CrV", "a.CrV"},
                                 {"*.crv", "a.crv.bak", "a.crv.bak.CRV"},
                                 {"*.x;*.crv", "a.crv", "a.crv"},
                                 {"*.x|Patches|*.crv", "a.crv", "a.crv"},
                                 {"*", "a", "a"}};
  for (const auto& [pattern, chosen, name] : rows) {
    const CommonDialog settings = {.DefaultExt = ".CRV",
                                   .Filter = std::string("Files (*.b)|") + pattern};
    const CommonDialog saved = Choose(settings, &CommonDialog::ShowSave, chosen);
    EXPECT_EQ(saved.FileName, Folder / name) << pattern;
    EXPECT_EQ(saved.FileTitle, name) << pattern;
    EXPECT_EQ(Choose(settings, &CommonDialog::ShowOpen, chosen).FileTitle, chosen);
  }
}

TEST_F(Dialogs, ANameInOtherLetterCaseMeansTheExistingFile) {
  if (Separator != '/') GTEST_SKIP() << "This system is case-insensitive.";
  Folder.Put("Mine.Crv");
  const CommonDialog settings = {.DefaultExt = ".CRV", .Filter = "Patches|*.crv"};
  for (const char* chosen : {"Mine.Crv", "MINE.CRV", "mine"}) {
    const CommonDialog saved = Choose(settings, &CommonDialog::ShowSave, chosen);
    EXPECT_EQ(saved.FileName, Folder / "Mine.Crv") << chosen;
    EXPECT_EQ(saved.FileTitle, "Mine.Crv") << chosen;
  }
  EXPECT_EQ(Choose({}, &CommonDialog::ShowOpen, "mine.crv").FileTitle, "Mine.Crv");
}

TEST_F(Dialogs, ACancelGivesNothing) {
  for (const auto show : {&CommonDialog::ShowOpen, &CommonDialog::ShowSave}) {
    CommonDialog dialog = {.DefaultExt = ".CRV",
                           .Filter = "Patches|*.crv",
                           .FileName = Folder / "last.crv",
                           .FileTitle = "last.crv"};
    (dialog.*show)();
    EXPECT_EQ(dialog.FileName, "");
    EXPECT_EQ(dialog.FileTitle, "");
  }
}

TEST_F(Dialogs, TheFlagsRejectMissingFilesAndFolders) {
  Folder.Put("there.crv");
  const std::string noFile = "\r\nFile not found.", noPath = "\r\nPath does not exist.";
  const std::tuple<int, const char*, std::string> rows[] = {
      {FileMustExist | PathMustExist, "there.crv", ""},
      {FileMustExist | PathMustExist, "no.crv", noFile},
      {FileMustExist | PathMustExist, "no/no.crv", noPath},
      {PathMustExist, "no.crv", ""},
      {PathMustExist, "no/no.crv", noPath},
      {0, "no/no.crv", ""}};
  for (const auto& [flags, name, refusal] : rows) {
    const CommonDialog dialog = {.Flags = flags};
    const std::string path = Folder / name;
    EXPECT_EQ(dialog.Refusal(path), refusal.empty() ? "" : path + refusal) << name << flags;
  }
}
