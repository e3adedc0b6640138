#include "vc_test_support.h"

#include <fstream>
#include <sstream>

namespace zel::control {

VcRig::VcRig(Family family, std::string dataFolder) {
  vc = std::make_unique<VirtualControl>(family, VcPorts{port, clock, pump, feedback, settings},
                                        std::move(dataFolder));
  port.ports = {{"COM3", "USB serial"}, {"COM7", "USB serial"}};
}

void VcRig::connect(const std::string& portName) {
  vc->link.selectPortName(portName);
  vc->link.connect();
}

void VcRig::run(std::int64_t ms) {
  vc->timers.runUntil(clock, clock.ms + ms, [this](int id) { vc->fire(id); });
}

ParseResult VcRig::receive(int pollStep, const std::string& reply) {
  vc->link.pollStep = pollStep;
  port.feed(reply);
  int before = vc->link.repliesAccepted;
  vc->link.onTimer10();
  return vc->link.repliesAccepted > before ? ParseResult::Accepted : ParseResult::Waiting;
}

std::string glgReply(const std::string& freqOrTgid, const std::string& channel,
                     const std::string& subtone, bool active, const std::string& nac,
                     const std::string& system, const std::string& department) {
  return "GLG," + freqOrTgid + ",NFM,0," + subtone + "," + system + "," + department + "," +
         channel + (active ? ",1,0" : ",0,1") + ",,," + nac + "\r";
}

std::string stsReply(const std::string& format, const std::vector<std::string>& lines) {
  std::string out = "STS," + format;
  for (const auto& l : lines) out += "," + l + ",";
  return out + "\r";
}

std::string glyphs(std::initializer_list<int> codes) {
  std::string s;
  for (int c : codes) s += static_cast<char>(c);
  return s;
}

std::string cells(const std::array<std::string, ld::kSize>& ldat, std::initializer_list<int> ids) {
  std::string joined;
  for (const int* id = ids.begin(); id != ids.end(); ++id)
    joined += (id == ids.begin() ? "" : "|") + ldat[*id];
  return joined;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

}  // namespace zel::control
