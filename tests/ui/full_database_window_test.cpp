// The full database window over a small card in the test folder: detection, listing, ticking,
// and the state file on the disk checked line by line after an apply or a refusal.
#include "ui/full_database_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTest>
#include <QTreeWidget>
#include <filesystem>

#include "core/text.h"
#include "formats/text_file.h"
#include "window_fixture.h"

using namespace zel;
using database::ChannelKinds;
using database::DbSetting;

namespace {

namespace fs = std::filesystem;

// The state file; "|" stands for a TAB.
const char* const kLines[] = {
    "TargetModel|BCDx36HP",
    "FormatVersion|1.00",
    "Conventional|CountyId=1|StateId=6|Alameda|Off||Conventional||||||||",
    "AreaState|CountyId=1|StateId=6",
    "C-Group|CGroupId=11|CountyId=1|Fire, EMS|Off|37.703380|-121.934509|25.0|Circle|",
    "C-Freq|CFreqId=1|CGroupId=11|Tac 1, West|Off|154070000|NFM|TONE=C156.7|3||||||||||",
    "C-Freq|CFreqId=2|CGroupId=11|Ops; Main|Off|154280000|FM||8|Off|2|0|Off|Auto|Off|On|Off|Off",
    "Mystery|keep, me|as I am",
    "C-Group|CGroupId=12|CountyId=1|Roads|Off|37.7|-121.9|10.0|Circle|",
    "C-Freq|CFreqId=3|CGroupId=12|Plow|Off|453100000|FM||14||||||||||",
    "Trunk|TrunkId=2|StateId=6|Metro|Off||P25Standard|||||||||||||",
    "Site|SiteId=5|TrunkId=2|North|Off|37.8|-122.2|12.0|AUTO|Standard|Wide|Circle|",
    "T-Freq|TFreqId=0|SiteId=5|||851012500|1|8",
    "T-Group|TGroupId=7|TrunkId=2|Police|Off|37.8|-122.2|12.0|Circle|",
    "TGID|Tid=1|TGroupId=7|Dispatch, North|Off|100|ALL|2|||||||||Any",
    "TGID|Tid=2|TGroupId=7|Fire Talk|Off|200|ALL|3|||||||||Any",
};

std::string fileText() {
  std::string text;
  for (const char* l : kLines) text += replaceAll(l, "|", "\t") + "\r\n";
  return text;
}

std::vector<std::vector<std::string>> fieldsOf(const std::string& text) {
  std::vector<std::vector<std::string>> out;
  for (std::string_view line : formats::splitLines(text)) out.push_back(split(line, '\t'));
  return out;
}

struct Fixture : test::SessionFixture {
  std::string card = dir.file("card");
  std::string hpdb = card + "/BCDx36HP/HPDB";
  std::string state = hpdb + "/s_000006.hpd";
  transfer::ListDriveRoots roots;

  Fixture() {
    fs::create_directories(hpdb);
    std::ofstream(card + "/BCDx36HP/scanner.inf", std::ios::binary)
        << "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n"
           "Scanner\tBCD536HP\t0000\t1.05.02\t01\r\n";
    std::ofstream(hpdb + "/hpdb.cfg", std::ios::binary)
        << "TargetModel\tBCDx36HP\r\nDateModified\t07/15/2018 17:00:01\r\n"
           "StateInfo\tStateId=1\tCountryId=1\tAlabama\tAL\r\n"
           "StateInfo\tStateId=6\tCountryId=1\tCalifornia\tCA\r\n";
    std::ofstream(state, std::ios::binary) << fileText();
    roots.add(card);
  }
  std::unique_ptr<ui::FullDatabaseWindow> open() {
    auto w = std::make_unique<ui::FullDatabaseWindow>(session, feedback, roots);
    w->show();
    QCoreApplication::processEvents();  // the first detection runs from a timer
    return w;
  }
  std::string onDisk() const { return formats::readWholeFile(state).value_or(""); }
};

QStringList comboItems(QComboBox* combo) {
  QStringList out;
  for (int i = 0; i < combo->count(); ++i) out << combo->itemText(i);
  return out;
}

}  // namespace

class FullDatabaseWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void detectionFillsTheStatesAndTheSystems() {
    Fixture f;
    auto w = f.open();
    QVERIFY(w->statusText().startsWith("BCDx36HP detected at drive "));
    QVERIFY(w->statusText().contains(" DBase=07/15/2018 17:00:01 Firmware=1.05.02 Serial=0000"));
    QCOMPARE(comboItems(w->stateCombo()),
             QStringList({" << Select File  >> ", "Alabama : s_000001.hpd",
                          "California : s_000006.hpd"}));
    QVERIFY(w->chooseState(2));
    QCOMPARE(comboItems(w->systemCombo()),
             QStringList({"  << Select System  >>  ", "Conventional: Alameda",
                          "Trunk: Metro / P25Standard"}));
    w->chooseSystem(1);
    QCOMPARE(comboItems(w->departmentCombo()),
             QStringList({" << All Departments >> ", "Fire; EMS", "Roads"}));
    QCOMPARE(w->channels()->topLevelItemCount(), 3);
    QCOMPARE(
        w->channels()->topLevelItem(0)->text(1) + "|" + w->channels()->topLevelItem(0)->text(2),
        QString("154.070000|Tac 1; West"));
    // A missing state file is refused with a message and lists nothing.
    QVERIFY(!w->chooseState(1));
    QCOMPARE(w->channels()->topLevelItemCount(), 0);
    QCOMPARE(f.feedback.messages.size(), std::size_t{1});
  }

  void searchesThatFindNothingSayTheirWords() {
    Fixture f;
    f.roots = transfer::ListDriveRoots({f.dir.file("empty")});
    auto w = f.open();
    QCOMPARE(w->statusText().toStdString(), std::string(database::kScannerNotFound));
    QVERIFY(!w->detectHomePatrol1());
    QCOMPARE(f.feedback.messages.back(), std::string(database::kHomePatrol1NotFound));
    w->setFolderChooser([&] { return QString::fromStdString(f.dir.file("nothing here")); });
    QVERIFY(!w->openLocalBase());
    QCOMPARE(f.feedback.messages.back(), std::string(database::kLocalBaseNotFound));
    // The local copy: the folder holding the index.
    w->setFolderChooser([&] { return QString::fromStdString(f.hpdb); });
    w->chooseLocalFolder();
    QVERIFY(w->openLocalBase());
    QCOMPARE(w->stateCombo()->count(), 3);
  }

  // Each case lists, ticks and applies on a fresh file, then checks every line on the disk.
  void applyChangesTheTableFieldsOfTheTickedLinesOnly() {
    struct Case {
      const char* what;
      std::function<void(ui::FullDatabaseWindow&)> list;
      std::vector<int> tick;  // list rows; empty ticks every row through Select All
      std::vector<std::pair<DbSetting, const char*>> settings;
      std::map<int, std::map<int, std::string>> expected;  // line (0-based) -> field -> value
    };
    const Case cases[] = {
        {"every channel, attenuator and delay",
         [](auto& w) { w.listAll(ChannelKinds::Both); },
         {},
         {{DbSetting::Attenuator, "On"}, {DbSetting::Delay, "5"}},
         {{5, {{9, "On"}, {10, "5"}}},
          {6, {{9, "On"}, {10, "5"}}},
          {9, {{9, "On"}, {10, "5"}}},
          {14, {{8, "5"}}},
          {15, {{8, "5"}}}}},
        {"one talkgroup of a department, every alert field",
         [](auto& w) {
           w.chooseSystem(2);
           w.chooseDepartment(1);
         },
         {1},
         {{DbSetting::AlertTone, "3"},
          {DbSetting::AlertVolume, "15"},
          {DbSetting::AlertLight, "Red"},
          {DbSetting::AlertPattern, "Slow Blink"}},
         {{15, {{10, "3"}, {11, "15"}, {12, "Red"}, {13, "Slow Blink"}}}}},
        {"conventional channels of a service type",
         [](auto& w) {
           w.setServiceFilter("Fire Dispatch");
           w.listAll(ChannelKinds::Conventional);
         },
         {},
         {{DbSetting::AlertLight, "Blue"}},
         {{5, {{14, "Blue"}}}}},
        {"nothing but the attenuator on talkgroups",
         [](auto& w) { w.listAll(ChannelKinds::Trunk); },
         {},
         {{DbSetting::Attenuator, "On"}},
         {}},
        {"no setting ticked", [](auto& w) { w.listAll(ChannelKinds::Both); }, {}, {}, {}},
    };
    for (const Case& c : cases) {
      Fixture f;
      auto w = f.open();
      QVERIFY2(w->chooseState(2), c.what);
      c.list(*w);
      if (c.tick.empty()) {
        w->selectAll();
      } else {
        for (int row : c.tick) w->tickChannel(row);
      }
      for (const auto& [setting, value] : c.settings) w->setSetting(setting, true, value);
      w->ledColorFilter();
      QVERIFY2(w->apply(), c.what);

      auto want = fieldsOf(fileText());
      for (const auto& [line, fields] : c.expected) {
        for (const auto& [field, value] : fields) {
          want[line].resize(std::max<std::size_t>(want[line].size(), field + 1));
          want[line][field] = value;
        }
      }
      QVERIFY2(fieldsOf(f.onDisk()) == want, c.what);
      if (c.expected.empty()) QVERIFY2(f.onDisk() == fileText(), c.what);
      QVERIFY(fs::exists(f.state + ".bak"));
    }
  }

  void refusalsLeaveTheFileAsItWas() {
    Fixture f;
    auto w = f.open();
    QVERIFY(w->chooseState(2));
    w->listAll(ChannelKinds::Both);
    w->setSetting(DbSetting::Delay, true, "10");
    QVERIFY(!w->apply());
    QCOMPARE(f.feedback.messages.back(), std::string("Please select one or more channels"));
    // A read-only state file is refused, in one sentence, and the rows stay as the file is.
    fs::permissions(f.state, fs::perms::owner_read | fs::perms::group_read);
    w->selectAll();
    QVERIFY(!w->apply());
    QCOMPARE(f.feedback.messages.back(), f.state + " is read-only; it was left as it was.");
    QCOMPARE(f.onDisk(), fileText());
    QCOMPARE(w->file()->text(), fileText());
    // A folder where the state file was: the same.
    fs::permissions(f.state, fs::perms::owner_all);
    fs::remove(f.state);
    fs::create_directory(f.state);
    QVERIFY(!w->apply());
    QVERIFY(fs::is_directory(f.state));
  }

  void theSettingsAreRememberedInBulkedit() {
    Fixture f;
    {
      auto w = f.open();
      w->setSetting(DbSetting::AlertLight, true, "Cyan");
      w->setServiceFilter("Law Dispatch");
      w->close();
    }
    QCOMPARE(std::pair(f.store.values().at({"bulkedit", "chk4"}),
                       f.store.values().at({"bulkedit", "cmb4"})),
             std::pair(std::string("1x"), std::string("Cyanx")));
    auto w = f.open();
    QVERIFY(w->findChild<QCheckBox*>("check1_4")->isChecked());
    QCOMPARE(w->findChild<QComboBox*>("cmb_s_4")->currentText(), QString("Cyan"));
    QCOMPARE(w->findChild<QComboBox*>("Combo5")->currentText(), QString("Law Dispatch"));
  }
};

QTEST_MAIN(FullDatabaseWindowTest)
#include "full_database_window_test.moc"
