#include "exchange/tone_text.h"

#include <cctype>

#include "core/text.h"

namespace zel::exchange {

namespace {

bool isDigit(char c) {
  return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

// The words around a code that name its mode, longest first so that "DPL" is not read as "PL".
struct Word {
  std::string_view word;
  std::string_view mode;
};
constexpr Word kWords[] = {{"CTCSS", "CTCSS"}, {"TSQL", "CTCSS"}, {"TONE", "CTCSS"},
                           {"DTCS", "DCS"},    {"DCS", "DCS"},    {"DPL", "DCS"},
                           {"NAC", "P25"},     {"CSQ", ""},       {"PL", "CTCSS"},
                           {"HZ", ""},         {"T", "CTCSS"},    {"D", "DCS"},
                           {"$", "P25"}};

// The run of code characters (digits and "."; hex digits after a NAC word) in `t`.
std::string codeRun(std::string_view t, bool hex) {
  std::string run;
  for (char c : t) {
    const bool ok = isDigit(c) || c == '.' ||
                    (hex && std::isxdigit(static_cast<unsigned char>(c)) != 0);
    if (ok) {
      run.push_back(static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
    } else if (!run.empty()) {
      break;
    }
  }
  return run;
}

}  // namespace

ToneText readToneText(std::string_view text) {
  ToneText out;
  std::string t = toUpper(trimView(text));
  if (t.empty()) return out;
  // The word before or after the code, once; what is left holds the code.
  std::string mode;
  for (const Word& w : kWords) {
    if (startsWith(t, w.word)) {
      mode = std::string(w.mode);
      t = trim(t.substr(w.word.size()));
      break;
    }
    if (w.word.size() > 1 && endsWith(t, w.word)) {
      mode = std::string(w.mode);
      t = trim(t.substr(0, t.size() - w.word.size()));
      break;
    }
  }
  // "D023N", "D023I": the polarity letter after a DCS code.
  if (mode == "DCS" && (endsWith(t, "N") || endsWith(t, "I"))) t.pop_back();
  out.code = codeRun(t, mode == "P25");
  if (out.code.empty()) return out;
  if (mode.empty()) {
    if (out.code.find('.') != std::string::npos) {
      mode = "CTCSS";
    } else if (out.code.size() == 3 && out.code.find_first_of("89") == std::string::npos &&
               out.code[0] == '0') {
      mode = "DCS";
    }
  }
  if (mode == "CTCSS" && out.code.find('.') == std::string::npos) out.code += ".0";
  if (mode == "DCS") {
    while (out.code.size() < 3) out.code.insert(out.code.begin(), '0');
  }
  out.mode = mode;
  return out;
}

}  // namespace zel::exchange
