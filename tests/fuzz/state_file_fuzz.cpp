// The full database's readers of outside text: a state file loaded into rows, listed, changed
// and written, and the same bytes read as an index and scanned for locations. What must hold
// for any input: the rows give back the input byte for byte, every row is found by its own
// key, a change keeps the number of lines and their kinds, and the index's states resolve by
// their own file names.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "database/db_near.h"
#include "database/hpdb_index.h"
#include "database/state_edit.h"
#include "database/state_file.h"

namespace {

void require(bool ok) {
  if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zel::database;
  const std::string text(reinterpret_cast<const char*>(data), size);

  StateFile file = StateFile::fromText(text);
  require(file.text() == text);
  for (std::size_t n = 0; n < file.rows().size(); ++n) {
    require(file.findRow(rowKey(file.rows()[n])) == static_cast<long>(n));
  }
  std::vector<std::size_t> rows;
  for (const ChannelItem& item : listChannels(file, {})) rows.push_back(item.row);
  for (const SystemInfo& s : file.systems()) {
    for (const DepartmentInfo& d : departmentsOf(file, s.number)) {
      require(d.system == s.number);
      listChannels(file, {s.number, d.number, ChannelKinds::Trunk, 3});
    }
  }
  applyChanges(file, rows, {{DbSetting::Attenuator, "On"}, {DbSetting::AlertPattern, "Slow Blink"}});
  const StateFile again = StateFile::fromText(file.text());
  require(again.rows().size() == file.rows().size());
  for (std::size_t n = 0; n < again.rows().size(); ++n) {
    require(again.rows()[n].kind == file.rows()[n].kind);
  }

  const std::vector<StateEntry> states = parseIndex(text, "/nowhere");
  for (const StateEntry& s : states) {
    const StateEntry* found = resolveState(states, s.fileName);
    require(found && found->number == s.number);
  }
  NearQuery query;
  query.latitude = size ? data[0] - 90.0 : 0;
  query.longitude = size > 1 ? data[1] - 128.0 : 0;
  query.services = {3};
  scanStateText(text, StateEntry{"Fuzz", 1, "s_000001.hpd", "/nowhere"}, query);
  return 0;
}
