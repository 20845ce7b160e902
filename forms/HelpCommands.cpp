// The commands of the Help menu.

#include "Form1.h"
#include "HelpTexts.h"

namespace corvane {

void Form1::mnuHelpBasic_Click() { Tell(BasicInstructions); }

void Form1::mnuHelpAbout_Click() { Tell(AboutText); }

}  // namespace corvane
