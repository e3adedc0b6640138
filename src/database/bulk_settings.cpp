#include "database/bulk_settings.h"

#include "core/text.h"
#include "grid/column_schemas.h"
#include "grid/vocabulary.h"

namespace zel::bulk {

namespace {

constexpr std::string_view kSection = "bulkedit";

constexpr std::array<std::string_view, kScopeCount> kScopeCaptions = {
    "Departments", "Sites", "Systems", "TalkGroups", "Conv. frequencies"};

constexpr std::array<SettingInfo, kSettingCount> kTable = {{
    {Setting::Mode, "Mode:", "Mode", "Mode", 4, 0},
    {Setting::AudioType, "AudioType:", "AudioType", "AudioType", 0, 4},
    {Setting::SqMode, "SQ Mode:", "SQ Mode", "SQ Mode", 5, 0},
    {Setting::ServiceType, "Service Type:", "Service Type", "Service Type", 7, 5},
    {Setting::Attenuator, "Attenuator:", "Attenuator", "Attenuator", 8, 0},
    {Setting::Delay, "Delay:", "Delay Time", "Delay Time", 9, 6},
    {Setting::VolumeOffset, "Volume Offset:", "Volume Offset", "Volume Offset", 10, 7},
    {Setting::AlertTone, "Alert Tone:", "Alert Tone", "Alert Tone", 11, 8},
    {Setting::AlertVolume, "Alert Volume:", "Alert Level", "Alert Level", 12, 9},
    {Setting::AlertLight, "Alert Light:", "Alert Light", "Alert Light", 13, 10},
    {Setting::AlertPattern, "Alert Patt.:", "Alert Pattern", "Alert Pattern", 14, 11},
}};

std::string joinedChoices(const std::vector<std::string>& words) {
  std::string out;
  for (const std::string& w : words) {
    if (!out.empty()) out += ", ";
    out += w;
  }
  return out;
}

}  // namespace

std::string_view scopeCaption(Scope scope) {
  return kScopeCaptions[static_cast<int>(scope)];
}

bool isChannelScope(Scope scope) {
  return scope == Scope::TalkGroups || scope == Scope::Frequencies;
}

SystemKind systemKindOf(Scope scope) {
  switch (scope) {
    case Scope::TalkGroups:
    case Scope::Sites:
      return SystemKind::Trunked;
    case Scope::Frequencies:
      return SystemKind::Conventional;
    default:
      return SystemKind::Any;
  }
}

const std::array<SettingInfo, kSettingCount>& settingTable() {
  return kTable;
}

int settingIndex(Setting setting) {
  return static_cast<int>(setting);
}

const SettingInfo& info(Setting setting) {
  return kTable[settingIndex(setting)];
}

int columnFor(Setting setting, bool talkgroupRow, ScannerFamily family) {
  const SettingInfo& i = info(setting);
  const int column = talkgroupRow ? i.talkgroupColumn : i.frequencyColumn;
  if (column == 0) return 0;
  // The column is found by its heading in the family's schema, so a family whose rows lack
  // the column (the HomePatrol rows end at the alert level) is left alone.
  const HeadingList& headings =
      schemaHeadings(talkgroupRow ? Schema::Talkgroup : Schema::Channel, family);
  return headings[column] == i.heading ? column : 0;
}

bool appliesTo(Setting setting, Scope scope) {
  const SettingInfo& i = info(setting);
  if (scope == Scope::Frequencies) return i.frequencyColumn != 0;
  if (scope == Scope::TalkGroups) return i.talkgroupColumn != 0;
  return false;
}

const std::vector<std::string>& choicesFor(Setting setting) {
  return vocab::tabel(info(setting).vocabulary);
}

std::optional<Setting> settingNamed(std::string_view name) {
  const std::string wanted = withoutColon(name);
  if (wanted.empty()) return std::nullopt;
  for (const SettingInfo& i : kTable) {
    if (iequals(withoutColon(i.caption), wanted) || iequals(i.heading, wanted)) return i.setting;
  }
  return std::nullopt;
}

std::string withoutColon(std::string_view text) {
  std::string t = trim(text);
  if (!t.empty() && t.back() == ':') t.pop_back();
  return trim(t);
}

std::optional<SettingText> splitSettingText(std::string_view text) {
  const std::size_t eq = text.find('=');
  if (eq == std::string_view::npos) return std::nullopt;
  return SettingText{trim(text.substr(0, eq)), trim(text.substr(eq + 1))};
}

std::string settingTextError(std::string_view text) {
  return "A setting is written as caption=value, such as \"Delay:=5\"; got \"" + std::string(text) +
         "\".";
}

ParsedChange parseChange(std::string_view text, Scope scope) {
  ParsedChange out;
  const std::optional<SettingText> split = splitSettingText(text);
  if (!split) {
    out.error = settingTextError(text);
    return out;
  }
  const std::string& name = split->name;
  const std::string& value = split->value;
  const std::optional<Setting> setting = settingNamed(name);
  if (!setting) {
    std::string known;
    for (const SettingInfo& i : kTable) {
      if (!known.empty()) known += ", ";
      known += withoutColon(i.caption);
    }
    out.error = "Unknown setting \"" + name + "\". The settings are: " + known;
    return out;
  }
  const SettingInfo& i = info(*setting);
  if (!appliesTo(*setting, scope)) {
    out.error = std::string(i.caption) + " has no column in the rows of " +
                (isChannelScope(scope) ? std::string(scopeCaption(scope)) : "that scope") + ".";
    return out;
  }
  // A word typed in another case is taken as the list's own word ("fm" is "FM").
  const std::vector<std::string>& words = choicesFor(*setting);
  const std::string* listed = nullptr;
  for (const std::string& w : words) {
    if (w == value) listed = &w;
  }
  for (const std::string& w : words) {
    if (!listed && iequals(w, value)) listed = &w;
  }
  if (!listed) {
    out.error = "\"" + value + "\" is not a value of " + std::string(i.caption) + " (" +
                joinedChoices(words) + ").";
    return out;
  }
  out.change = ChannelChange{*setting, *listed};
  return out;
}

Remembered loadRemembered(const Settings& settings) {
  Remembered r;
  const long long scope = leadingInteger(settings.getPlain(kSection, "dbase", "0"));
  if (scope >= 0 && scope < kScopeCount) r.scope = static_cast<Scope>(scope);
  for (int n = 0; n < kSettingCount; ++n) {
    const std::string suffix = std::to_string(n);
    r.ticked[n] = settings.getPlain(kSection, "chk" + suffix, "0") == "1";
    r.values[n] = n == settingIndex(Setting::ServiceType)
                      ? settings.getPlain(kSection, "serv", "")
                      : settings.getPlain(kSection, "cmb" + suffix, "");
  }
  return r;
}

void saveRemembered(Settings& settings, const Remembered& remembered) {
  settings.put(kSection, "dbase", std::to_string(static_cast<int>(remembered.scope)));
  for (int n = 0; n < kSettingCount; ++n) {
    const std::string suffix = std::to_string(n);
    settings.put(kSection, "chk" + suffix, remembered.ticked[n] ? "1" : "0");
    settings.put(kSection, n == settingIndex(Setting::ServiceType) ? "serv" : "cmb" + suffix,
                 remembered.values[n]);
  }
}

}  // namespace zel::bulk
