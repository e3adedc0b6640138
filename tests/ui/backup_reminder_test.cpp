// The backup reminder at start keeps its words and offers a tick that the settings keep.
#include <QCheckBox>
#include <QTest>

#include "core/memory_ports.h"
#include "ui/backup_reminder.h"

class BackupReminderTest : public QObject {
  Q_OBJECT

 private slots:
  void theTickIsKeptInTheSettings_data() {
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<bool>("wantedAfter");
    QTest::newRow("left unticked") << false << true;
    QTest::newRow("ticked") << true << false;
  }
  void theTickIsKeptInTheSettings() {
    QFETCH(bool, ticked);
    QFETCH(bool, wantedAfter);
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
    QCOMPARE(zel::ui::backupReminderWanted(settings), wantedAfter);
    std::string stored;
    QVERIFY(store.read("general", "nobackupreminder", stored));
  }
};

QTEST_MAIN(BackupReminderTest)
#include "backup_reminder_test.moc"
