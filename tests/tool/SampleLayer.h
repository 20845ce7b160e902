// The sample game as a layer, without files.
#pragma once

#include "data/MapCatalogue.h"
#include "samples/SampleGame.h"
#include "tool/Layer.h"

namespace corvane {

/// Each map is at the slot in its header.
inline Layer LayerOf(const SampleGame& game) {
  Layer layer;
  layer.Tiles = game.Tables.Tiles;
  layer.Arrows = game.Tables.Arrows;
  layer.Connections = game.Tables.Connections;
  layer.Hotspots = game.Tables.Hotspots;
  for (const SampleMap& map : game.Maps) {
    const int slot = map.Header.MapIndex;
    layer.Rows.push_back(ThreeDigits(slot) + " " + map.FileName);
    layer.Files.push_back({map.FileName, BtdBytes(map).size(), map.Header, map.VLs, map.Text});
    for (int vl = 0; vl < VLSlotCount; ++vl) {
      const VictoryLocation& location = map.VLs[static_cast<std::size_t>(vl)];
      layer.Destinations(slot, vl) =
          location.Kind == VLKind::Exit ? location.Destination : NotAnExit;
    }
  }
  return layer;
}

}  // namespace corvane
