#include "CatalogueMessage.h"

namespace corvane {
namespace {

std::string NoMapFiles(const CatalogueReport& report) {
  std::string text = "Error: No map files were found in the folder " + report.Folder + ".";
  for (const Failure& failure : report.Failures) {
    if (failure.Reason != std::errc::no_such_file_or_directory)
      text.append(" ").append(ReasonText(failure.Reason, failure.Path)).append(".");
  }
  return text;
}

}  // namespace

std::string CatalogueMessage(const CatalogueReport& report) {
  if (!report.FoundFiles) return NoMapFiles(report);
  if (report.Failures.empty()) return {};
  std::string text =
      "Error: Some map files could not be read. They have no row, so the rows and the map numbers "
      "may no longer agree:";
  for (const Failure& failure : report.Failures) text += "\r\n" + FailureMessage(failure);
  return text;
}

}  // namespace corvane
