// The simulated SDS beside a real SDS200: its screens and XML have the real shape, and it
// scans a favorites list written by a real BCD536HP's owner.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "core/text.h"
#include "sim/scanner_sim.h"
#include "sim/scanner_sim_list.h"

namespace zel::sim {
namespace {

std::string real(const std::string& path) {
  std::ifstream in(std::string(ZEL_REALDATA_DIR) + "/" + path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::vector<std::string> fields(std::string reply) {
  while (!reply.empty() && reply.back() == '\r') reply.pop_back();
  return split(reply, ',');
}

// Element names in order, and the attribute names of each element.
struct XmlShape {
  std::vector<std::string> elements;
  std::map<std::string, std::set<std::string>> attributes;
};
XmlShape shapeOf(const std::string& xml) {
  XmlShape shape;
  std::regex element("<(/?[A-Za-z_]+)([^>]*)>");
  std::regex attribute("([A-Za-z_]+)=\"");
  for (std::sregex_iterator e(xml.begin(), xml.end(), element), end; e != end; ++e) {
    std::string name = (*e)[1];
    shape.elements.push_back(name);
    std::string rest = (*e)[2];
    for (std::sregex_iterator a(rest.begin(), rest.end(), attribute); a != end; ++a)
      shape.attributes[name].insert((*a)[1]);
  }
  return shape;
}

TEST(SimulatedSds, AnIdleScreenHasTheShapeOfTheRealOne) {
  ScannerSimOptions o;
  o.model = "SDS200";
  ScannerSim sim(o);
  sim.advance(0);
  sim.answer("KEY,C,P");  // off the channel whose name holds a comma
  while (sim.channel().system.find(',') != std::string::npos) sim.answer("KEY,>,P");
  sim.answer("KEY,C,P");
  auto mine = fields(sim.answer("STS"));
  auto theirs = fields(real("serial_sds200/STS_RESPONSE.bin"));
  ASSERT_EQ(mine.size(), theirs.size());
  for (std::size_t i = 0; i < theirs.size(); ++i)
    EXPECT_EQ(mine[i].size(), theirs[i].size()) << "field " << i;
  for (int i : {0, 1, 3, 4, 6, 8, 34, 36, 37, 45, 46}) EXPECT_EQ(mine[i], theirs[i]) << i;
  for (int i : {26, 28, 30, 32}) EXPECT_EQ(mine[i].substr(0, 8), theirs[i].substr(0, 8)) << i;
  EXPECT_TRUE(std::regex_match(mine[2], std::regex(" {14}[A-Z][a-z]{2}\\d\\d \\d\\d:\\d\\d {5}")));
}

TEST(SimulatedSds, ItsGsiHasTheElementsAndAttributesOfTheRealOne) {
  ScannerSimOptions o;
  o.model = "SDS200";
  o.activity = 0;
  ScannerSim sim(o);
  sim.advance(0);
  XmlShape mine = shapeOf(sim.answer("GSI"));
  XmlShape theirs = shapeOf(real("serial_sds200/GSI_RESPONSE_SCAN_MODE.bin"));
  EXPECT_EQ(mine.elements, theirs.elements);
  for (const char* e : {"ScannerInfo", "MonitorList", "System", "Department", "ConvFrequency",
                        "DualWatch", "Property", "OverWrite"}) {
    EXPECT_EQ(mine.attributes[e], theirs.attributes[e]) << e;
  }
  std::string reply = sim.answer("GSI");
  std::string head = real("serial_sds200/GSI_RESPONSE_SCAN_MODE.bin").substr(0, 54);
  EXPECT_EQ(reply.substr(0, 54), head);
}

TEST(SimulatedScanList, ARealFavoritesListIsScanned) {
  ScanListRead read = readScanList(std::string(ZEL_REALDATA_DIR) +
                                   "/card_bcd536hp/BCDx36HP/favorites_lists/f_000001.hpd");
  ASSERT_TRUE(read.ok) << read.message;
  int trunked = 0, conventional = 0;
  for (const auto& c : read.list.channels) {
    if (c.trunked) {
      ++trunked;
      EXPECT_EQ(c.system, "Greater Cleveland Radio Communications Network");
      EXPECT_FALSE(c.tgid.empty());
      EXPECT_EQ(c.units.size(), 127u);
      EXPECT_GT(c.hz, 100000000);
    } else {
      ++conventional;
      EXPECT_GT(c.hz, 25000000) << c.name;
    }
  }
  EXPECT_EQ(trunked, 9);
  EXPECT_EQ(conventional, 8);

  ScannerSimOptions o;
  o.list = read.list;
  o.activity = 0.5;
  o.seed = 4;
  ScannerSim sim(o);
  std::set<std::string> heard;
  for (int t = 0; t < 60000; t += 20) {
    sim.advance(t);
    if (sim.receiving()) heard.insert(sim.channel().name);
  }
  EXPECT_GE(heard.size(), 5u);
}

}  // namespace
}  // namespace zel::sim
