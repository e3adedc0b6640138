#include "database/state_edit.h"

#include "core/text.h"
#include "database/bulk_settings.h"
#include "grid/vocabulary.h"

namespace zel::database {

namespace {

constexpr std::string_view kSection = "bulkedit";

constexpr std::array<DbSettingInfo, kDbSettingCount> kTable = {{
    {DbSetting::Attenuator, "Attenuator:", "Attenuator", 9, 0},
    {DbSetting::Delay, "Delay:", "Delay Time", 10, 8},
    {DbSetting::AlertTone, "Alert Tone:", "Alert Tone", 12, 10},
    {DbSetting::AlertVolume, "Alert Volume:", "Alert Level", 13, 11},
    {DbSetting::AlertLight, "Alert Light:", "Alert Light", 14, 12},
    {DbSetting::AlertPattern, "Alert Pattern:", "Alert Pattern", 15, 13},
}};

// Fields of the two channel lines that the listing reads.
constexpr int kFrequencyField = 5;
constexpr int kTalkgroupIdField = 5;
constexpr int kAlphaTagField = 3;
constexpr int kFrequencyServiceField = 8;
constexpr int kTalkgroupServiceField = 7;

// "154070000" -> "154.070000"; a text that is not whole hertz is shown as it is.
std::string megahertz(const std::string& hertz) {
  if (hertz.empty() || hertz.size() > 12 ||
      hertz.find_first_not_of("0123456789") != std::string::npos) {
    return hertz;
  }
  const long long hz = leadingInteger(hertz);
  return std::to_string(hz / 1000000) + "." + padNumber(hz % 1000000, 6);
}

}  // namespace

const std::array<DbSettingInfo, kDbSettingCount>& dbSettingTable() {
  return kTable;
}

const DbSettingInfo& dbInfo(DbSetting setting) {
  return kTable[static_cast<int>(setting)];
}

const std::vector<std::string>& dbChoices(DbSetting setting) {
  static const std::vector<std::string> onOff = {"On", "Off"};
  if (setting == DbSetting::Attenuator) return onOff;
  return vocab::tabel(dbInfo(setting).vocabulary);
}

ParsedDbChange parseDbChange(std::string_view text) {
  ParsedDbChange out;
  const std::optional<bulk::SettingText> split = bulk::splitSettingText(text);
  if (!split) {
    out.error = bulk::settingTextError(text);
    return out;
  }
  const std::string name = bulk::withoutColon(split->name);
  const std::string& value = split->value;
  const DbSettingInfo* found = nullptr;
  for (const DbSettingInfo& i : kTable) {
    if (iequals(bulk::withoutColon(i.caption), name) || iequals(i.vocabulary, name)) found = &i;
  }
  if (!found) {
    std::string known;
    for (const DbSettingInfo& i : kTable)
      known += (known.empty() ? "" : ", ") + bulk::withoutColon(i.caption);
    out.error = "Unknown setting \"" + name + "\"; the settings are " + known + ".";
    return out;
  }
  const std::vector<std::string>& words = dbChoices(found->setting);
  const std::string* listed = nullptr;
  for (const std::string& w : words) {
    if (w == value) listed = &w;
  }
  for (const std::string& w : words) {
    if (!listed && iequals(w, value)) listed = &w;
  }
  if (!listed) {
    out.error = "\"" + value + "\" is not a value of " + std::string(found->caption) + " (" +
                join(words, ',') + ").";
    return out;
  }
  out.change = DbChange{found->setting, *listed};
  return out;
}

int serviceFilterNumber(std::string_view text) {
  const std::string t = trim(text);
  if (t.empty() || t == kNoServiceFilter || t == kServiceFilterDefault) return 0;
  const int number = vocab::serviceTypeNumber(t);
  return number > 0 ? number : -1;
}

std::vector<ChannelItem> listChannels(const StateFile& file, const ChannelFilter& filter) {
  std::vector<ChannelItem> items;
  const std::vector<StateRow>& rows = file.rows();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const StateRow& r = rows[i];
    const bool frequency = r.kind == LineKind::CFreq;
    const bool talkgroup = r.kind == LineKind::Tgid;
    if (!frequency && !talkgroup) continue;
    if (r.system == 0) continue;
    if (filter.kinds == ChannelKinds::Conventional && !frequency) continue;
    if (filter.kinds == ChannelKinds::Trunk && !talkgroup) continue;
    if (filter.system != 0 && r.system != filter.system) continue;
    if (filter.department != 0 && r.department != filter.department) continue;
    const int service = static_cast<int>(
        leadingInteger(file.field(i, frequency ? kFrequencyServiceField : kTalkgroupServiceField)));
    if (filter.service != 0 && service != filter.service) continue;
    ChannelItem item;
    item.row = i;
    item.key = rowKey(r);
    item.talkgroup = talkgroup;
    item.frequencyOrId =
        frequency ? megahertz(file.field(i, kFrequencyField)) : file.field(i, kTalkgroupIdField);
    item.alphaTag = file.field(i, kAlphaTagField);
    item.service = service;
    item.serviceName = vocab::serviceTypeName(service);
    items.push_back(std::move(item));
  }
  return items;
}

std::vector<DepartmentInfo> departmentsOf(const StateFile& file, int system) {
  std::vector<DepartmentInfo> out;
  for (const DepartmentInfo& d : file.departments()) {
    if (d.system == system) out.push_back(d);
  }
  return out;
}

ApplyResult applyChanges(StateFile& file, const std::vector<std::size_t>& rows,
                         const std::vector<DbChange>& changes) {
  ApplyResult result;
  for (std::size_t row : rows) {
    if (row >= file.rows().size()) continue;
    const LineKind kind = file.rows()[row].kind;
    if (kind != LineKind::CFreq && kind != LineKind::Tgid) continue;
    bool lineChanged = false;
    for (const DbChange& change : changes) {
      const DbSettingInfo& i = dbInfo(change.setting);
      const int field = kind == LineKind::CFreq ? i.frequencyField : i.talkgroupField;
      if (field == 0) continue;
      if (file.setField(row, field, change.value)) {
        ++result.fieldsChanged;
        lineChanged = true;
      }
    }
    if (lineChanged) ++result.linesChanged;
  }
  return result;
}

DbRemembered loadDbRemembered(const Settings& settings) {
  DbRemembered r;
  for (int n = 0; n < kDbSettingCount; ++n) {
    const std::string suffix = std::to_string(n);
    r.ticked[n] = settings.getPlain(kSection, "chk" + suffix, "0") == "1";
    r.values[n] = settings.getPlain(kSection, "cmb" + suffix, "");
  }
  r.service = settings.getPlain(kSection, "serv", std::string(kServiceFilterDefault));
  r.source = leadingInteger(settings.getPlain(kSection, "dbase", "0")) == 1 ? 1 : 0;
  r.localFolder = settings.getPlain(kSection, "localbase", "");
  return r;
}

void saveDbRemembered(Settings& settings, const DbRemembered& remembered) {
  for (int n = 0; n < kDbSettingCount; ++n) {
    const std::string suffix = std::to_string(n);
    settings.put(kSection, "chk" + suffix, remembered.ticked[n] ? "1" : "0");
    settings.put(kSection, "cmb" + suffix, remembered.values[n]);
  }
  settings.put(kSection, "serv", remembered.service);
  settings.put(kSection, "dbase", std::to_string(remembered.source));
  settings.put(kSection, "localbase", remembered.localFolder);
}

}  // namespace zel::database
