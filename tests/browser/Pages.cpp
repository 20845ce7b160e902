// corvane_pages FOLDER: the pages and pictures that the tests in the browser look at.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "../tool/FaultyLayer.h"
#include "tool/Picture.h"
#include "tool/Warnings.h"

namespace corvane {
namespace {

Marks MarksOf(const Layer& layer) {
  Tables = TablesOf(layer);
  VLDest = layer.Destinations;
  MapRows = layer.Rows;
  Marks marks = FindingMarks();
  for (const Mark& mark : WarningsOf(layer)) marks.push_back(mark);
  return marks;
}

Layer MovedLayer(Layer layer) {
  layer.Tiles[9].Left += 30;
  layer.Tiles[9].Top -= 12;
  layer.Hotspots[9].CenterX += 30;
  layer.Arrows[53].Top += 20;
  layer.Connections(5, 12) = layer.Connections(12, 5) = NoConnection;
  return layer;
}

bool Write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  return static_cast<bool>(file << text << std::flush);
}

bool WriteBoth(const std::filesystem::path& folder, const std::string& name,
               const Picture& picture) {
  return Write(folder / (name + ".svg"), DrawSvg(picture)) &&
         Write(folder / (name + ".html"), DrawPage(picture, Reload::Never));
}

bool WritePages(const std::filesystem::path& folder) {
  const Layer sample = LayerOf(MakeSampleGame());
  const Layer faulty = FaultyLayer();
  const Layer moved = MovedLayer(sample);
  const Picture plain{"CC4.EXE", &sample, nullptr, {}, MarksOf(sample)};
  return WriteBoth(folder, "sample", plain) &&
         WriteBoth(folder, "faulty", {"<i>harm</i>.crv", &faulty, nullptr, {}, MarksOf(faulty)}) &&
         WriteBoth(folder, "moved", {"CC4.EXE", &moved, &sample, "before.crv", MarksOf(moved)}) &&
         Write(folder / "watched.html", DrawPage(plain, Reload::Steadily));
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
  if (count == 2 && corvane::WritePages(arguments[1])) return 0;
  std::cerr << "usage: corvane_pages FOLDER, which exists\n";
  return 1;
}
