// The input is the registry file of a Wine prefix; then a value of the 32-bit view is appended.
#include "Fuzz.h"
#include "data/GameFolder.h"

void corvane::Run(const TestFolder& folder, const std::string& input) {
  setenv("HOME", folder.Path.c_str(), 1);
  folder.Put(".wine/system.reg", input);
  static_cast<void>(ReadInstallPath());
  folder.Put(".wine/system.reg", input + R"(

[Software\\Wow6432Node\\Strategic Simulations Inc.\\Close Combat\\4.00]
"InstalledTo"="C:\\X")");
  Require(ReadInstallPath() == folder / ".wine/dosdevices/c:/X", "the last value wins");
}
