// The rows of the conventional frequency list. One fetched frequency becomes one row unless
// an option drops it; the tests run in this order: encrypted, telemetry, service filter,
// age. A row whose frequency the grid's formatter cannot read is left out too: it could
// never be written.
//
// Telemetry is a matter of the service's mode: a frequency is telemetry when its mode is
// the service's "Telm" (mode number 5, or the name itself). The service tags do not mark it.
// The service filter, when on, lets a row through when one of its tags is enabled; a row
// without any tag passes, as "Untagged Data:" decides what becomes of it.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <optional>

#include "core/text.h"
#include "grid/cell_commit_frequency.h"
#include "radioref/rr_import.h"
#include "radioref/rr_import_text.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

// The service's mode numbers the model cannot hold: 9 "USB" and 10 "D-STAR".
constexpr std::array<std::string_view, 4> kUnsupportedModes = {"9", "10", "USB", "D-STAR"};

bool isTelemetry(const RRFrequency& f) {
  return f.mode == "5" || iequals(f.mode, "Telm");
}

bool isUnsupported(const std::string& mode) {
  return std::find(kUnsupportedModes.begin(), kUnsupportedModes.end(), trimView(mode)) !=
         kUnsupportedModes.end();
}

bool passesServiceFilter(const RRFrequency& f, const ImportOptions& options) {
  if (!options.serviceFilter || f.tags.empty()) return true;
  return std::any_of(f.tags.begin(), f.tags.end(), [&](const RRTag& tag) {
    return std::find(options.serviceTags.begin(), options.serviceTags.end(), tag.tagId) !=
           options.serviceTags.end();
  });
}

// The day of a date that begins "YYYY-MM-DD"; nothing when it does not.
std::optional<std::chrono::sys_days> dayOf(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  for (std::size_t i : {0, 1, 2, 3, 5, 6, 8, 9}) {
    if (text[i] < '0' || text[i] > '9') return std::nullopt;
  }
  const std::chrono::year_month_day date{
      std::chrono::year{static_cast<int>(leadingInteger(text.substr(0, 4)))},
      std::chrono::month{static_cast<unsigned>(leadingInteger(text.substr(5, 2)))},
      std::chrono::day{static_cast<unsigned>(leadingInteger(text.substr(8, 2)))}};
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days{date};
}

// Within "updated in the last n days": no more than n days before today. A row whose date
// cannot be read is not known to be recent and is left out while a limit is set.
bool passesAge(const RRFrequency& f, const ImportOptions& options, const std::string& today) {
  if (options.updatedDays <= 0) return true;
  const auto updated = dayOf(f.lastUpdated);
  const auto now = dayOf(today);
  if (!updated || !now) return false;
  return (*now - *updated).count() <= options.updatedDays;
}

// A coordinate as the list shows it: the shortest form of the number ("41.5", "-90.51", "0").
std::string coordinate(double value) {
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.15g", value);
  return buffer.data();
}

}  // namespace

std::vector<ConvRow> conventionalRows(const std::vector<RRFrequency>& freqs,
                                      const RRCategory& category, const RRSubcat& subcat,
                                      const ImportOptions& options, const std::string& today) {
  const cell::FrequencyRules rules;
  const std::string department = cleanListText(subcat.scName);
  const std::string categoryText = department + " / " + cleanListText(category.cName);
  const std::string gps =
      coordinate(subcat.lat) + "," + coordinate(subcat.lon) + "," + coordinate(subcat.range);
  std::vector<ConvRow> rows;
  for (const RRFrequency& f : freqs) {
    if (options.skipEncrypted && f.enc != 0) continue;
    if (options.skipTelemetry && isTelemetry(f)) continue;
    if (!passesServiceFilter(f, options) || !passesAge(f, options, today)) continue;
    ConvRow row;
    row.frequency = cell::normaliseFrequency(f.out, rules).text;
    if (row.frequency.empty()) continue;
    row.descr = cleanListText(f.descr);
    row.alpha = cleanListText(f.alpha);
    row.tone = f.tone;
    row.category = categoryText;
    if (!f.tags.empty()) {
      row.tag = std::to_string(f.tags.front().tagId);
      row.service = serviceTagName(f.tags.front().tagId);
    }
    row.department = department;
    row.mode = f.mode;
    row.gps = gps;
    row.colorCode = f.colorCode;
    row.slot = f.slot;
    row.updated = f.lastUpdated;
    row.enc = std::to_string(f.enc);
    row.tg = f.tg;
    row.scid = subcat.scid;
    row.fid = f.fid;
    row.unsupported = isUnsupported(f.mode);
    // "Sel. All Sup.": a row the model cannot hold starts unticked.
    row.ticked = !row.unsupported;
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace zel::radioref
