#include "Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include "services/Labels.h"

namespace corvane {
namespace {

class ModalWindow : public QAccessibleWidget {
 public:
  explicit ModalWindow(QWidget* window) : QAccessibleWidget(window, QAccessible::Dialog) {}
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = true;
    return state;
  }
};

QAccessibleInterface* MakeInterface(const QString& kind, QObject* object) {
  if (kind != "QMainWindow") return nullptr;
  auto* window = static_cast<QWidget*>(object);
  return window->isModal() ? new ModalWindow(window) : nullptr;
}

}  // namespace

void InstallAccessibility() { QAccessible::installFactory(MakeInterface); }

void LinkLabels(const Form& form, const QMainWindow& window) {
  for (const AnyControl& any : form.Controls) {
    Label* const* label = std::get_if<Label*>(&any);
    const Control* field = label ? FieldOf(**label) : nullptr;
    if (!field) continue;
    window.findChild<QLabel*>((*label)->Name)->setBuddy(window.findChild<QWidget*>(field->Name));
  }
}

void AnnounceCurrentRow(QListWidget& list) {
  if (list.currentRow() < 0 || !list.hasFocus()) return;
  QAccessibleEvent event(&list, QAccessible::Focus);
  event.setChild(list.currentRow());
  QAccessible::updateAccessibility(&event);
}

}  // namespace corvane
