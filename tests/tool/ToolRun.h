// Runs corvane-tool without a process, in a folder with the sample game, and records the output.
#pragma once

#include <utility>

#include "TestFolder.h"
#include "tool/CommandLine.h"

struct ToolRun : testing::Test {
  ToolRun() {
    for (const auto& [name, bytes] : corvane::GameFiles(Game)) Folder.Put(name, bytes);
  }

  // Arguments that start with a slash name files in the folder.
  int Run(std::vector<std::string> words) {
    for (std::string& word : words)
      if (word.starts_with('/')) word = Folder / word.substr(1);
    Out.clear();
    Errors.clear();
    return corvane::RunTool(words, ToConsole());
  }
  corvane::Console ToConsole() {
    return {[this](std::string_view text) {
              Out += text;
              if (OnPrint) std::exchange(OnPrint, nullptr)();
            },
            [this](std::string_view text) { Errors += text; }, Colour};
  }

  // Removes the path of the folder, which varies, from a text.
  [[nodiscard]] std::string Plain(std::string text) const {
    const std::string folder = Folder / "";
    for (std::size_t at = 0; (at = text.find(folder, at)) != text.npos;)
      text.replace(at, folder.size(), "/");
    return text;
  }

  corvane::SampleGame Game = corvane::MakeSampleGame();
  TestFolder Folder;
  std::string Out, Errors;
  std::function<void()> OnPrint;  // called at the first result
  bool Colour = false;
};
