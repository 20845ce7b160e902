#include <QtTest>

#include "Screen.h"

namespace corvane {
namespace {

constexpr char Filters[] = "CC4.EXE (CC4.EXE)|CC4.EXE|Corvane Patch Files (*.crv)|*.crv";

// A home folder with a Wine prefix that holds a game; the program's current folder is not the
// game's.
class FileDialogs : public testing::Test {
 protected:
  FileDialogs() {
    qputenv("HOME", Home.path().toUtf8());
    for (const char* folder : {".games", ".wine/dosdevices", ".wine/drive_c/Game/Maps"})
      EXPECT_TRUE(QDir(Home.path()).mkpath(folder));
    EXPECT_TRUE(QFile::link("../drive_c", Home.filePath(".wine/dosdevices/c:")));
    EXPECT_TRUE(QFile::link("/nowhere", Home.filePath(".wine/dosdevices/d:")));
    for (const char* name : {"cc4.exe", "other.exe", "a.crv", "B.CRV", "c.crv.txt"}) {
      QFile file(Game.filePath(name));
      EXPECT_TRUE(file.open(QFile::WriteOnly));
    }
    QDir::setCurrent(Home.path());
  }
  ~FileDialogs() override {
    QDir::setCurrent(Before);
    qputenv("HOME", HomeBefore);
  }

  // Shows the dialog, acts in it, and returns its result.
  CommonDialog Show(void (CommonDialog::*show)(), const CommonDialog& settings,
                    const std::function<void(QFileDialog&)>& act) {
    TestForm form;
    CommonDialog dialog = settings;
    form.cmdOK.Click = [&] { (dialog.*show)(); };
    PlayWhole(form, [&] {
      WhenNext([&] { act(*qobject_cast<QFileDialog*>(QApplication::activeModalWidget())); });
      PressAt(form.cmdOK);
    });
    return dialog;
  }

  QTemporaryDir Home;
  const QDir Game{Home.filePath(".wine/drive_c/Game")};
  const QString Before = QDir::currentPath();
  const QByteArray HomeBefore = qgetenv("HOME");
  const CommonDialog Open = {.Flags = FileMustExist | PathMustExist,
                             .Filter = Filters,
                             .InitDir = Game.path().toStdString()};
};

QStringList RowsOf(const QFileDialog& dialog) {
  const auto* list = dialog.findChild<QTreeView*>("treeView");
  QStringList names;
  for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row) {
    names.append(list->model()->index(row, 0, list->rootIndex()).data().toString());
  }
  names.sort();
  return names;
}

void ExpectRows(const QFileDialog& dialog, const QStringList& rows) {
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowsOf(dialog) == rows; }))
      << qPrintable(RowsOf(dialog).join(", "));
}

TEST_F(FileDialogs, ListTheFilesOfTheChosenFilterInAnyLetterCase) {
  CommonDialog settings = Open;
  settings.FilterIndex = 2;
  Show(&CommonDialog::ShowOpen, settings, [](QFileDialog& dialog) {
    ExpectRows(dialog, {"B.CRV", "Maps", "a.crv"});
    EXPECT_TRUE(dialog.nameFilters().contains("CC4.EXE (CC4.EXE)"));
    dialog.selectNameFilter(dialog.nameFilters().at(0));
    ExpectRows(dialog, {"Maps", "cc4.exe"});
    PressKey("Esc");
  });
}

TEST_F(FileDialogs, ListHiddenFoldersAndTheDrivesOfTheWinePrefix) {
  CommonDialog settings = Open;
  settings.InitDir = "";
  Show(&CommonDialog::ShowOpen, settings, [this](QFileDialog& dialog) {
    EXPECT_EQ(dialog.directory(), QDir(Home.path()));
    EXPECT_TRUE(dialog.screen()->geometry().contains(dialog.frameGeometry()));
    ExpectRows(dialog, {".games", ".wine"});
    const QString drives = Home.filePath(".wine/dosdevices/");
    EXPECT_TRUE(dialog.sidebarUrls().contains(QUrl::fromLocalFile(drives + "c:")));
    EXPECT_FALSE(dialog.sidebarUrls().contains(QUrl::fromLocalFile(drives + "d:")));
    PressKey("Esc");
  });
}

TEST_F(FileDialogs, OpenTypedNames) {
  const std::pair<const char*, const char*> rows[] = {{"CC4.EXE", "cc4.exe"},
                                                      {"./a.crv", "a.crv"},
                                                      {"../Game/a.crv", "a.crv"},
                                                      {"Maps/../../Game/other.exe", "other.exe"}};
  for (const auto& [name, file] : rows) {
    QDir::setCurrent(Home.path());
    const CommonDialog chosen = Show(&CommonDialog::ShowOpen, Open, [typed = name](QFileDialog&) {
      Type(typed);
      PressKey("Return");
    });
    EXPECT_EQ(chosen.FileName, Game.filePath(file).toStdString()) << name;
    EXPECT_EQ(QDir::currentPath(), Game.path()) << name;
  }
}

TEST_F(FileDialogs, StayOpenForAFolderAndForAMissingFile) {
  const CommonDialog chosen = Show(&CommonDialog::ShowOpen, Open, [this](QFileDialog& dialog) {
    WhenNext([this] {
      EXPECT_EQ(SeenMessage().Text, Game.filePath("gone.exe").toStdString() + "\nFile not found.");
      PressKey("Return");
    });
    Type("Maps");  // offered as a completion
    EXPECT_TRUE(QTest::qWaitFor(SeenPopup));
    PressKey("Return");
    EXPECT_FALSE(SeenPopup());
    EXPECT_EQ(dialog.directory(), QDir(Game.filePath("Maps")));
    PressKey("Shift+Home");
    Type("../gone.exe");
    PressKey("Return");
    dialog.reject();
  });
  EXPECT_EQ(chosen.FileName, "");
}

TEST_F(FileDialogs, SaveWithoutAskingAboutOverwriting) {
  const CommonDialog settings = {.Flags = PathMustExist,
                                 .DefaultExt = ".CRV",
                                 .Filter = "Corvane Patch Files (*.crv)|*.crv",
                                 .InitDir = Game.path().toStdString()};
  const CommonDialog chosen = Show(&CommonDialog::ShowSave, settings, [](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save As");
    ExpectRows(dialog, {"B.CRV", "Maps", "a.crv"});
    Type("a.crv");
    PressKey("Return");
  });
  EXPECT_EQ(chosen.FileName, Game.filePath("a.crv").toStdString());
}

}  // namespace
}  // namespace corvane
