#include "Dialogs.h"

#include <QtWidgets>

namespace corvane {
namespace {

constexpr QSize DialogSize(760, 440);  // room for names, sizes, kinds and dates

// Rejects the names that its settings refuse, and stays open.
class FileDialog : public QFileDialog {
 public:
  FileDialog(QWidget* owner, const QString& title, const CommonDialog& settings)
      : QFileDialog(owner, title), Settings(settings) {
    // Same behaviour everywhere; the program itself asks whether to overwrite. Under a theme with a
    // native dialog, the child widgets exist only after this call.
    setOptions(DontUseNativeDialog | DontConfirmOverwrite);
    Typed = findChild<QLineEdit*>("fileNameEdit");
    Completions = Typed->completer()->popup();
    Completions->installEventFilter(this);
  }

 protected:
  void accept() override {
    CleanTypedName();
    const std::string name = selectedFiles().value(0).toStdString();
    const std::string refusal = Settings.Refusal(name);
    if (name.empty() || refusal.empty()) return QFileDialog::accept();
    ShowMessageBox(this, refusal, MessageButtons::Ok);
  }

  // Return accepts the typed name unless a completion is selected; Qt would only close the list.
  bool eventFilter(QObject* target, QEvent* event) override {
    if (target == Completions && event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
      if (enter && !Completions->currentIndex().isValid()) {
        Completions->hide();
        accept();
        return true;
      }
    }
    return QFileDialog::eventFilter(target, event);
  }

 private:
  // Resolves "." and "..": the dialog silently ignores a path that contains them.
  void CleanTypedName() {
    const QString name = Typed->text();
    if (!name.contains("..") && !name.contains("./")) return;
    Typed->setText(QDir::cleanPath(directory().absoluteFilePath(name)));
  }

  const CommonDialog& Settings;
  QLineEdit* Typed = nullptr;
  QAbstractItemView* Completions = nullptr;
};

// The drives of the Wine prefix, the likeliest place for a game.
QList<QUrl> WineDrives() {
  const QDir drives(QDir::homePath() + "/.wine/dosdevices");
  QList<QUrl> places;
  for (const QString& name : drives.entryList({"?:"}, QDir::Dirs, QDir::Name)) {
    places.append(QUrl::fromLocalFile(drives.filePath(name)));
  }
  return places;
}

// Sizes and dates are never truncated; names take the remaining width.
void LayOutColumns(const QFileDialog& dialog) {
  auto* header = dialog.findChild<QTreeView*>("treeView")->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setSectionResizeMode(0, QHeaderView::Stretch);
}

// Converts "description|pattern|..." to the dialog's "description (pattern)".
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

void ShowFileDialog(QWidget* owner, CommonDialog& settings) {
  const bool saves = settings.Kind == FileDialogKind::Save;
  FileDialog dialog(owner, saves ? "Save As" : "Open", settings);
  const QStringList filters = NameFilters(settings.Filter);
  const QString folder = QString::fromStdString(settings.InitDir);
  dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFilter(dialog.filter() | QDir::Hidden);  // e.g. .wine
  dialog.setSidebarUrls(dialog.sidebarUrls() + WineDrives());
  dialog.resize(DialogSize.boundedTo(dialog.screen()->availableSize() * 0.9));
  LayOutColumns(dialog);
  dialog.setDirectory(folder.isEmpty() ? QDir::currentPath() : folder);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(settings.FilterIndex - 1));
  if (dialog.exec() != QDialog::Accepted) return;
  const QString path = dialog.selectedFiles().value(0);
  QDir::setCurrent(QFileInfo(path).absolutePath());  // the next dialog starts here
  settings.FileName = path.toStdString();
}

}  // namespace corvane
