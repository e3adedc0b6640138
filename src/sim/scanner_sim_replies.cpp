// The poll replies of the simulated scanner, built from its state.
//
//   GLG,0154.4300,FM,0,127.3,<system>,<department>,<channel>,<sql>,<mute>,,,NONE
//   GLG,2412,NFM,0,,<system>,<department>,<channel>,1,0,,,293     (talkgroup)
//   GLG,,,,,,,,,,,,                                                 (scanning)
//   GID,<CNV|P25>,<freq|tgid>,0,<system>,<department>,<channel>
//   PWR,<rssi 0..1023>,<freq in 100 Hz, 8 digits>    WIN,<n>,<freq in 100 Hz, 8 digits>
//
// STS, BCD family: format "0000100", seven lines of 36 characters (text, attribute):
//   line 1  F mark, icon pair, mode or "CC Found!", signal glyphs 166..173
//   line 2  direction glyph 2, favorites list
//   line 3  system + hold/avoid mark (4 glyphs from column 33)
//   line 4  department + mark
//   line 5  frequency or TGID, modulation glyphs, tone
//   line 6  service type (15), channel + mark
//   line 7  "UID:<id>" and the list name from column 21
// STS, SDS family: format "00001010100000000", seventeen lines of 30 characters as the
// SDS200 sends them, then the soft-key line, a line of stars and nine status fields.
#include <ctime>

#include "core/text.h"
#include "sim/scanner_sim.h"

