#include "tool/Commands.h"
#include "tool/Json.h"
#include "tool/Sources.h"
#include "tool/Text.h"

namespace corvane {

int Show(const ShowOptions& options, const Console& console) {
  const MapsWanted maps = options.Json ? MapsWanted::No : MapsWanted::IfThere;
  const auto source = ReadSource(options.Source, options.Game, maps);
  if (!source.Done()) return Fail(console, source.Error());
  if (source->IsBtd) {
    console.Print(options.Json ? BtdToJson(source->Btd) : ListBtd(source->Btd));
  } else {
    console.Print(options.Json ? TablesToJson(source->Tables) : ListTables(source->Tables));
  }
  for (const std::string& fault : source->Faults) Report(console, fault);
  return source->Faults.empty() ? StatusDone : StatusFailed;
}

}  // namespace corvane
