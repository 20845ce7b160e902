// The sample game as the tool sees it, without a file.
#pragma once

#include "data/MapCatalogue.h"
#include "samples/SampleGame.h"
#include "tool/Layer.h"

namespace corvane {

inline void PutTables(Layer& layer, const GameTables& tables) {
  layer.Tiles = tables.Tiles;
  layer.Arrows = tables.Arrows;
  layer.Connections = tables.Connections;
  layer.Hotspots = tables.Hotspots;
}

/// No connection, and no exit.
inline Layer EmptyLayer() {
  Layer layer;
  for (int map = 0; map < MapSlotCount; ++map) {
    for (int to = 0; to < MapSlotCount; ++to) layer.Connections(map, to) = NoConnection;
    for (int vl = 0; vl < VLSlotCount; ++vl) layer.Destinations(map, vl) = NotAnExit;
  }
  return layer;
}

/// Each map is at the slot that its header names.
inline Layer LayerOf(const SampleGame& game) {
  Layer layer;
  PutTables(layer, game.Tables);
  for (const SampleMap& map : game.Maps) {
    const int slot = map.Header.MapIndex;
    layer.Rows.push_back(ThreeDigits(slot) + " " + map.FileName);
    layer.Files.push_back(
        MakeMapFile(map.FileName, {map.Header, map.VLs, map.Text, BtdBytes(map).size()}));
    for (int vl = 0; vl < VLSlotCount; ++vl) {
      const VictoryLocation& location = map.VLs[static_cast<std::size_t>(vl)];
      layer.Destinations(slot, vl) =
          location.Kind == VLKind::Exit ? location.Destination : NotAnExit;
    }
  }
  return layer;
}

}  // namespace corvane
