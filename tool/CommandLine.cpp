#include "tool/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "Paths.h"
#include "tool/Commands.h"
#include "tool/Draw.h"
#include "tool/Sources.h"

namespace corvane {
namespace {

// The command and its options.
struct Call {
  std::function<int(const Console&)> Run;
  CheckOptions Check;
  ShowOptions Show;
  DiffOptions Diff;
  CopyOptions Copy;
  DrawOptions Draw;
  bool Watch = false;
  std::vector<std::string> Files;
  std::string Game;
};

constexpr char SourceHelp[] =
    "a CC4.EXE with Maps beside it, a patch file (.crv), a BTD file (.btd), or any of these as "
    ".json";
constexpr char GameHelp[] =
    "the game folder with the Maps of a patch or JSON file; default: the installed game";

// Adds a command, which calls `run` with these options.
template <class Options>
CLI::App& AddCommand(CLI::App& app, const char* name, const char* help, Call& call,
                     int (*run)(const Options&, const Console&), const Options& options) {
  CLI::App& command = *app.add_subcommand(name, help);
  command.group("Commands");
  command.callback([&call, run, &options] {
    call.Run = [run, &options](const Console& console) { return run(options, console); };
  });
  return command;
}

CLI::Option& AddArgument(CLI::App& command, const char* name, auto& value, const char* help) {
  return *command.add_option(name, value, help)->required()->type_name("");
}

// Adds an argument that names a file in any letter case.
void AddFile(CLI::App& command, const char* name, auto& value, const char* help) {
  AddArgument(command, name, value, help).transform(InCaseOfFile);
}

void AddGame(CLI::App& command, std::string& game, const char* help = GameHelp) {
  command.add_option("--game", game, help)->type_name("DIR");
}

void AddCheck(CLI::App& app, Call& call) {
  CLI::App& command =
      AddCommand(app, "check", "Print findings and warnings", call, Check, call.Check);
  AddFile(command, "SOURCE", call.Check.Sources, SourceHelp);
  AddGame(command, call.Check.Game);
  command.add_flag("--strict", call.Check.Strict, "treat warnings as findings");
  command.footer(
      "Exit status: 0 no findings, 1 findings, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool check ~/game/CC4.EXE\n"
      "  corvane-tool check --strict --game ~/game bulge.crv\n"
      "  corvane-tool check ~/game/Maps/*.btd");
}

void AddShow(CLI::App& app, Call& call) {
  CLI::App& command = AddCommand(app, "show", "List the contents of a source, one item per line",
                                 call, Show, call.Show);
  AddFile(command, "SOURCE", call.Show.Source, SourceHelp);
  AddGame(command, call.Show.Game);
  command.add_flag("--json", call.Show.Json, "print lossless JSON instead, without the maps");
  command.footer(
      "Exit status: 0 done, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool show ~/game/CC4.EXE\n"
      "  corvane-tool show --json ~/game/Maps/Havrune.btd\n"
      "  git config diff.corvane.textconv 'corvane-tool show'");
}

void AddDiff(CLI::App& app, Call& call) {
  CLI::App& command =
      AddCommand(app, "diff", "Print the differences between two sources", call, Diff, call.Diff);
  AddFile(command, "A", call.Diff.Before, SourceHelp);
  AddFile(command, "B", call.Diff.After, "the source to compare it with");
  AddGame(command, call.Diff.Game);
  command.footer(
      "Map files are compared only if both sources are a CC4.EXE.\n"
      "Exit status: 0 no differences, 1 differences, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool diff ~/game/CC4.EXE ~/mod/CC4.EXE\n"
      "  corvane-tool diff bulge-1.crv bulge-2.crv\n"
      "  corvane-tool diff ~/game/Maps/Havrune.btd havrune.json");
}

void AddCopy(CLI::App& app, Call& call) {
  CLI::App& command =
      AddCommand(app, "copy", "Copy tables or a BTD record to another file", call, Copy, call.Copy);
  AddFile(command, "FROM", call.Copy.From, SourceHelp);
  AddFile(command, "TO", call.Copy.To, "the target; its name determines the kind of file");
  AddGame(
      command, call.Copy.Game,
      "the game folder with the Maps to check against; default: the folder of a CC4.EXE to write, "
      "or the installed game");
  command.add_flag("--unchecked", call.Copy.Unchecked, "also copy tables that fail the check");
  command.add_flag("--dry-run", call.Copy.DryRun, "print what would change and write nothing");
  command.add_flag("--force", call.Copy.Force, "replace an existing patch or JSON file");
  command.footer(
      "Changes a CC4.EXE or a BTD file in place: back up first.\n"
      "Exit status: 0 done, 1 refused, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool copy bulge.crv ~/game/CC4.EXE\n"
      "  corvane-tool copy --dry-run bulge.crv ~/game/CC4.EXE\n"
      "  corvane-tool copy ~/game/CC4.EXE tables.json\n"
      "  corvane-tool copy --force --game ~/game tables.json bulge.crv");
}

// Checks the files about three times a second.
bool PauseWatch() {
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  return true;
}

int DrawOrWatch(const Call& call, const Console& console) {
  if (!call.Watch) return Draw(call.Draw, console);
  Report(console, "watching the files; press Ctrl+C to stop.");
  return WatchAndDraw(call.Draw, console, PauseWatch);
}

void AddDraw(CLI::App& app, Call& call) {
  CLI::App& command = AddCommand(app, "draw", "Draw the strategic layer", call, DrawOrWatch, call);
  AddFile(command, "SOURCE", call.Draw.Source, SourceHelp);
  AddArgument(command, "OUT", call.Draw.Out,
              "a picture (.svg) or a page for the browser (.html); replaced if it exists");
  command
      .add_option("--against", call.Draw.Against, "draw the positions in this source in outline")
      ->type_name("SOURCE")
      ->transform(InCaseOfFile);
  AddGame(command, call.Draw.Game);
  command.add_flag("--watch", call.Watch, "redraw whenever a file changes; the page reloads");
  command.footer(
      "Exit status: 0 done, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool draw ~/game/CC4.EXE layer.svg\n"
      "  corvane-tool draw ~/game/CC4.EXE layer.html --against ~/backup/CC4.EXE\n"
      "  corvane-tool draw --watch ~/game/CC4.EXE layer.html");
}

// A file manager passes only the files that are dropped on the program.
void AddFiles(CLI::App& app, Call& call) {
  app.add_option("FILE", call.Files, "draw a page of each file and open it in the browser")
      ->type_name("")
      ->transform(InCaseOfFile);
  AddGame(app, call.Game);
}

bool IsEmpty(const std::string& word) { return word.empty(); }

// No option has a single hyphen, except -h.
bool IsFileLikeOption(const std::string& word) {
  return word.size() > 1 && word.starts_with('-') && !word.starts_with("--") && word != "-h";
}

int Misuse(const std::string& reason, const Console& console) {
  Report(console, reason);
  Report(console, "Try corvane-tool --help.");
  return StatusFailed;
}

int MisuseOf(const std::vector<std::string>& arguments, const std::string& reason,
             const Console& console) {
  const auto file = std::ranges::find_if(arguments, IsFileLikeOption);
  if (file == arguments.end()) return Misuse(reason, console);
  return Misuse(reason + " (if " + *file + " is a file, put -- before it)", console);
}

int ShowFiles(const Call& call, const Console& console) {
  // A misspelt command arrives as the first file, so all are checked before one is drawn.
  for (const std::string& file : call.Files) {
    if (const std::string fault = SourceFault(file); !fault.empty()) return Misuse(fault, console);
  }
  int status = StatusDone;
  for (const std::string& file : call.Files)
    status = std::max(status, ShowInBrowser(file, call.Game, console));
  return status;
}

int Print(const std::string& text, const Console& console) {
  console.Print(text);
  return StatusDone;
}

}  // namespace

int RunTool(const std::vector<std::string>& arguments, const Console& console) {
  CLI::App app("Check, show, compare, copy and draw the strategic layer of Close Combat 4.",
               "corvane-tool");
  Call call;
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.set_help_flag("-h,--help", "print this help");
  app.set_version_flag("--version", "corvane-tool " CORVANE_VERSION, "print the version");
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("REQUIRED", "");
  app.require_subcommand(0, 1);
  AddCheck(app, call);
  AddShow(app, call);
  AddDiff(app, call);
  AddCopy(app, call);
  AddDraw(app, call);
  AddFiles(app, call);
  app.footer("corvane-tool COMMAND --help describes a command, with examples.");
  if (std::ranges::any_of(arguments, IsEmpty))
    return Misuse("an argument is empty; is a shell variable unset?", console);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForVersion& version) {
    return Print(std::string(version.what()) + "\n", console);
  } catch (const CLI::CallForHelp&) {
    return Print(app.help(), console);
  } catch (const CLI::ParseError& error) {
    return MisuseOf(arguments, error.what(), console);
  }
  if (!call.Run && !call.Files.empty()) return ShowFiles(call, console);
  return call.Run ? call.Run(console) : Misuse("a command or a file is missing", console);
}

}  // namespace corvane
