// The program's help: three fixed texts.
#pragma once

namespace corvane {

inline constexpr char BasicInstructions[] =
    "Basic Instructions on using Corvane:"
    "\r\n\r\n"
    "WARNING: Use this tool at your own risk. Back up CC4.EXE and all map .btd "
    "files. Improper use will result in a non-functional CC4. If you don't already understand "
    "how ScrnGadg.gdg, the map .btd files, and the strategic layer of CC4 are "
    "are related, seek this knowledge elsewhere before attempting to modify "
    " CC4.EXE with this tool! "
    "\r\n\r\n"
    "Before modifying the strategic layer, first place your new set of map .btd files "
    "in a Maps subdirectory under the directory where you have the copy of CC4.EXE you want "
    "to modify. Then open CC4.EXE in Corvane and edit the .btd files, STRMAP, and STRARROW "
    "information to match up your .btd map info, STRMAP tiles, and STRARROWs. You can either save "
    "your work to a 'patch file', which can later be used to patch a standard copy of CC4.EXE, or "
    "you can save your changes directly into the copy of CC4.EXE you opened.";

inline constexpr char AboutText[] = "Corvane for Close Combat 4";

inline constexpr char EditHelp[] = "Help text";

}  // namespace corvane
