#include "Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>

#include "services/Labels.h"

namespace corvane {
namespace {

// Qt keeps an interface, and may create it before its window is modal.
class WindowInterface : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;
  [[nodiscard]] QAccessible::Role role() const override {
    return widget()->isModal() ? QAccessible::Dialog : QAccessible::Window;
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    return state;
  }
};

QAccessibleInterface* MakeInterface(const QString& kind, QObject* object) {
  return kind == "QMainWindow" ? new WindowInterface(static_cast<QWidget*>(object)) : nullptr;
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
