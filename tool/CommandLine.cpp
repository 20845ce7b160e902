#include "tool/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

#include "tool/Draw.h"
#include "tool/Sources.h"
#include "tool/Verbs.h"

namespace corvane {
namespace {

// The verb and the options in the arguments.
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
    "a CC4.EXE with Maps beside it, a patch file (.crv), a BTD file (.btd), or either as .json";
constexpr char GameHelp[] =
    "the folder whose Maps goes with a patch or JSON file; otherwise that of the installed game";

void AddGame(CLI::App& verb, std::string& game) {
  verb.add_option("--game", game, GameHelp)->type_name("DIR");
}

void AddCheck(CLI::App& app, Call& call) {
  CLI::App& verb = *app.add_subcommand("check", "Find what is wrong, and warn of what is odd");
  verb.add_option("SOURCE", call.Check.Sources, SourceHelp)->required()->type_name("");
  AddGame(verb, call.Check.Game);
  verb.add_flag("--strict", call.Check.Strict, "let warnings count as findings");
  verb.footer(
      "Exit status: 0 sound, 1 findings, 2 could not be read.\n\n"
      "Examples:\n"
      "  corvane-tool check ~/game/CC4.EXE\n"
      "  corvane-tool check --strict --game ~/game bulge.crv\n"
      "  corvane-tool check ~/game/Maps/*.btd");
  verb.callback([&call] {
    call.Run = [&call](const Console& console) { return Check(call.Check, console); };
  });
}

void AddShow(CLI::App& app, Call& call) {
  CLI::App& verb = *app.add_subcommand("show", "List everything, a fact a line");
  verb.add_option("SOURCE", call.Show.Source, SourceHelp)->required()->type_name("");
  AddGame(verb, call.Show.Game);
  verb.add_flag("--json", call.Show.Json, "print the lossless form instead, without the maps");
  verb.footer(
      "Exit status: 0 done, 2 could not be read.\n\n"
      "Examples:\n"
      "  corvane-tool show ~/game/CC4.EXE\n"
      "  corvane-tool show --json ~/game/Maps/Havrune.btd\n"
      "  git config diff.corvane.textconv 'corvane-tool show'");
  verb.callback(
      [&call] { call.Run = [&call](const Console& console) { return Show(call.Show, console); }; });
}

void AddDiff(CLI::App& app, Call& call) {
  CLI::App& verb = *app.add_subcommand("diff", "Tell what differs between two sources");
  verb.add_option("A", call.Diff.Before, SourceHelp)->required()->type_name("");
  verb.add_option("B", call.Diff.After, "the same, with the changes")->required()->type_name("");
  AddGame(verb, call.Diff.Game);
  verb.footer(
      "The map files count where both are a CC4.EXE.\n"
      "Exit status: 0 alike, 1 different, 2 could not be read.\n\n"
      "Examples:\n"
      "  corvane-tool diff ~/game/CC4.EXE ~/mod/CC4.EXE\n"
      "  corvane-tool diff bulge-1.crv bulge-2.crv\n"
      "  corvane-tool diff ~/game/Maps/Havrune.btd havrune.json");
  verb.callback(
      [&call] { call.Run = [&call](const Console& console) { return Diff(call.Diff, console); }; });
}

void AddCopy(CLI::App& app, Call& call) {
  CLI::App& verb = *app.add_subcommand("copy", "Put tables or a BTD record into another file");
  verb.add_option("FROM", call.Copy.From, SourceHelp)->required()->type_name("");
  verb.add_option("TO", call.Copy.To, "where they go; its name tells the kind of file")
      ->required()
      ->type_name("");
  AddGame(verb, call.Copy.Game);
  verb.add_flag("--unchecked", call.Copy.Unchecked, "copy what does not pass the check, too");
  verb.add_flag("--dry-run", call.Copy.DryRun, "tell what would change, and write nothing");
  verb.add_flag("--force", call.Copy.Force, "replace an existing patch or JSON file");
  verb.footer(
      "Changes a CC4.EXE or a BTD file in place: back up first.\n"
      "Exit status: 0 done, 1 refused, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool copy bulge.crv ~/game/CC4.EXE\n"
      "  corvane-tool copy --dry-run bulge.crv ~/game/CC4.EXE\n"
      "  corvane-tool copy ~/game/CC4.EXE tables.json\n"
      "  corvane-tool copy --force --game ~/game tables.json bulge.crv");
  verb.callback(
      [&call] { call.Run = [&call](const Console& console) { return Copy(call.Copy, console); }; });
}

// Shorter than a person takes to look from the editor to the browser.
bool PauseWatch() {
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  return true;
}

int DrawAsAsked(const Call& call, const Console& console) {
  if (!call.Watch) return Draw(call.Draw, console);
  ComplainOf(console, "watching the files; Ctrl+C ends this.");
  return WatchAndDraw(call.Draw, console, PauseWatch);
}

void AddDraw(CLI::App& app, Call& call) {
  CLI::App& verb = *app.add_subcommand("draw", "Draw the strategic layer");
  verb.add_option("SOURCE", call.Draw.Source, SourceHelp)->required()->type_name("");
  verb.add_option("OUT", call.Draw.Out, "a picture (.svg) or a page for the browser (.html)")
      ->required()
      ->type_name("");
  verb.add_option("--against", call.Draw.Against, "a second source: what moved stands in outline")
      ->type_name("SOURCE");
  AddGame(verb, call.Draw.Game);
  verb.add_flag("--watch", call.Watch, "draw again whenever a file changes; the page follows");
  verb.footer(
      "Replaces OUT. Exit status: 0 done, 2 failed.\n\n"
      "Examples:\n"
      "  corvane-tool draw ~/game/CC4.EXE layer.svg\n"
      "  corvane-tool draw ~/game/CC4.EXE layer.html --against ~/backup/CC4.EXE\n"
      "  corvane-tool draw --watch ~/game/CC4.EXE layer.html");
  verb.callback([&call] {
    call.Run = [&call](const Console& console) { return DrawAsAsked(call, console); };
  });
}

// A file manager passes files alone when they are dropped on the program.
void AddFiles(CLI::App& app, Call& call) {
  app.add_option("FILE", call.Files, "draw a page of each file and open it in the browser")
      ->type_name("");
  AddGame(app, call.Game);
}

bool IsEmpty(const std::string& word) { return word.empty(); }

int Misuse(const std::string& reason, const Console& console) {
  ComplainOf(console, reason);
  ComplainOf(console, "Try corvane-tool --help.");
  return StatusFailed;
}

int ShowFiles(const Call& call, const Console& console) {
  // A misspelt verb comes in as the first of the files, so all are checked before one is drawn.
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
  CLI::App app("See, check, compare, copy and draw the strategic layer of Close Combat 4.",
               "corvane-tool");
  Call call;
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.set_help_flag("-h,--help", "print how to use the program, or with a verb, that verb");
  app.set_version_flag("--version", "corvane-tool " CORVANE_VERSION);
  app.require_subcommand(0, 1);
  AddCheck(app, call);
  AddShow(app, call);
  AddDiff(app, call);
  AddCopy(app, call);
  AddDraw(app, call);
  AddFiles(app, call);
  app.footer("corvane-tool VERB --help tells more of a verb, with examples.");
  if (std::ranges::any_of(arguments, IsEmpty))
    return Misuse("an argument is empty; is a variable of the shell not set?", console);
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForVersion& version) {
    return Print(std::string(version.what()) + "\n", console);
  } catch (const CLI::CallForHelp&) {
    return Print(app.help(), console);
  } catch (const CLI::ParseError& error) {
    return Misuse(error.what(), console);
  }
  if (!call.Run && !call.Files.empty()) return ShowFiles(call, console);
  return call.Run ? call.Run(console) : Misuse("a verb or a file is missing", console);
}

}  // namespace corvane
