#include <filesystem>

#include "Groups.h"
#include "Process.h"

namespace corvane {

// Both the tool and the floor flush the picture to disk before they rename it into place.
void AddToolRows(const std::string& folder) {
  const std::string exe = folder + "/CC4.EXE", picture = folder + "/picture.svg";
  const Job draw = ProcessJob(Cost::Millis, {TOOL, "draw", exe, picture});
  draw();
  const std::string size = std::to_string(std::filesystem::file_size(picture));
  AddRow("`corvane-tool check` of 43 maps (ms)", ProcessJob(Cost::Millis, {TOOL, "check", exe}),
         "a process that reads the same bytes", ProcessJob(Cost::Millis, {BARE_READER, folder}),
         1.5, 401);
  AddRow("`corvane-tool draw` of 43 maps as SVG (ms)", draw, "the same, plus a flushed file",
         ProcessJob(Cost::Millis, {BARE_READER, folder, picture, size}), 2, 401);
}

}  // namespace corvane
