#include "database/db_near.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>

#include "database/state_file.h"
#include "formats/text_file.h"

namespace zel::database {

namespace {

constexpr double kEarthRadiusMiles = 3958.7613;
constexpr double kPi = 3.14159265358979323846;


std::optional<double> number(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double value = 0;
  const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec != std::errc() || end == text.data() || !std::isfinite(value)) return std::nullopt;
  return value;
}

int wholeNumber(std::string_view text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// The hits of one system, held until its end shows which departments have a wanted service.
struct PendingSystem {
  std::string name;
  int line = 0;
  std::vector<NearHit> hits;
  std::vector<int> hitDepartment;  // -1 for a site
  std::vector<bool> departmentWanted;
  bool anyWanted = false;
};

bool wantedService(const NearQuery& q, int service) {
  return std::find(q.services.begin(), q.services.end(), service) != q.services.end();
}

void flush(PendingSystem& p, const NearQuery& q, const StateEntry& state,
           std::vector<NearHit>& out) {
  const bool filtered = !q.services.empty();
  std::optional<NearHit> system;
  for (std::size_t i = 0; i < p.hits.size(); ++i) {
    const int d = p.hitDepartment[i];
    const bool pass = !filtered || (d < 0 ? p.anyWanted : p.departmentWanted[d]);
    if (!pass) continue;
    if (!system || p.hits[i].distance < system->distance) {
      system = p.hits[i];
    }
  }
  if (system) {
    system->kind = NearKind::System;
    system->name = p.name;
    system->range = 0;
    system->line = p.line;
    system->stateFile = state.fileName;
    out.push_back(std::move(*system));
  }
  for (std::size_t i = 0; i < p.hits.size(); ++i) {
    const int d = p.hitDepartment[i];
    if (filtered && !(d < 0 ? p.anyWanted : p.departmentWanted[d])) continue;
    out.push_back(std::move(p.hits[i]));
  }
  p = PendingSystem{};
}

}  // namespace

std::string_view nearKindName(NearKind kind) {
  switch (kind) {
    case NearKind::System:
      return "system";
    case NearKind::Site:
      return "site";
    default:
      return "department";
  }
}

double distanceMiles(double lat1, double lon1, double lat2, double lon2) {
  const double r = kPi / 180.0;
  const double dLat = (lat2 - lat1) * r;
  const double dLon = (lon2 - lon1) * r;
  const double a = std::sin(dLat / 2) * std::sin(dLat / 2) +
                   std::cos(lat1 * r) * std::cos(lat2 * r) * std::sin(dLon / 2) * std::sin(dLon / 2);
  return 2 * kEarthRadiusMiles * std::asin(std::min(1.0, std::sqrt(a)));
}

std::vector<NearHit> scanStateText(std::string_view text, const StateEntry& state,
                                   const NearQuery& query) {
  std::vector<NearHit> out;
  PendingSystem pending;
  bool inSystem = false;
  int department = -1;
  int lineNumber = 0;
  formats::forEachLine(text, [&](std::string_view line) {
    ++lineNumber;
    const char first = line.empty() ? '\0' : line[0];
    if (first != 'C' && first != 'T' && first != 'S') return;
    const LineKind kind = lineKindOf(line);
    switch (kind) {
      case LineKind::Conventional:
      case LineKind::Trunk:
        if (inSystem) flush(pending, query, state, out);
        inSystem = true;
        department = -1;
        pending.name = std::string(rawField(line, 3));
        pending.line = lineNumber;
        return;
      case LineKind::CGroup:
      case LineKind::TGroup:
        if (!inSystem) return;
        department = static_cast<int>(pending.departmentWanted.size());
        pending.departmentWanted.push_back(false);
        break;
      case LineKind::Site:
        if (!inSystem) return;
        break;
      case LineKind::CFreq:
      case LineKind::Tgid:
        if (inSystem && department >= 0 && !query.services.empty() &&
            wantedService(query, wholeNumber(rawField(line, kind == LineKind::CFreq ? 8 : 7)))) {
          pending.departmentWanted[department] = true;
          pending.anyWanted = true;
        }
        return;
      default:
        return;
    }
    const std::optional<double> lat = number(rawField(line, 5));
    const std::optional<double> lon = number(rawField(line, 6));
    const std::optional<double> range = number(rawField(line, 7));
    if (!lat || !lon || !range || (*lat == 0 && *lon == 0)) return;
    if (std::fabs(*lat) > 90 || std::fabs(*lon) > 180) return;
    const double distance = distanceMiles(query.latitude, query.longitude, *lat, *lon);
    if (distance > *range + query.rangeMiles) return;
    NearHit hit;
    hit.kind = kind == LineKind::Site ? NearKind::Site : NearKind::Department;
    hit.stateFile = state.fileName;
    hit.stateName = state.name;
    hit.system = pending.name;
    hit.name = std::string(rawField(line, 3));
    hit.latitude = *lat;
    hit.longitude = *lon;
    hit.range = *range;
    hit.distance = distance;
    hit.line = lineNumber;
    pending.hits.push_back(std::move(hit));
    pending.hitDepartment.push_back(kind == LineKind::Site ? -1 : department);
  });
  if (inSystem) flush(pending, query, state, out);
  return out;
}

NearResult findNear(const std::vector<StateEntry>& states, const NearQuery& query) {
  NearResult result;
  for (const StateEntry& state : states) {
    const std::optional<std::string> text = formats::readWholeFile(state.path);
    if (!text) {
      result.missing.push_back(state.fileName);
      continue;
    }
    ++result.filesRead;
    std::vector<NearHit> hits = scanStateText(*text, state, query);
    result.hits.insert(result.hits.end(), std::make_move_iterator(hits.begin()),
                       std::make_move_iterator(hits.end()));
  }
  std::stable_sort(result.hits.begin(), result.hits.end(), [](const NearHit& a, const NearHit& b) {
    if (a.distance != b.distance) return a.distance < b.distance;
    return static_cast<int>(a.kind) < static_cast<int>(b.kind);
  });
  return result;
}

}  // namespace zel::database
