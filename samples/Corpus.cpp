// corvane-corpus FOLDER: writes the seed inputs of the fuzz drivers, one folder per driver.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "samples/Noise.h"
#include "samples/SampleGame.h"

namespace {

using Inputs = std::vector<std::string>;

Inputs TableInputs(const corvane::SampleGame& game) {
  const std::string patch = corvane::PatchBytes(game.Tables);
  return {patch, patch.substr(0, 5000), patch + "more bytes"};
}

Inputs DrawInputs(const corvane::SampleGame& game) {
  const std::string patch = corvane::PatchBytes(game.Tables);
  return {patch + corvane::BtdBytes(game.Maps[9]), patch + "<&\"'\n\xE2\x80\xAE>.btd", "short"};
}

Inputs BtdInputs(const corvane::SampleGame& game) {
  const std::string file = corvane::BtdBytes(game.Maps[9]);
  return {file, file.substr(0, 8526), file.substr(0, 325), file.substr(0, 4)};
}

// An array of `count` equal elements.
std::string Elements(int count, const std::string& element) {
  std::string elements = element;
  while (--count > 0) elements += ", " + element;
  return '[' + elements + ']';
}

Inputs JsonInputs() {
  const std::string vl =
      R"({"TileX": 1, "TileY": 2, "Opaque0": [3, 4], "Kind": 50, "Name": "Dair\u0079", )"
      R"("Opaque1": 5, "Destination": 254, "Opaque2": [6, 7]})";
  const std::string btd = R"({"Format": "Corvane BTD", "Version": 1, "Magic": 19990326, )"
                          R"("MapIndex": 9, "BaseName": {"Hex": "44616972790081"}, )"
                          R"("AlliedBrief": ["one\r\n", "two"], "AxisBrief": [], )"
                          R"("VictoryLocations": )" +
                          Elements(10, vl) + '}';
  const std::string rect =
      R"({"Word0":1,"Word1":-2,"Word2":3,"Left":4,"Top":5,"Width":6,"Height":7})";
  const std::string tables = R"({"Format":"Corvane tables","Version":1,"StrMap":)" +
                             Elements(43, rect) + R"(,"StrArrow":)" + Elements(81, rect) +
                             R"(,"MapConnections":[{"From":0,"To":42,"Arrow":-2}],"MapHotspots":)" +
                             Elements(43, R"({"CenterX":8,"CenterY":9})") + '}';
  return {btd, tables, btd.substr(0, 500), R"([[[[1e5, -0, "\ud834\udd1e"]]]])"};
}

// The forms of a text value in a registry file.
Inputs RegistryInputs() {
  Inputs inputs;
  for (const char* value :
       {R"("C:\\Games\\CC4")", R"("D:\\Spi\x65l\351\\\"x\"")", R"(str(2):"C:\\Games")", "dword:43",
        "hex(1):43,00,3a,00,5c,00,47,00", "hex(2):43,00,3a,00,\\\n  5c,00,00,00", "hex:43,3a"}) {
    for (const char* key : {"", R"(Wow6432Node\\)"}) {
      inputs.push_back(std::string("WINE REGISTRY Version 2\n#arch=win64\n\n[Software\\\\") + key +
                       R"(Strategic Simulations Inc.\\Close Combat\\4.00] 1700000000)" +
                       "\n@=\"\"\n\"InstalledTo\"=" + value + "\n");
    }
  }
  return inputs;
}

// The driver takes gestures, answers and texts from the bytes, so noise makes a session.
Inputs SessionInputs() {
  corvane::Noise noise(1944);
  Inputs inputs;
  for (std::size_t size = 16; size <= 512; size *= 2) {
    for (int i = 0; i < 4; ++i) inputs.push_back(noise.Bytes(size));
  }
  return inputs;
}

bool Write(const std::filesystem::path& folder, const Inputs& inputs) {
  std::error_code ignored;  // writing into a missing folder fails below
  std::filesystem::create_directories(folder, ignored);
  bool written = true;
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    std::ofstream file(folder / std::to_string(i), std::ios::binary);
    written = file << inputs[i] << std::flush && written;
  }
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: corvane-corpus FOLDER\n";
    return 1;
  }
  const std::filesystem::path folder = argv[1];
  const corvane::SampleGame game = corvane::MakeSampleGame();
  const bool written = Write(folder / "PatchFuzz", TableInputs(game)) &&
                       Write(folder / "GameExeFuzz", TableInputs(game)) &&
                       Write(folder / "BtdFuzz", BtdInputs(game)) &&
                       Write(folder / "RegistryFuzz", RegistryInputs()) &&
                       Write(folder / "SessionFuzz", SessionInputs()) &&
                       Write(folder / "DrawFuzz", DrawInputs(game)) &&
                       Write(folder / "JsonFuzz", JsonInputs());
  if (!written) std::cerr << "corvane-corpus: could not write to " << folder.string() << "\n";
  return written ? 0 : 1;
}
