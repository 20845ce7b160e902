#include "ControlList.h"

#include <cstdio>
#include <fstream>
#include <string_view>

namespace corvane {

void WriteControls(const std::string& path, const std::vector<ListedControl>& controls) {
  std::ofstream file(path);
  for (const ListedControl& it : controls) {
    file << static_cast<int>(it.Kind);
    for (const int field : {it.Parent, it.Left, it.Top, it.Width, it.Height, it.Align, it.Enabled,
                            it.Visible, it.Selected})
      file << ' ' << field;
    file << '\t' << it.Text;
    for (const std::string& row : it.Rows) file << '\t' << row;
    file << '\n';
  }
}

// C library only: streams would slow the start of the bare window.
std::vector<ListedControl> ReadControls(const char* path) {
  std::vector<ListedControl> controls;
  std::FILE* file = std::fopen(path, "r");
  char line[4096];
  while (file && std::fgets(line, sizeof line, file)) {
    ListedControl& it = controls.emplace_back();
    int kind = 0, used = 0;
    std::sscanf(line, "%d %d %d %d %d %d %d %d %d %d%n", &kind, &it.Parent, &it.Left, &it.Top,
                &it.Width, &it.Height, &it.Align, &it.Enabled, &it.Visible, &it.Selected, &used);
    it.Kind = static_cast<ListedKind>(kind);
    std::string_view rest = line + used;
    rest.remove_suffix(1);  // the line break
    while (!rest.empty()) {
      rest.remove_prefix(1);  // a tab
      it.Rows.emplace_back(rest.substr(0, rest.find('\t')));
      rest.remove_prefix(it.Rows.back().size());
    }
    it.Text = it.Rows.front();
    it.Rows.erase(it.Rows.begin());
  }
  if (file) std::fclose(file);
  return controls;
}

}  // namespace corvane
