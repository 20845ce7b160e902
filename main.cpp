#include "forms/Form1.h"
#include "rules/FieldEntry.h"
#include "services/Program.h"

int main(int argc, char** argv) {
  corvane::Beep = corvane::SystemBeep;
  corvane::Form1 form;
  return corvane::RunProgram(argc, argv, form);
}
