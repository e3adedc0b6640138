// The import window's options in section "rrimport", a tick stored as "1" or "0". Named
// keys carry what their names say; the remaining ticks are numbered in the order the window
// lists them:
//
//   useroptc1   "Automatically Remove Spaces from Tags"
//   useroptc2   "Use Tag Filters"
//   useroptc3   "Do not modify tags smaller than 16 characters"
//   useroptc4   "Use short Alpha Tag (if available)"
//   useroptc5   "Convert To Upper Case"
//   useroptc6   "Lock Out Encrypted conventional frequencies"
//   useroptc7   "Do NOT import encrypted conventional frequencies"
//   useroptc8   "Do NOT import Telemetry conventional frequencies"
//   useroptc9   "Auto Assign Quickkeys to trunk departments"
//   useroptc10  "Auto Assign Quickkeys to sites"
//   useroptc11  "Convert Edacs To AFS"
//   useroptc12  the "updated in the last" limit in days: 0 (none), 1, 7, 30 or 90
//   useroptc13  not used, written as "0"
//
//   user_opt_qk_   "AutoAssign Quickkeys to conv. departments"
//   imp_gps_site   "Import GPS data (if available)"
//   ignore_mode1..5, servicefilter, ccpri, ccalt, ccall   their ticks
//   service        the tags the service filter lets through, "1;2;3"
//   tfilter        six digits 0/1 for the talkgroup types, in the order of TalkgroupKind
//   ledenabled, ledtag, ledcolor, ledpattern   one entry a Led row, joined by ";"
//   untag_conv, untag_trunk   the service number of "Untagged Data:", 0 " Leave Untagged"
#include <algorithm>
#include <utility>

#include "core/text.h"
#include "radioref/rr_import.h"
#include "radioref/rr_readers.h"

