#include "tool/Draw.h"

#include <filesystem>
#include <random>
#include <span>
#include <vector>

#include "Browser.h"
#include "Paths.h"
#include "base/FileRanges.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "base/RawFile.h"
#include "base/Signals.h"
#include "tool/Picture.h"
#include "tool/Sources.h"
#include "tool/Warnings.h"

namespace corvane {
namespace {

enum class Format { Svg, Page, Neither };

// The result of a drawing, and the folders whose files it shows.
struct Drawing {
  int Status = StatusDone;
  std::vector<std::string> Folders{};
};

Format FormatOf(const std::string& path) {
  const std::string title = ToUpper(FileTitle(path));
  if (title.ends_with(".SVG")) return Format::Svg;
  return title.ends_with(".HTML") || title.ends_with(".HTM") ? Format::Page : Format::Neither;
}

std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// Resolves links, so that a link is kept and its target replaced.
std::filesystem::path ResolveLinks(const std::string& path) {
  std::error_code error;
  const std::filesystem::path file = std::filesystem::canonical(ToSystemPath(path), error);
  return error ? ToSystemPath(path) : file;
}

// An unused path beside `file`. Random, since another process may draw the same picture.
std::string FreshName(const std::filesystem::path& file) {
  std::random_device random;
  std::filesystem::path fresh;
  std::error_code error;
  do {
    fresh = file.parent_path() / ("corvane-new-" + std::to_string(random()));
  } while (std::filesystem::exists(std::filesystem::symlink_status(fresh, error)));
  return TextOf(fresh);
}

// Restates a failure to write the fresh file as one to save the picture at `path`.
Failure NotPublished(const std::string& path, const Failure& fresh) {
  if (fresh.State == FileState::NotRemoved || fresh.State == FileState::Unknown) return fresh;
  const bool exists = OrdinaryFileExists(path);
  return {FileAction::Save, path, fresh.Reason,
          exists ? FileState::Unchanged : FileState::NotCreated};
}

// Replaces the file in one step, so that a browser never reads half a page.
Result<void, std::string> Publish(const std::string& path, std::string_view text) {
  const EndSignalGuard guard;  // a signal would leave the fresh file behind
  const std::filesystem::path file = ResolveLinks(path);
  const std::string fresh = FreshName(file);
  const WriteRange whole{0, std::as_bytes(std::span(text))};
  const Result<> saved = SaveInPlace(fresh, {&whole, 1}, IfMissing::Create);
  if (!saved.Done()) return FailureMessage(NotPublished(path, saved.Error()));
  std::error_code error;
  std::filesystem::rename(ToSystemPath(fresh), file, error);
  if (!error) return {};
  static_cast<void>(RemoveFile(fresh));  // the first failure is the one to report
  return FailureMessage(NotPublished(path, {FileAction::Save, fresh, error}));
}

// Returns nothing if the source cannot be drawn, and reports why.
std::optional<Source> ReadLayer(const std::string& path, const std::string& game,
                                const Console& console, Drawing& drawing) {
  auto source = ReadSource(path, game, MapsWanted::IfThere);
  std::string failure = source.Done() ? std::string() : source.Error();
  if (source.Done() && source->IsBtd)
    failure = path + " holds a single map. A picture needs the tables.";
  if (!failure.empty()) {
    drawing.Status = Fail(console, failure);
    return std::nullopt;
  }
  if (!source->MapsFolder.empty()) drawing.Folders.push_back(source->MapsFolder);
  for (const std::string& fault : source->Faults) drawing.Status = Fail(console, fault);
  return std::move(*source);
}

// Without map files, the check would report every exit as missing.
Marks MarksOf(const Source& source) {
  Marks marks;
  if (source.HasMaps) marks = FindingMarks();
  for (Mark& mark : WarningsOf(source.Tables)) marks.push_back(std::move(mark));
  return marks;
}

Picture PictureOf(const Source& now, const std::optional<Source>& before) {
  Picture picture{std::string(FileTitle(now.Path)), &now.Tables, nullptr, {}, MarksOf(now)};
  if (!before) return picture;
  picture.Before = &before->Tables;
  picture.BeforeName = FileTitle(before->Path);
  if (picture.BeforeName != picture.Name) return picture;
  picture.Name = now.Path;
  picture.BeforeName = before->Path;
  return picture;
}

Drawing DrawOnce(const DrawOptions& options, Reload reload, const Console& console) {
  Drawing drawing;
  std::optional<Source> before;
  if (!options.Against.empty()) {
    before = ReadLayer(options.Against, options.Game, console, drawing);
    if (!before) return drawing;
  }
  // Read last, since the check uses the tables of the process.
  const std::optional<Source> now = ReadLayer(options.Source, options.Game, console, drawing);
  if (!now) return drawing;
  const Picture picture = PictureOf(*now, before);
  const std::string text =
      FormatOf(options.Out) == Format::Svg ? DrawSvg(picture) : DrawPage(picture, reload);
  const auto published = Publish(options.Out, text);
  if (!published.Done()) drawing.Status = Fail(console, published.Error());
  return drawing;
}

int FailForOut(const DrawOptions& options, const Console& console) {
  return Fail(console, options.Out + " does not end in .svg or .html.");
}

// A text that changes whenever the file changes. The standard library's file times would not do: on
// some systems they count whole seconds.
std::string StampOf(const std::string& file) {
  const FileStatus status = StatusAt(file);
  std::string stamp = file;
  for (const std::uint64_t number : {status.Length, static_cast<std::uint64_t>(status.Written),
                                     status.Identity[0], status.Identity[1]})
    (stamp += '\n') += std::to_string(number);
  return stamp + '\n';
}

std::string StampOf(const DrawOptions& options, const std::vector<std::string>& folders) {
  std::string stamp = StampOf(options.Source) + StampOf(options.Against);
  for (const std::string& folder : folders) {
    std::vector<std::string> names;
    const std::error_code error = ScanFolder(folder, ".BTD", MapSlotCount + 1, names);
    if (error) stamp += folder + "\n";  // differs once the folder is back
    for (const std::string& name : names) {
      std::string file = folder;
      (file += Separator) += name;
      stamp += StampOf(file);
    }
  }
  return stamp;
}

std::string NewTemporaryFolder(std::error_code& error) {
  const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
  if (error) return {};
  std::filesystem::path folder;
  std::random_device random;
  do {
    folder = temporary / ("corvane-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(folder, error) && !error);
  return TextOf(folder);
}

}  // namespace

int Draw(const DrawOptions& options, const Console& console) {
  if (FormatOf(options.Out) == Format::Neither) return FailForOut(options, console);
  return DrawOnce(options, Reload::Never, console).Status;
}

int WatchAndDraw(const DrawOptions& options, const Console& console,
                 const std::function<bool()>& pause) {
  if (FormatOf(options.Out) == Format::Neither) return FailForOut(options, console);
  constexpr int PausesAfterFailure = 10;
  std::vector<std::string> folders;
  std::string drawn, errors, printed;
  const Console collecting{console.Print, [&](std::string_view text) { errors += text; }};
  int status = StatusDone;
  int pausesLeft = 0;
  do {
    // Taken before the drawing, so that a change during the drawing causes another one.
    const std::string stamp = StampOf(options, folders);
    // A retry may succeed although no file has changed: the disk is no longer full.
    if (stamp == drawn && (status == StatusDone || --pausesLeft > 0)) continue;
    errors.clear();
    const Drawing drawing = DrawOnce(options, Reload::Periodically, collecting);
    if (!drawing.Folders.empty()) folders = drawing.Folders;
    status = drawing.Status;
    pausesLeft = PausesAfterFailure;
    drawn = stamp;
    if (errors != printed && !errors.empty()) console.PrintError(errors);
    printed = errors;
  } while (pause());
  return status;
}

int ShowInBrowser(const std::string& source, const std::string& game, const Console& console) {
  std::error_code error;
  const std::string folder = NewTemporaryFolder(error);
  if (error)
    return Fail(console, "A temporary folder could not be created: " + ReasonText(error) + ".");
  const std::string page = folder + Separator + "corvane.html";
  const int status = Draw({source, page, {}, game}, console);
  if (!OrdinaryFileExists(page)) {
    std::filesystem::remove(ToSystemPath(folder), error);  // it is empty
    return status;
  }
  console.Print(page + "\n");
  error = OpenInBrowser(page);
  if (!error) return status;
  return Fail(console, page + " could not be opened in a browser: " + ReasonText(error) + ".");
}

}  // namespace corvane
