#include "control/command_surface.h"

#include <gtest/gtest.h>

#include "control/vc_timers.h"
#include "control/xml_attribute.h"
#include "vc_test_support.h"

namespace zel::control {
namespace {

TEST(KeyTable, EveryNameSendsItsCommandInEachFamily) {
  // FUNC is the only key that is held.
  const std::pair<const char*, const char*> both[] = {
      {"SCAN", "JPM,SCN_MODE"}, {"Search", "JPM,CTM_MODE,1"},
      {"SQL", "KEY,Q,P"},       {"VOL", "KEY,V,P"},
      {"MONI", "SQL,0"},        {"MUTE", "VOL,0"},
      {"7", "KEY,7,P"},         {".", "KEY,.,P"},
      {"SYSTEM", "KEY,A,P"},    {"DEPT", "KEY,B,P"},
      {"CHANNEL", "KEY,C,P"},   {"E", "KEY,E,P"},
      {"FUNC", "KEY,F,H"},      {"AVOID", "KEY,L,P"},
      {"MENU", "KEY,M,P"},      {"ZIP", "KEY,Z,P"},
      {"REPLAY", "KEY,Y,P"},    {"t", "KEY,>,P"},
      {"u", "KEY,<,P"},         {"vfo", "KEY,^,P"}};
  struct Case {
    const char* name;
    const char* bcd;
    const char* sds;
  } cases[] = {
      {"Scan", "", "JPM,SCN_MODE"}, {"To Scan", "", "JPM,SCN_MODE"}, {"Step", "", "KEY,A,P"},
      {"Max Hold", "", "KEY,B,P"},  {"MF > CF", "", "KEY,C,P"},      {"SERV", "KEY,T,P", "KEY,F,P"},
      {"RANG", "KEY,R,P", ""},      {"F", "KEY,^,P", "KEY,F,P"},     {"Nonsense", "", "KEY,C,P"}};
  std::vector<Case> all(std::begin(cases), std::end(cases));
  for (const auto& [name, command] : both) all.push_back({name, command, command});
  for (const auto& c : all) {
    EXPECT_EQ(std::make_pair(keyCommand(Family::Bcd, c.name, false),
                             keyCommand(Family::Sds, c.name, false)),
              std::make_pair(std::string(c.bcd), std::string(c.sds)))
        << c.name;
  }
}

TEST(KeyTable, OnAListScreenTheKnobTurnsTheOtherWay) {
  EXPECT_EQ(keyCommand(Family::Bcd, "t", true) + "|" + keyCommand(Family::Bcd, "u", true),
            "KEY,<,P|KEY,>,P");
  VcRig rig(Family::Bcd);
  rig.connect();
  rig.vc->status.listScreen = 1;
  rig.vc->commands.PressKey("t");
  EXPECT_EQ(rig.port.commands().back(), "KEY,<,P");
}

// A closed port's refusal is the link's (ScannerLinkCommands).
TEST(PressKey, AnUnknownBcdKeySendsNothingAtAll) {
  VcRig rig(Family::Bcd);
  rig.connect();
  rig.vc->commands.PressKey("Nonsense");
  EXPECT_TRUE(rig.port.rawOutput().empty());
}

TEST(PressKey, TheSdsWindowDropsASecondKeyWithinAQuarterSecond) {
  VcRig rig(Family::Sds);
  rig.connect();
  rig.port.clearOutput();
  rig.vc->commands.PressKey("CHANNEL");
  rig.vc->commands.PressKey("AVOID");
  EXPECT_EQ(rig.port.commands(), std::vector<std::string>{"KEY,C,P"});
  rig.vc->timers.runUntil(rig.clock, rig.clock.ms + 240, [&](int id) {
    if (id == dokeytimer) rig.vc->fire(id);
  });
  rig.vc->commands.PressKey("AVOID");
  EXPECT_EQ(rig.port.commands().size(), 1u);
  rig.vc->timers.runUntil(rig.clock, rig.clock.ms + 20, [&](int id) {
    if (id == dokeytimer) rig.vc->fire(id);
  });
  rig.vc->commands.PressKey("AVOID");
  EXPECT_EQ(rig.port.commands().back(), "KEY,L,P");
}

TEST(PressKey, SdsMuteAndMonitorToggleOnTheLastGsi) {
  struct Case {
    const char* property;
    const char* key;
    const char* sent;
  } cases[] = {
      {"VOL=\"0\" SQL=\"4\"", "M", "VOL,9"},  // muted: back to the chosen volume
      {"VOL=\"6\" SQL=\"4\"", "M", "VOL,0"},
      {"VOL=\"6\" SQL=\"0\"", "MONI", "SQL,3"},
      {"VOL=\"6\" SQL=\"2\"", "MONI", "SQL,0"},
  };
  for (const auto& c : cases) {
    VcRig rig(Family::Sds);
    rig.connect();
    rig.vc->options.volumeIndex = 9;
    rig.vc->options.squelchIndex = 3;
    rig.vc->status.gsiText =
        reshapeGsi(std::string("GSI,<XML>,\r  <Property ") + c.property + " />\r</ScannerInfo>\r");
    rig.vc->commands.PressKey(c.key);
    EXPECT_EQ(rig.port.commands().back(), c.sent) << c.key << " " << c.property;
  }
}

TEST(PressKey, TheSdsServiceKeyIsFunctionThenZipASecondLater) {
  VcRig rig(Family::Sds);
  rig.connect();
  rig.pump.waits.clear();
  rig.vc->commands.PressKey("SERV");
  const auto& sent = rig.port.commands();
  ASSERT_GE(sent.size(), 2u);
  EXPECT_EQ(std::vector<std::string>(sent.end() - 2, sent.end()),
            (std::vector<std::string>{"KEY,F,P", "KEY,Z,P"}));
  EXPECT_EQ(rig.pump.waits, std::vector<int>{1000});
}

TEST(ModeList, TheCaptionsAreOffByOneFromTheGroupsTheySendAnd999SendsNothing) {
  std::map<std::string, std::string> sent;
  for (const auto& e : modeList(Family::Sds)) sent[e.caption] = modeCommand(e.number);
  const std::pair<const char*, const char*> captions[] = {{"WX Mode Same 0", "JPM,WX_MODE,SAME_1"},
                                                          {"WX Mode Same 4", "JPM,WX_MODE,SAME_5"},
                                                          {"Scan Mode", "JPM,SCN_MODE"},
                                                          {"CloseCall Mode", "JPM,CC_MODE,"},
                                                          {"Fire Tone Out", "JPM,FTO_MODE,"},
                                                          {"Waterfall", "JPM,WF_MODE"},
                                                          {"", ""}};  // the empty first entry, 999
  for (const auto& [caption, command] : captions) EXPECT_EQ(sent[caption], command) << caption;
  EXPECT_EQ(modeCommand(40) + "|" + modeCommand(45) + "|" + modeCommand(46),
            "MNU,SVC_MENU|MNU,SETTING_MENU|");
  // Entry 999 sends nothing.
  VcRig rig(Family::Bcd);
  rig.connect();
  rig.vc->commands.selectMode(999);
  EXPECT_TRUE(rig.port.rawOutput().empty());
  rig.vc->commands.selectMode(21);
  EXPECT_EQ(rig.port.rawOutput(), "JPM,WX_MODE,A_ONLY\r");
}

TEST(FurtherCommands, KnobsListsAndQuickHold) {
  VcRig rig(Family::Bcd);
  rig.connect();
  auto& c = rig.vc->commands;
  c.setVolume(12);
  c.setSquelch(0);
  c.volumeKnob();
  c.squelchKnob();
  c.mute();
  c.openSquelch();
  EXPECT_TRUE(c.quickHold("154.4300"));
  EXPECT_TRUE(c.quickHold("1240"));
  EXPECT_FALSE(c.quickHold("abc"));
  c.scanMode();
  EXPECT_EQ(rig.port.commands(),
            (std::vector<std::string>{"VOL,12", "SQL,0", "KEY,V,P", "KEY,Q,P", "VOL,0", "SQL,0",
                                      "QSH,1544300,,,,,,,,,,,,", "QSH,12400000,,,,,,,,,,,,",
                                      "JPM,SCN_MODE"}));
}

TEST(MiniView, ItsButtonsAndTheKeyboardPressTheFamilysKeys) {
  EXPECT_EQ(miniViewKey(Family::Sds, MiniButton::Scan) + "|" +
                miniViewKey(Family::Bcd, MiniButton::Scan) + "|" +
                miniViewKey(Family::Bcd, MiniButton::HoldResume) + "|" +
                miniViewKey(Family::Sds, MiniButton::Avoid),
            "Scan|t|CHANNEL|AVOID");
  // Every face key of each family sends something.
  for (Family f : {Family::Bcd, Family::Sds})
    for (const auto& k : keyNames(f)) EXPECT_NE(keyCommand(f, k, false), "") << k;
  // The keyboard's arrows, space, enter and escape press keys too.
  const std::pair<Keyboard, const char*> keyboard[] = {
      {Keyboard::Up, "t"},        {Keyboard::Right, "t"}, {Keyboard::Space, "t"},
      {Keyboard::Left, "u"},      {Keyboard::Down, "u"},  {Keyboard::Enter, "E"},
      {Keyboard::Escape, "MENU"}, {Keyboard::Other, ""}};
  for (const auto& [key, name] : keyboard) EXPECT_EQ(keyboardKey(key), name) << name;
}

}  // namespace
}  // namespace zel::control
