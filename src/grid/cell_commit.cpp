#include "grid/cell_commit.h"

#include <algorithm>

#include <array>

#include "core/text.h"
#include "gps/coordinates.h"
#include "grid/cell_commit_filters.h"
#include "grid/cell_commit_numbers.h"
#include "grid/vocabulary.h"

namespace zel::cell {

namespace {

struct HeadingRule {
  std::string_view heading;
  Rule rule;
};

constexpr std::array<HeadingRule, 39> kHeadingRules = {{
    {"Frequency", Rule::Frequency},
    {"Start Frequency", Rule::Frequency},
    {"Stop Frequency", Rule::Frequency},
    {"Base:", Rule::Frequency},
    {"Upper:", Rule::Frequency},
    {"dPMR Scr. Key", Rule::EncryptionKey},
    {"NXDN Enc. Key", Rule::EncryptionKey},
    {"DCR Enc. Key", Rule::EncryptionKey},
    {"Offset Frequency", Rule::Offset},
    {"Latitude", Rule::Latitude},
    {"Longitude", Rule::Longitude},
    {"Step:", Rule::Step},
    {"Spacing:", Rule::Step},
    {"Talkgroup", Rule::Talkgroup},
    {"FIPS Code", Rule::Fips},
    {"Event", Rule::Fips},
    {"Alpha Tag", Rule::Name},
    {"Name", Rule::Name},
    {"Name:", Rule::Name},
    {"Comments", Rule::Comment},
    {"Car#", Rule::Car},
    {"Car", Rule::Car},
    {"Delay Time", Rule::Delay},
    {"Dwell", Rule::Delay},
    {"LCN", Rule::Lcn},
    {"NumberTag", Rule::NumberTag},
    {"Bank Channel", Rule::Small},
    {"Threshold Low", Rule::Small},
    {"Threshold High", Rule::Small},
    {"RF Gain", Rule::Small},
    {"Lo Chan:", Rule::Wide},
    {"Hi Chan:", Rule::Wide},
    {"Offset:", Rule::Wide},
    {"TGID", Rule::Wide},
    {"Unit ID", Rule::UnitId},
    {"ColorCode", Rule::ColorCode},
    {"SQ Code", Rule::Code},
    {"P25NAC", Rule::Code},
    {"NAC", Rule::Code},
}};

// A typed coordinate keeps its leading number only (blanks, sign, digits, one decimal mark,
// written as "."): whatever follows it, a comma or a line end among them, would otherwise
// reach the record as it was typed.
std::string coordinateText(std::string_view text, DecimalMark mark) {
  std::string_view t = trimView(text);
  std::string out;
  std::size_t i = 0;
  if (i < t.size() && (t[i] == '-' || t[i] == '+')) out.push_back(t[i++]);
  bool point = false;
  for (; i < t.size(); ++i) {
    const char c = t[i];
    if (c >= '0' && c <= '9') {
      out.push_back(c);
    } else if (!point && (c == '.' || c == mark.sign())) {
      out.push_back('.');
      point = true;
    } else {
      break;
    }
  }
  if (out == "-" || out == "+") return {};
  return out;
}

CommitResult stored(std::string text) {
  CommitResult r;
  r.text = std::move(text);
  return r;
}

CommitResult fromOptional(std::optional<std::string> text) {
  if (!text) {
    CommitResult r;
    r.status = CommitStatus::Failed;
    return r;
  }
  return stored(std::move(*text));
}

std::string cut(std::string text, std::size_t length) {
  if (text.size() > length) text.resize(length);
  return text;
}

}  // namespace

std::optional<Rule> ruleForHeading(std::string_view heading) {
  if (heading == "GSSI:") return Rule::Gssi;
  for (const HeadingRule& entry : kHeadingRules) {
    if (iequals(entry.heading, heading)) return entry.rule;
  }
  return std::nullopt;
}

CommitResult commitText(std::string_view heading, std::string_view text,
                        const FrequencyRules& rules) {
  auto rule = ruleForHeading(heading);
  if (!rule) {
    CommitResult r;
    r.status = CommitStatus::UnknownHeading;
    return r;
  }
  // A word that the column's own drop list offers ("-5" of "Delay Time") always passes.
  const auto& offered = vocab::tabel(heading);
  const std::string_view word = trimView(text);
  if (!word.empty() && std::find(offered.begin(), offered.end(), word) != offered.end()) {
    return stored(std::string(word));
  }
  switch (*rule) {
    case Rule::Frequency: {
      FrequencyResult f = normaliseFrequency(text, rules);
      CommitResult r;
      r.status = f.failed ? CommitStatus::Failed : CommitStatus::Stored;
      r.text = std::move(f.text);
      r.beep = f.beep;
      return r;
    }
    case Rule::EncryptionKey:
      return stored(applyNumberRule(text, {32767, 1, 1, false, false}));
    case Rule::Offset:
      return fromOptional(normaliseOffset(text, rules.mark));
    case Rule::Latitude:
      return stored(gps::ClampLatitude(coordinateText(text, rules.mark), rules.mark));
    case Rule::Longitude:
      return stored(gps::ClampLongitude(coordinateText(text, rules.mark), rules.mark));
    case Rule::Step:
      return fromOptional(normaliseStep(text, rules.mark));
    case Rule::Talkgroup:
      return stored(applyFilter(CharFilter::Talkgroup, text));
    case Rule::Fips:
      return stored(applyFilter(CharFilter::Fips, text));
    case Rule::Name:
      return stored(cut(applyFilter(CharFilter::Name, text), 64));
    case Rule::Comment:
      return stored(cut(applyFilter(CharFilter::Name, text), 60));
    case Rule::Car:
      return stored(carNumber(text));
    case Rule::Delay:
      return stored(applyNumberRule(text, {200, 0, 0, false, false}));
    case Rule::Lcn:
      return stored(applyNumberRule(text, {4094, 0, 0, true, false}));
    case Rule::NumberTag:
      // "Off" is the files' own word for a row without a number tag; it is not a 0.
      if (iequals(trimView(text), "Off")) return stored("Off");
      return stored(applyNumberRule(text, {999, 0, 0, true, false}));
    case Rule::Small:
      return stored(applyNumberRule(text, {99, 0, 0, true, false}));
    case Rule::Wide:
      return stored(applyNumberRule(text, {65535, 0, 0, true, false}));
    case Rule::UnitId:
      return stored(applyNumberRule(text, {99999999, 1, 1, true, true}));
    case Rule::ColorCode:
      return stored(applyNumberRule(text, {15, 0, 0, true, false}));
    case Rule::Code:
      return stored(applyFilter(CharFilter::Code, text));
    case Rule::Gssi:
      return stored(cut(std::string(text), 10));
  }
  return stored(std::string(text));
}

CommitStatus cellCommit(GridPage* grid, std::string& text, int mode, const CommitEnv& env) {
  if (!grid) return CommitStatus::Failed;
  std::string heading = grid->textMatrix(0, grid->col());
  auto rule = ruleForHeading(heading);
  if (mode == kModeTrunkName && rule == Rule::Name && !trimView(text).empty()) {
    std::string_view name = trimView(text);
    for (int r = 1; r < grid->rows(); ++r) {
      if (r == grid->row()) continue;
      if (trimView(grid->textMatrix(r, 2)) == name) {
        if (env.feedback) env.feedback->message(kDuplicateTrunkName);
        break;
      }
    }
  }
  CommitResult result = commitText(heading, text, env.rules);
  switch (result.status) {
    case CommitStatus::UnknownHeading:
      if (env.feedback) env.feedback->message("define table cgrid " + heading);
      return result.status;
    case CommitStatus::Failed:
      return result.status;
    case CommitStatus::Stored:
      break;
  }
  if (result.beep && env.feedback) env.feedback->beep();
  grid->setText(result.text);
  if (env.changed) *env.changed = true;
  text = std::move(result.text);
  return CommitStatus::Stored;
}

}  // namespace zel::cell
