// The commands of the Help menu.

#include "HelpTexts.h"
#include "forms/Form1.h"

namespace corvane {

void Form1::mnuHelpBasic_Click() { Tell(BasicInstructions); }

void Form1::mnuHelpAbout_Click() { Tell(AboutText); }

}  // namespace corvane
