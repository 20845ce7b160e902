#include "base/Signals.h"
#include "forms/Form1.h"
#include "rules/FieldEntry.h"
#include "services/Program.h"

int main(int argc, char** argv) {
  corvane::IgnoreFileSizeSignal();
  corvane::Beep = corvane::SystemBeep;
  corvane::Form1 form;
  return corvane::RunProgram(argc, argv, form);
}
