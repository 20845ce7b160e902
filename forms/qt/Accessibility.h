// Adds what Qt does not report to screen readers.
#pragma once

#include <QListWidget>
#include <QMainWindow>

#include "services/Form.h"

namespace corvane {

/// From now on, modal windows are announced as modal dialogs.
void InstallAccessibility();

/// Links the labels of a form to the fields they name.
void LinkLabels(const Form& form, const QMainWindow& window);

/// Announces the current row of a list as focused.
void AnnounceCurrentRow(QListWidget& list);

}  // namespace corvane
