// The backup reminder at start keeps its words and offers a tick that the settings keep.
#include "ui/backup_reminder.h"

#include <QCheckBox>
#include <QTest>

#include "core/memory_ports.h"

class BackupReminderTest : public QObject {
  Q_OBJECT

 private slots:
  void theTickIsKeptInTheSettings() {
    for (const bool ticked : {false, true}) {
      const char* label = ticked ? "ticked" : "left unticked";
      zel::MemorySettingsStore store;
      zel::Settings settings(store);
      QVERIFY(zel::ui::backupReminderWanted(settings));
      auto box = zel::ui::backupReminderBox(nullptr);
      QCOMPARE(box->text(), QString("Please backup your data and store in a safe place!"));
      QVERIFY(box->checkBox());
      QCOMPARE(box->checkBox()->text(), QString("Do not show this again"));
      QVERIFY(!box->checkBox()->isChecked());
      box->checkBox()->setChecked(ticked);
      zel::ui::keepBackupReminderChoice(*box, settings);
      QVERIFY2(zel::ui::backupReminderWanted(settings) == !ticked, label);
      std::string stored;
      QVERIFY2(store.read("general", "nobackupreminder", stored), label);
    }
  }
};

QTEST_MAIN(BackupReminderTest)
#include "backup_reminder_test.moc"
