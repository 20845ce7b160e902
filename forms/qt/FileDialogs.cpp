#include "Dialogs.h"

#include <QtWidgets>

#include "base/FolderScan.h"

namespace corvane {
namespace {

// What was chosen; a file that must exist is found in any letter case.
QFileInfo ChosenFile(const QString& name, int flags) {
  const QFileInfo file(name);
  if (!(flags & FileMustExist)) return file;
  const std::string folder = file.path().toStdString();
  return QFileInfo(file.dir(),
                   QString::fromStdString(NameInFolder(folder, file.fileName().toStdString())));
}

// Refuses what its flags refuse, and stays open.
class FileDialog : public QFileDialog {
 public:
  FileDialog(QWidget* owner, const QString& title, int flags)
      : QFileDialog(owner, title), Flags(flags) {}

 protected:
  void accept() override {
    const QString name = selectedFiles().value(0);
    const QFileInfo file = ChosenFile(name, Flags);
    const char* missing = nullptr;
    if ((Flags & PathMustExist) && !file.dir().exists()) missing = "\r\nPath does not exist.";
    if ((Flags & FileMustExist) && !file.exists()) missing = "\r\nFile not found.";
    if (name.isEmpty() || !missing) return QFileDialog::accept();
    ShowMessageBox(this, name.toStdString() + missing, MessageButtons::Ok);
  }

 private:
  int Flags;
};

// "description|pattern|description|pattern" as the dialog wants it: "description (pattern)".
QStringList NameFilters(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
    const QString name = parts[at].section('(', 0, 0).trimmed();
    filters.append(name + " (" + QString(parts[at + 1]).replace(';', ' ') + ")");
  }
  return filters;
}

}  // namespace

void ShowFileDialog(QWidget* owner, CommonDialog& settings, QFileDialog::AcceptMode mode) {
  FileDialog dialog(owner, mode == QFileDialog::AcceptSave ? "Save As" : "Open", settings.Flags);
  const QStringList filters = NameFilters(settings.Filter);
  const QString folder = QString::fromStdString(settings.InitDir);
  // One behaviour everywhere; whether to overwrite is the program's own question.
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(mode);
  dialog.setDirectory(folder.isEmpty() ? QDir::currentPath() : folder);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(settings.FilterIndex - 1));
  dialog.setDefaultSuffix(QString::fromStdString(settings.DefaultExt));
  if (dialog.exec() != QDialog::Accepted) return;
  const QFileInfo file = ChosenFile(dialog.selectedFiles().value(0), settings.Flags);
  settings.FileName = file.filePath().toStdString();
  settings.FileTitle = file.fileName().toStdString();
}

}  // namespace corvane
