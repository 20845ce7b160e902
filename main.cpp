#include "FieldEntry.h"
#include "Form1.h"
#include "Program.h"

int main(int argc, char** argv) {
  corvane::Beep = corvane::SystemBeep;
  corvane::Form1 form;
  return corvane::RunProgram(argc, argv, form);
}
