// corvane_pages FOLDER: the pages and pictures that the tests in the browser look at.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "../tool/SampleLayer.h"
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

void SpoilNames(Layer& layer) {
  const std::string names[] = {"<script>document.title='harm'</script>.btd",
                               "\"onmouseover=\"document.title='harm'.btd",
                               "two\nlines\x1B[31m.btd",
                               "\u202Edtb.left-to-right\u202C.btd",
                               "</title><img src=x onerror=document.title='harm'>.btd",
                               "\u05E9\u05DC\u05D5\u05DD \u6771\u4EAC.btd",
                               "A name far longer than any tile could ever hold without help.btd",
                               "\xFF\xFE'&amp;.btd"};
  for (std::size_t map = 0; map < std::size(names); ++map) {
    layer.Files[map].Name = names[map];
    layer.Rows[map] = ThreeDigits(static_cast<int>(map)) + " " + names[map];
  }
  SetField(layer.Files[8].VLs[0].Name, "<b>\"&\x02'</b>");
}

void SpoilPlaces(Layer& layer) {
  layer.Tiles[10].Left = 801;
  layer.Tiles[11].Width = 0;
  layer.Tiles[12] = {.Left = 740, .Top = 560, .Width = 120, .Height = 90};
  layer.Tiles[16].Left -= 60;
  layer.Hotspots[13].CenterX = -1;
  layer.Hotspots[14] = {790, 590};
  layer.Arrows[20].Left = -3;
  layer.Arrows[21].Height = 0;
  layer.Arrows[22] = {.Left = 780, .Top = 400, .Width = 60, .Height = 20};
}

void SpoilRoads(Layer& layer) {
  layer.Connections(0, 1) = NoConnection;    // an exit without a connection
  layer.Connections(24, 23) = NoConnection;  // one way
  layer.Connections(20, 36) = 5;             // no exit leads along, an arrow of other maps
  layer.Connections(30, 30) = 40;            // joined to itself
  layer.Connections(16, 17) = 99;            // no arrow
  layer.Destinations(41, 9) = 200;           // to nowhere
  layer.Files[41].VLs[9].Kind = VLKind::Exit;
  layer.Files[41].VLs[9].Destination = 200;
  layer.Files[42].Header.Magic = 7;
}

// The sample with every kind of fault in it, and with names that would do harm if they could.
Layer FaultyLayer() {
  Layer layer = LayerOf(MakeSampleGame());
  SpoilNames(layer);
  SpoilPlaces(layer);
  SpoilRoads(layer);
  return layer;
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
         Write(folder / "watched.html", DrawPage(plain, Reload::Periodically));
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
  if (count == 2 && corvane::WritePages(arguments[1])) return 0;
  std::cerr << "usage: corvane_pages FOLDER, which exists\n";
  return 1;
}
