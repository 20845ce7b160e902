#include "Groups.h"
#include "Process.h"

namespace corvane {

void AddToolRows(const std::string& folder) {
  AddRow("`corvane-tool check` of 43 maps (ms)",
         ProcessJob(Cost::Millis, {TOOL, "check", folder + "/CC4.EXE"}),
         "a process that reads the same bytes", ProcessJob(Cost::Millis, {BARE_READER, folder}),
         1.5, 401);
}

}  // namespace corvane