namespace zel::radioref {

namespace {

constexpr std::string_view kSection = "rrimport";
constexpr int kLastTagIndex = 255;

std::string tick(bool on) {
  return on ? "1" : "0";
}

// The ticks kept under numbered keys, in their number's order.
std::array<std::pair<int, bool ImportOptions::*>, 11> numberedTicks() {
  return {{
      {1, &ImportOptions::removeSpaces},
      {2, &ImportOptions::useTagFilters},
      {3, &ImportOptions::keepShortTags},
      {4, &ImportOptions::shortAlpha},
      {5, &ImportOptions::upperCase},
      {6, &ImportOptions::lockoutEncrypted},
      {7, &ImportOptions::skipEncrypted},
      {8, &ImportOptions::skipTelemetry},
      {9, &ImportOptions::qkeysTrunk},
      {10, &ImportOptions::qkeysSites},
      {11, &ImportOptions::edacsAfs},
  }};
}

// The ticks kept under their own names.
std::array<std::pair<std::string_view, bool ImportOptions::*>, 6> namedTicks() {
  return {{
      {"user_opt_qk_", &ImportOptions::qkeysConventional},
      {"imp_gps_site", &ImportOptions::importGps},
      {"servicefilter", &ImportOptions::serviceFilter},
      {"ccpri", &ImportOptions::ccPrimary},
      {"ccalt", &ImportOptions::ccAlternate},
      {"ccall", &ImportOptions::ccAll},
  }};
}

std::string numberedKey(int n) {
  return "useroptc" + std::to_string(n);
}

std::string ignoreKey(std::size_t i) {
  return "ignore_mode" + std::to_string(i + 1);
}

// "" is an empty list, not a list of one empty entry.
std::vector<std::string> splitList(const std::string& text) {
  if (text.empty()) return {};
  return split(text, ';');
}

std::string joinTags(const std::vector<int>& tags) {
  std::vector<std::string> parts;
  for (int tag : tags) parts.push_back(std::to_string(tag));
  return join(parts, ';');
}

std::string entry(const std::vector<std::string>& list, std::size_t i) {
  return i < list.size() ? list[i] : std::string();
}

int updatedLimit(const std::string& text) {
  const long long days = leadingInteger(text);
  return days == 1 || days == 7 || days == 30 || days == 90 ? static_cast<int>(days) : 0;
}

}  // namespace

ImportOptions ImportOptions::defaults() {
  ImportOptions options;
  for (int tag = 1; tag <= kLastTagIndex; ++tag) {
    if (!serviceTagName(tag).empty()) options.serviceTags.push_back(tag);
  }
  options.talkgroupFilter.fill(true);
  return options;
}

ImportOptions ImportOptions::load(const Settings& settings) {
  const ImportOptions fallback = defaults();
  ImportOptions options = fallback;
  auto readTick = [&](std::string_view key, bool otherwise) {
    return settings.getPlain(kSection, key, tick(otherwise)) == "1";
  };
  for (const auto& [n, member] : numberedTicks()) {
    options.*member = readTick(numberedKey(n), fallback.*member);
  }
  for (const auto& [key, member] : namedTicks()) options.*member = readTick(key, fallback.*member);
  for (std::size_t i = 0; i < options.ignoreMode.size(); ++i) {
    options.ignoreMode[i] = readTick(ignoreKey(i), false);
  }
  options.updatedDays = updatedLimit(settings.getPlain(kSection, numberedKey(12), "0"));

  options.serviceTags.clear();
  for (const std::string& tag :
       splitList(settings.getPlain(kSection, "service", joinTags(fallback.serviceTags)))) {
    const long long number = leadingInteger(tag);
    if (number > 0 && number <= kLastTagIndex)
      options.serviceTags.push_back(static_cast<int>(number));
  }

  const std::string types = settings.getPlain(kSection, "tfilter", "111111");
  for (std::size_t i = 0; i < options.talkgroupFilter.size(); ++i) {
    options.talkgroupFilter[i] = i >= types.size() || types[i] == '1';
  }

  const auto enabled = splitList(settings.getPlain(kSection, "ledenabled", ""));
  const auto tags = splitList(settings.getPlain(kSection, "ledtag", ""));
  const auto colors = splitList(settings.getPlain(kSection, "ledcolor", ""));
  const auto patterns = splitList(settings.getPlain(kSection, "ledpattern", ""));
  const std::size_t ledRows =
      std::max({enabled.size(), tags.size(), colors.size(), patterns.size()});
  for (std::size_t i = 0; i < ledRows; ++i) {
    options.leds.push_back(
        {entry(enabled, i) == "1", entry(tags, i), entry(colors, i), entry(patterns, i)});
  }

  options.untaggedConventional =
      static_cast<int>(leadingInteger(settings.getPlain(kSection, "untag_conv", "0")));
  options.untaggedTrunk =
      static_cast<int>(leadingInteger(settings.getPlain(kSection, "untag_trunk", "0")));
  return options;
}

void ImportOptions::save(Settings& settings) const {
  for (const auto& [n, member] : numberedTicks())
    settings.put(kSection, numberedKey(n), tick(this->*member));
  for (const auto& [key, member] : namedTicks()) settings.put(kSection, key, tick(this->*member));
  for (std::size_t i = 0; i < ignoreMode.size(); ++i) {
    settings.put(kSection, ignoreKey(i), tick(ignoreMode[i]));
  }
  settings.put(kSection, numberedKey(12), std::to_string(updatedDays));
  settings.put(kSection, numberedKey(13), "0");
  settings.put(kSection, "service", joinTags(serviceTags));
  std::string types;
  for (bool on : talkgroupFilter) types += tick(on);
  settings.put(kSection, "tfilter", types);

  std::vector<std::string> enabled, tags, colors, patterns;
  for (const LedRule& rule : leds) {
    enabled.push_back(tick(rule.enabled));
    tags.push_back(rule.service);
    colors.push_back(rule.color);
    patterns.push_back(rule.pattern);
  }
  settings.put(kSection, "ledenabled", join(enabled, ';'));
  settings.put(kSection, "ledtag", join(tags, ';'));
  settings.put(kSection, "ledcolor", join(colors, ';'));
  settings.put(kSection, "ledpattern", join(patterns, ';'));
  settings.put(kSection, "untag_conv", std::to_string(untaggedConventional));
  settings.put(kSection, "untag_trunk", std::to_string(untaggedTrunk));
}

}  // namespace zel::radioref
