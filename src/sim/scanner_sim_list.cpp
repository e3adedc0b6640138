#include "sim/scanner_sim_list.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "core/document.h"
#include "core/keys.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "core/record_line.h"
#include "core/text.h"
#include "formats/hpd_reader.h"

namespace zel::sim {

namespace {

SimChannel conventional(std::string system, std::string dept, std::string name, long long hz,
                        std::string mod, std::string toneType, std::string tone,
                        std::string service) {
  SimChannel c;
  c.system = std::move(system);
  c.department = std::move(dept);
  c.name = std::move(name);
  c.hz = hz;
  c.modulation = std::move(mod);
  c.toneType = std::move(toneType);
  c.toneValue = std::move(tone);
  c.serviceType = std::move(service);
  c.systemType = "Conventional";
  return c;
}

SimChannel talkgroup(std::string dept, std::string name, std::string tgid, std::string service) {
  SimChannel c;
  c.system = "Metro Regional P25";
  c.department = std::move(dept);
  c.name = std::move(name);
  c.trunked = true;
  c.hz = 851012500;
  c.modulation = "NFM";
  c.tgid = std::move(tgid);
  c.serviceType = std::move(service);
  c.systemType = "P25 Standard";
  c.siteName = "Metro Simulcast";
  c.siteIndex = 12;
  c.nac = "293";
  c.units = {{"1872001", "Engine 5"}, {"1872044", "Medic 12"}, {"2500310", "Unit 310"}};
  return c;
}

long long hzFromMhz(std::string_view mhz) {
  return std::llround(leadingNumber(mhz) * 1000000.0);
}

}  // namespace

SimScanList builtInScanList() {
  SimScanList list;
  list.name = "Simulated County";
  auto& c = list.channels;
  c.push_back(conventional("Springfield, City of", "Fire", "Fire Dispatch", 154430000, "FM",
                           "CTCSS", "127.3", "Fire Dispatch"));
  c.push_back(conventional("Springfield, City of", "Fire", "Fireground 2", 154280000, "FM", "CTCSS",
                           "156.7", "Fire-Tac"));
  c.push_back(conventional("Springfield, City of", "Police", "PD Dispatch", 460125000, "NFM", "DCS",
                           "023", "Law Dispatch"));
  c.push_back(conventional("Springfield, City of", "Public Works", "Streets", 453650000, "NFM", "",
                           "", "Public Works"));
  c.push_back(conventional("County Services", "EMS", "EMS Main", 155340000, "FM", "CTCSS", "100.0",
                           "EMS Dispatch"));
  c.push_back(
      conventional("County Services", "Airport", "Tower", 118300000, "AM", "", "", "Aircraft"));
  c.push_back(talkgroup("Fire Services", "Fire Ops 1", "2412", "Fire Dispatch"));
  c.push_back(talkgroup("Fire Services", "Fire Ops 2", "2413", "Fire-Tac"));
  c.push_back(talkgroup("Law Enforcement", "Sheriff Disp", "3101", "Law Dispatch"));
  c.push_back(talkgroup("Law Enforcement", "Sheriff Tac", "3105", "Law Tac"));
  c.push_back(conventional("Weather", "NOAA", "NOAA WX 1", 162550000, "FM", "", "", "Weather"));
  return list;
}

ScanListRead readScanList(const std::string& path) {
  namespace fs = std::filesystem;
  ScanListRead out;
  std::error_code ec;
  std::string pattern = (fs::temp_directory_path(ec) / "zel-sim-list-XXXXXX").string();
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  if (!mkdtemp(buffer.data())) {
    out.message = "Cannot make a working folder for the favorites file.";
    return out;
  }
  const std::string work = buffer.data();
  {
    Document doc;
    PageFiles pages(work);
    RecordingFeedback quiet;
    formats::HpdReadOptions options;
    options.fileIndex = 1;
    formats::HpdReadResult read = formats::readHpd(doc, pages, path, options, quiet);
    if (!read.ok()) {
      out.message = read.message.empty() ? "The favorites file cannot be read." : read.message;
      fs::remove_all(work, ec);
      return out;
    }
    out.list.name = fs::path(path).stem().string();
    for (int number : read.systems) {
      NodeId sys = doc.data.find(keys::system(number));
      if (sys == kNoNode) continue;
      const std::string& sin = doc.data.text(sys);
      const std::string systemName = record::field(sin, 4);
      const std::string label = record::field(sin, 1);
      const bool trunked = label != "Conventional";
      SimChannel proto;
      proto.system = systemName;
      proto.systemType = label;
      proto.trunked = trunked;
      std::vector<SimUnit> units;
      for (NodeId child : doc.data.childList(sys)) {
        const std::string& key = doc.data.key(child);
        if (startsWith(key, "SIT-") && proto.siteName.empty()) {
          proto.siteName = record::field(doc.data.text(child), 4);
          proto.siteIndex = keys::siteOf(key);
          NodeId freq = doc.data.child(child);
          if (freq != kNoNode) proto.hz = hzFromMhz(record::field(doc.data.text(freq), 1));
        } else if (startsWith(key, "UID-")) {
          for (NodeId unit : doc.data.childList(child)) {
            const std::string& line = doc.data.text(unit);
            units.push_back({record::field(line, 1), record::field(line, 2)});
          }
        }
      }
      proto.units = units;
      for (NodeId child : doc.data.childList(sys)) {
        const std::string& key = doc.data.key(child);
        if (!startsWith(key, "GRP-")) continue;
        const std::string department = record::field(doc.data.text(child), 4);
        for (const std::string& row : pages.load(key)) {
          SimChannel c = proto;
          c.department = department;
          if (trunked) {
            c.tgid = record::field(row, 1);
            c.name = record::field(row, 2);
            c.serviceType = record::field(row, 5);
            c.modulation = "NFM";
            if (c.tgid.empty()) continue;
          } else {
            c.hz = hzFromMhz(record::field(row, 1));
            c.name = record::field(row, 2);
            c.modulation = record::field(row, 4);
            c.toneType = record::field(row, 5);
            c.toneValue = record::field(row, 6);
            c.serviceType = record::field(row, 7);
            if (c.hz <= 0) continue;
          }
          if (c.toneValue == "Search") c.toneValue.clear();
          out.list.channels.push_back(std::move(c));
        }
      }
    }
  }
  fs::remove_all(work, ec);
  if (out.list.channels.empty()) {
    out.message = "The favorites file holds no channel to scan: " + path;
    return out;
  }
  out.ok = true;
  return out;
}

}  // namespace zel::sim