namespace zel::sim {

namespace {

std::string glyph(std::initializer_list<int> codes) {
  std::string s;
  for (int c : codes) s += static_cast<char>(c);
  return s;
}

std::string pad(std::string_view text, std::size_t width) {
  std::string s(text.substr(0, width));
  s.append(width - s.size(), ' ');
  return s;
}

std::string right(std::string_view text, std::size_t width) {
  std::string s(text.substr(0, width));
  s.insert(0, width - s.size(), ' ');
  return s;
}

std::string glgFrequency(long long hz) {
  long long units = hz / 100;
  return padNumber(units / 10000, 4) + "." + padNumber(units % 10000, 4);
}

std::string mhz4(long long hz) {
  long long units = hz / 100;
  return std::to_string(units / 10000) + "." + padNumber(units % 10000, 4);
}

std::string modulationGlyphs(std::string_view mod) {
  if (mod == "AM") return glyph({8, 9, 11});
  if (mod == "NFM") return glyph({15, 16, 14, 11});
  if (mod == "WFM") return glyph({18, 20, 14, 11});
  return glyph({12, 14, 11});
}

std::string signalGlyphs(int bars) {
  switch (bars) {
    case 0:
      return glyph({166}) + " ";
    case 1:
      return glyph({167}) + " ";
    case 2:
      return glyph({168, 169});
    case 3:
      return glyph({170, 171});
    default:
      return glyph({172, 173});
  }
}

std::string toneText(const SimChannel& c) {
  if (c.toneType == "CTCSS") return c.toneValue;
  if (c.toneType == "DCS") return c.toneValue;
  return {};
}

const std::string kHoldMark = glyph({156, 157, 158, 159});
const std::string kAvoidMark = glyph({152, 153, 154, 155});

// Builds "STS,<format>" and appends line pairs.
struct Screen {
  std::string text;
  explicit Screen(std::string_view format) : text("STS,") { text += format; }
  void line(std::string_view content, std::string_view attribute = "") {
    text += ',';
    text += content;
    text += ',';
    text += attribute;
  }
  void raw(std::string_view field) {
    text += ',';
    text += field;
  }
};

std::string clockLine() {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  char buf[32];
  std::strftime(buf, sizeof buf, "%b%d %H:%M", &tm);
  return buf;
}

}  // namespace

int ScannerSim::rssi() const {
  return receiving() ? 200 + signal_ * 180 : 40;
}

std::string ScannerSim::channelReply() const {
  if (menuOpen_) return "GLG,,,,,,,,,,,,\r";
  const bool onChannel = mode_ == SimMode::CloseCall || mode_ == SimMode::Weather ||
                         phase_ != Phase::Scanning || holdChannel_ || quickHoldOn_;
  if (!onChannel || mode_ == SimMode::CustomSearch || mode_ == SimMode::Waterfall)
    return "GLG,,,,,,,,,,,,\r";
  if (mode_ == SimMode::CloseCall) {
    return "GLG," + glgFrequency(closeCallHz_) + ",NFM,0,,CloseCall,Close Call Hits," +
           mhz4(closeCallHz_) + ",1,0,,,NONE\r";
  }
  const SimChannel& c = channel();
  const bool rx = receiving();
  std::string out = "GLG,";
  out += c.trunked ? c.tgid : glgFrequency(c.hz);
  out += "," + c.modulation + ",0," + (c.trunked ? std::string() : toneText(c));
  out += "," + c.system + "," + c.department + "," + c.name;
  out += rx ? ",1,0" : ",0,1";
  out += ",,," + (c.trunked ? c.nac : std::string("NONE")) + "\r";
  return out;
}

std::string ScannerSim::groupReply() const {
  if (phase_ == Phase::Scanning && !holdChannel_ && !quickHoldOn_) return "GID,,,,,,\r";
  const SimChannel& c = channel();
  return "GID," + std::string(c.trunked ? "P25" : "CNV") + "," +
         (c.trunked ? c.tgid : glgFrequency(c.hz)) + ",0," + c.system + "," + c.department + "," +
         c.name + "\r";
}

std::string ScannerSim::powerReply() const {
  return "PWR," + std::to_string(rssi()) + "," + padNumber(channel().hz / 100, 8) + "\r";
}

std::string ScannerSim::windowReply() const {
  return "WIN," + std::to_string(current_ + 1) + "," + padNumber(channel().hz / 100, 8) + "\r";
}

std::string ScannerSim::menuScreen() const {
  static const char* kItems[] = {"Select Lists to Monitor",
                                 "Review Avoid",
                                 "Edit Service Types",
                                 "Set Custom Search",
                                 "Close Call",
                                 "Settings",
                                 "WX Operation",
                                 "Set Location",
                                 "Tone-Out",
                                 "Scanner Information"};
  const std::size_t width = sds_ ? 30 : 36;
  Screen s("1111111111");
  for (int i = 0; i < 10; ++i) s.line(pad(kItems[i], width), i == menuItem_ ? "1" : "");
  s.raw("0,1,0,0,,,0,OFF,3");
  return s.text + "\r";
}

std::string ScannerSim::bcdScreen() const {
  const SimChannel& c = channel();
  const bool rx = receiving();
  std::string top = functionKey_ ? glyph({4}) : " ";
  top += " ";
  top += c.trunked ? glyph({135, 136}) : "  ";
  top += " ";
  std::string label = "Scan";
  if (mode_ == SimMode::CloseCall && !ccAccepted_) label = "CC Found!";
  if (mode_ == SimMode::Weather) label = "WX";
  if (mode_ == SimMode::ToneOut) label = "Tone-Out";
  if (holdChannel_) label = "Hold";
  top += pad(label, 28);
  top += rx ? signalGlyphs(signal_) : "  ";
  top += " ";

  Screen s("0000100");
  s.line(top);
  s.line(glyph({2}) + " " + pad(options_.list.name, 34));
  auto mark = [&](bool hold, bool avoid) {
    return avoid ? kAvoidMark : (hold ? kHoldMark : std::string("    "));
  };
  if (mode_ == SimMode::CloseCall) {
    s.line(pad("Close Call", 36));
    s.line(pad(pad(mhz4(closeCallHz_) + "MHz", 17) + "NFM", 36));
    s.line(pad("", 36));
    s.line(pad("", 36));
    s.line(pad("", 36));
  } else if (mode_ == SimMode::ToneOut && toneOutEnds_) {
    s.line(pad("Tone-Out", 36));
    s.line(pad("Fire Paging", 36));
    s.line(pad("A : " + toneA_ + "Hz", 36));
    s.line(pad("B : " + toneB_ + "Hz", 36));
    s.line(pad("", 36));
  } else {
    const bool avoided = !quickHoldOn_ && mode_ == SimMode::Scan && avoided_.count(current_) > 0;
    s.line(pad(c.system, 32) + mark(holdSystem_, false));
    s.line(pad(c.department, 32) + mark(holdDepartment_, false));
    std::string freq = c.trunked ? "TGID:" + c.tgid : mhz4(c.hz) + "MHz";
    std::string tone = c.trunked ? "NAC:" + c.nac : toneText(c);
    s.line(pad(pad(freq, 14) + modulationGlyphs(c.modulation) + " " + tone, 36));
    s.line(pad(c.serviceType, 15) + " " + pad(c.name, 16) + mark(holdChannel_, avoided));
    std::string uid = rx && !uid_.empty() ? "UID:" + uid_ : std::string();
    s.line(pad(uid, 20) + pad(options_.list.name, 16));
  }
  s.raw("0,1,0,0,,," + std::to_string(rx ? signal_ : 0) + ",OFF,3");
  return s.text + "\r";
}

std::string ScannerSim::sdsScreen() const {
  const SimChannel& c = channel();
  const bool rx = receiving();
  const std::string blank(30, ' ');
  Screen s("00001010100000000");
  s.line(pad(std::string(14, ' ') + clockLine() + " " + (rx ? signalGlyphs(signal_) : "  "), 30),
         blank);
  s.line(pad("F0:0---------", 28), blank);
  s.line("S0:----------   VOL:" + right(std::to_string(volume_), 2) +
             " SQL:" + right(std::to_string(squelch_), 2) + " ",
         blank);
  if (mode_ == SimMode::CloseCall) {
    s.line(pad(pad(mhz4(closeCallHz_) + "MHz", 17) + "NFM", 30), blank);
  } else {
    s.line("D0:----------   Tag:--.--.--- ", blank);
  }
  const bool shown = rx || phase_ == Phase::Hangtime || holdChannel_ || mode_ == SimMode::Weather;
  s.line(pad(c.system, 30), blank);
  s.line(pad(options_.list.name, 30), blank);
  s.line(pad(c.department, 30), blank);
  std::string freq = c.trunked ? "TGID:" + c.tgid : " " + mhz4(c.hz) + "00MHz";
  s.line(shown ? pad(pad(freq, 16) + glyph({14, 15, 12}) + "       " +
                         (holdChannel_ ? kHoldMark : std::string("    ")),
                     30)
               : blank,
         blank);
  s.line(pad(shown ? c.name : "Scanning...", 30), blank);
  for (int i = 0; i < 3; ++i) s.line(blank, blank);
  const bool trunkHit = shown && c.trunked;
  s.line(trunkHit ? "Sys ID: 1A2     TGID: " + pad(c.tgid, 8) : "Sys ID: ---     TGID: ---     ",
         blank);
  s.line(trunkHit ? "RFSS ID: 1      Site ID: " + pad(std::to_string(c.siteIndex), 5)
                  : "RFSS ID: ---    Site ID: ---  ",
         blank);
  s.line("WACN: " + pad(trunkHit ? "BEE00" : "---", 10) +
             "NOISE:" + pad(std::to_string(300 + (current_ * 977) % 40000), 8),
         blank);
  std::string uid = rx && !uid_.empty() ? uid_ : "---";
  std::string level = rx ? std::to_string(-120 + rssi() / 10) + "dBm" : "---";
  s.line("UID: " + pad(uid, 11) + "RSSI: " + pad(level, 8), blank);
  s.line("                           WX ", blank);
  s.raw(" SYSTEM      DEPT     CHANNEL ");
  s.raw("********* ********** *********");
  s.raw("0,1,0,0,,," + std::to_string(rx ? signal_ : 0) + ",OFF,3");
  return s.text + "\r";
}

std::string ScannerSim::statusReply() const {
  if (menuOpen_) return menuScreen();
  return sds_ ? sdsScreen() : bcdScreen();
}

}  // namespace zel::sim
