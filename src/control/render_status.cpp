// RenderStatus: paints the display model from an STS reply.
//
//   STS,<format>,<line1>,<attr1>,<line2>,<attr2>, ... ,<line13>,<attr13>,<trailer...>
//
// The format word selects the layout (its length is the number of lines), an attribute
// "1" marks a selected (inverted) line. Glyph codes inside the lines:
//   166 / 167 / 168 169 / 170 171 / 172 173   signal level 0 to 4 (line 1)
//   4                                         the "F" mark (line 1)
//   135 136, 181 182                          icons; 137 138, 183 184 blank (lines 1, 2)
//   156 157 158 159                           hold mark; 152 153 154 155 hold and avoid
//   2, 3                                      knob direction arrows (lines 1, 2)
//   8 9 11 " AM", 12 14 11 " FM", 15 16 14 11 " NFM", 18 20 14 11 " WFM",
//   12 14 21 22 " FMB", 177 178 179 "IFX", 6 7 "...", 145 146 "PRI ", 128 "_"
// Every other code from 135 up shows as a blank.
#include <algorithm>

#include "control/reply_fields.h"
#include "control/status_decoder.h"
#include "core/text.h"

namespace zel::control {

namespace {
std::string glyphs(std::initializer_list<int> codes) {
  std::string s;
  for (int c : codes) s += static_cast<char>(c);
  return s;
}

bool hasGlyphs(std::string_view s) {
  for (char c : s) {
    auto u = static_cast<unsigned char>(c);
    if (u < 32 || u >= 128) return true;
  }
  return false;
}

// Replaces every occurrence; true when there was one.
bool replaceIn(std::string& s, std::string_view from, std::string_view to) {
  if (s.find(from) == std::string::npos) return false;
  s = replaceAll(s, from, to);
  return true;
}

struct Translation {
  std::string from;
  std::string_view to;
};

const std::vector<Translation>& translations() {
  static const std::vector<Translation> table{{glyphs({8, 9, 11}), " AM"},
                                              {glyphs({12, 14, 11}), " FM"},
                                              {glyphs({15, 16, 14, 11}), " NFM"},
                                              {glyphs({18, 20, 14, 11}), " WFM"},
                                              {glyphs({12, 14, 21, 22}), " FMB"},
                                              {glyphs({177, 178, 179}), "IFX"},
                                              {glyphs({6, 7}), "..."},
                                              {glyphs({145, 146}), "PRI "},
                                              {glyphs({128}), "_"},
                                              {glyphs({32, 2, 32}), " U "},
                                              {glyphs({32, 3, 32}), " D "}};
  return table;
}

void translateRow(std::string& row) {
  if (!hasGlyphs(row)) return;
  for (const auto& t : translations()) replaceIn(row, t.from, t.to);
  for (char& c : row) {
    if (static_cast<unsigned char>(c) >= 135) c = ' ';
  }
}
}  // namespace

void StatusDecoder::SetSignalBars(int level) {
  if (level > 99) level = 99;
  st_.display.signalBars = level == 99 ? 0 : std::clamp(level, 0, 5);
}

void StatusDecoder::RenderStatus(std::string_view sts) {
  DisplayModel& d = st_.display;
  std::string stripped = stripLineEnds(sts);
  auto parts = replyFields(stripped);
  if (parts.size() > 51) parts.resize(51);
  // Always 51 fields: those the reply lacks are empty.
  st_.statusFields.assign(parts.begin(), parts.end());
  st_.statusFields.resize(51);
  if (stripped.find("KEY,OK") != std::string::npos) return;  // a key's echo, not a screen
  auto& f = st_.statusFields;

  const std::string word = f[1];
  if (word == "0000100") {
    st_.displayClass = 0;
  } else if (word == "00111") {
    st_.displayClass = 1;
  } else if (word == "1111") {
    st_.displayClass = 2;
  } else if (word == "00110110110000") {
    st_.displayClass = 3;
  } else {
    st_.displayClass = 0;
  }

  // A Close Call hit on the screen is accepted at once.
  if (f[2].find("CC Found!") != std::string::npos) link_.SendCommand("KEY,E,P");

  for (std::size_t i = 0; i < d.rows.size(); ++i) d.rows[i].visible = word.size() >= i + 1;

  // The SDS series has three longer screens of its own.
  const bool sdsWord =
      family_ == Family::Sds && (word == "00001010100000000" || word == "00000000000000000000" ||
                                 word == "00001110000000000");
  if (!sdsWord && (word.size() < 4 || word.size() > 16)) return;
  if (word.find('0') == std::string::npos && word.find('1') == std::string::npos) return;
  st_.listScreen = (word == "1111" || word == "1111111111") ? 1 : 0;
  d.formatWord = word;
  if (word.size() == 4) d.formatWord.insert(0, "  ");

  SetSignalBars(99);
  if (st_.busy) {
    int level = -1;
    const std::string& top = f[2];
    if (top.find(glyphs({166})) != std::string::npos) level = 0;
    if (top.find(glyphs({167})) != std::string::npos) level = 1;
    if (top.find(glyphs({168, 169})) != std::string::npos) level = 2;
    if (top.find(glyphs({170, 171})) != std::string::npos) level = 3;
    if (top.find(glyphs({172, 173})) != std::string::npos) level = 4;
    if (level >= 0) SetSignalBars(level);
  }

  if (st_.displayClass == 0) {
    d.service = std::string(mid(f[12], 1, 15));
    d.fav = std::string(mid(f[14], 21, 16));
  }

  d.fIcon = false;
  if (f[2].find('\x04') != std::string::npos) {
    d.fIcon = true;
    replaceIn(f[2], glyphs({4}), " ");
  }
  d.icon = 0;
  for (int k : {2, 4}) {
    if (replaceIn(f[k], glyphs({135, 136}), "  ")) d.icon = 1;
    if (replaceIn(f[k], glyphs({181, 182}), "  ")) d.icon = 2;
    replaceIn(f[k], glyphs({137, 138}), "  ");
    replaceIn(f[k], glyphs({183, 184}), "  ");
  }

  // Hold and avoid marks: a four-character field on the system, department and channel
  // rows, whose place depends on the layout.
  static constexpr int kMarkRows[4][3] = {{6, 8, 12}, {6, 8, 10}, {0, 0, 0}, {10, 16, 24}};
  if (st_.displayClass != 2) {
    const std::size_t at = st_.displayClass == 3 ? 21 : 33;
    for (int r = 0; r < 3; ++r) {
      std::string_view mark = mid(f[kMarkRows[st_.displayClass][r]], at, 4);
      if (mark == "    ") {
        d.marks[r] = {false, false};
      } else if (mark == glyphs({156, 157, 158, 159})) {
        d.marks[r] = {true, false};
      } else if (mark == glyphs({152, 153, 154, 155})) {
        d.marks[r] = {true, true};
      }
    }
  }

  for (int k : {2, 4}) {
    if (replaceIn(f[k], glyphs({2}), " ")) d.arrow = "t";
    if (replaceIn(f[k], glyphs({3}), " ")) d.arrow = "u";
  }

  for (int k = 1; k <= 13; ++k) translateRow(f[2 * k]);

  if (st_.glgText != "GLG,,,,,,,,,,,,") {
    d.names = {st_.ldat[ld::kSystem], st_.ldat[ld::kDepartment], st_.ldat[ld::kChannel]};
  } else if (st_.displayClass == 3) {
    auto pair = [&](int a, int b) {
      return std::string(mid(f[a], 1, 24)) + std::string(mid(f[b], 1, 24));
    };
    d.names = {pair(6, 8), pair(12, 14), pair(18, 20)};
  } else if (options_.namesWhileScanning) {
    d.names = {st_.ldat[ld::kSystem], st_.ldat[ld::kDepartment], "Scanning"};
  } else if (sdsWord && word == "00001010100000000") {
    // The SDS channel screen holds its quick-key lines where the other screens hold the
    // names: its system and department stand four lines further down.
    d.names = {std::string(mid(f[10], 1, 34)), std::string(mid(f[14], 1, 34)), "Scanning"};
  } else {
    d.names = {std::string(mid(f[6], 1, 34)), std::string(mid(f[8], 1, 34)), "Scanning"};
  }

  static constexpr int kMenuFields[10] = {2, 4, 8, 10, 14, 18, 20, 22, 26, 28};
  const bool sparse = word == "0001111000000000";
  for (int k = 0; k < 10; ++k) {
    int at = sparse ? kMenuFields[k] : 2 * (k + 1);
    d.rows[k].text = f[at];
    d.rows[k].inverted = f[at + 1] == "1";
  }

  if (st_.displayClass == 3) {
    d.frequencyLines = {f[2], f[4], f[12], f[14]};
  } else {
    d.frequencyLines = {f[2], f[4], f[10] + f[16], f[22] + f[24] + f[28] + f[26]};
  }
}

}  // namespace zel::control
