// The settings side of the bulk editor: which settings each scope offers, the caption=value
// form of the command line, and what the window remembers.
#include "database/bulk_settings.h"

#include <gtest/gtest.h>

#include "core/memory_ports.h"

namespace zel::bulk {
namespace {

TEST(BulkSettings, EachScopeOffersTheSettingsAndSystemsOfItsKind) {
  struct Case {
    Setting setting;
    bool frequencies;
    bool talkgroups;
  };
  const Case cases[] = {
      {Setting::Mode, true, false},        {Setting::AudioType, false, true},
      {Setting::SqMode, true, false},      {Setting::ServiceType, true, true},
      {Setting::Attenuator, true, false},  {Setting::Delay, true, true},
      {Setting::AlertPattern, true, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(info(c.setting).caption));
    EXPECT_EQ(appliesTo(c.setting, Scope::Frequencies), c.frequencies);
    EXPECT_EQ(appliesTo(c.setting, Scope::TalkGroups), c.talkgroups);
    for (Scope s : {Scope::Departments, Scope::Sites, Scope::Systems})
      EXPECT_FALSE(appliesTo(c.setting, s));
  }
  // The systems each scope lists: the lists tests.
}

// The words each combo offers are the vocabulary's lists (grid tests); a setting tied to the
// wrong list refuses its value in the apply tests.
TEST(BulkSettings, ChangesAreReadFromCaptionEqualsValue) {
  struct Case {
    const char* text;
    Scope scope;
    bool ok;
    Setting setting;
    const char* valueOrError;  // the value, or a piece of the error sentence
  };
  const Scope T = Scope::TalkGroups, F = Scope::Frequencies;
  const Case cases[] = {
      {"Delay:=5", T, true, Setting::Delay, "5"},
      {"delay = -10", F, true, Setting::Delay, "-10"},
      {"Delay Time=30", T, true, Setting::Delay, "30"},
      {"Alert Patt.:=Slow Blink", T, true, Setting::AlertPattern, "Slow Blink"},
      {"Service Type:=Fire Dispatch", F, true, Setting::ServiceType, "Fire Dispatch"},
      {"AudioType=Digital", T, true, Setting::AudioType, "Digital"},
      {"Attenuator:=On", F, true, Setting::Attenuator, "On"},
      {"Delay:=7", T, false, Setting::Delay,
       "\"7\" is not a value of Delay: (-10, -5, 0, 1, 2, 3, 4, 5, 10, 30)."},
      {"Mode:=fm", F, true, Setting::Mode, "FM"},
      {"Mode:=XM", F, false, Setting::Mode, "\"XM\" is not a value of Mode:"},
      {"Attenuator:=On", T, false, Setting::Attenuator,
       "Attenuator: has no column in the rows of TalkGroups."},
      {"AudioType=All", F, false, Setting::AudioType,
       "AudioType: has no column in the rows of Conv. frequencies."},
      {"Colour:=Red", T, false, Setting::Delay, "Unknown setting \"Colour:\""},
      {"Delay 5", T, false, Setting::Delay, "caption=value"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    ParsedChange p = parseChange(c.text, c.scope);
    ASSERT_EQ(p.change.has_value(), c.ok) << p.error;
    if (c.ok) {
      EXPECT_EQ(p.change->setting, c.setting);
      EXPECT_EQ(p.change->value, c.valueOrError);
      EXPECT_TRUE(p.error.empty());
    } else {
      EXPECT_NE(p.error.find(c.valueOrError), std::string::npos) << p.error;
    }
  }
}

TEST(BulkSettings, RememberedTicksAndWordsComeBackAndServiceTypeHasItsOwnKey) {
  MemorySettingsStore store;
  Settings settings(store);
  Remembered fresh = loadRemembered(settings);
  EXPECT_EQ(fresh.scope, Scope::Departments);
  for (bool t : fresh.ticked) EXPECT_FALSE(t);

  Remembered r;
  r.scope = Scope::TalkGroups;
  r.ticked[settingIndex(Setting::Delay)] = true;
  r.values[settingIndex(Setting::Delay)] = "5";
  r.values[settingIndex(Setting::ServiceType)] = "Fire Dispatch";
  saveRemembered(settings, r);
  std::string stored;
  for (const char* key : {"chk5", "serv", "cmb3", "dbase"}) {
    std::string raw = "(none)";
    store.read("bulkedit", key, raw);
    stored += raw + "|";
  }
  EXPECT_EQ(stored, "1x|Fire Dispatchx|(none)|3x|");

  Remembered back = loadRemembered(settings);
  EXPECT_EQ(back.scope, Scope::TalkGroups);
  EXPECT_EQ(back.ticked, r.ticked);
  EXPECT_EQ(back.values, r.values);
  // A stored scope out of range falls back to the first.
  store.write("bulkedit", "dbase", "9x");
  EXPECT_EQ(loadRemembered(settings).scope, Scope::Departments);
}

}  // namespace
}  // namespace zel::bulk
