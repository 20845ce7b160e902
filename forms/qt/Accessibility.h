// What a screen reader is told beyond what Qt tells it.
#pragma once

#include <QListWidget>
#include <QMainWindow>

#include "services/Form.h"

namespace corvane {

/// From now on a modal window says that it is a dialog and modal.
void InstallAccessibility();

/// Ties the labels of a form to the fields that they name.
void TieLabels(const Form& form, const QMainWindow& window);

/// Tells that the focus is at the current row of a list.
void AnnounceCurrentRow(QListWidget& list);

}  // namespace corvane
