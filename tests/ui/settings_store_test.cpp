// The settings on QSettings kept in a real INI file: every section, and the keys of no section,
// read back the same after the store is gone and a new one opens the file. Qt keeps what a
// process wrote in memory, so the reopened file is a copy that it has never seen.
#include <QFile>
#include <QTest>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "platform/qt_settings_store.h"

class SettingsStoreTest : public QObject {
  Q_OBJECT

 private slots:
  void everySectionRoundTripsThroughTheFile_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("no section") << "" << "wleft" << "1200";
    QTest::newRow("general") << "general" << "nobackupreminder" << "1";
    QTest::newRow("General") << "General" << "lastfile" << "C:\\card\\f_000001.hpd";
    QTest::newRow("com") << "com" << "baudrate" << "115200";
    QTest::newRow("colwidth") << "colwidth" << "convgrid_3" << "95";
  }
  void everySectionRoundTripsThroughTheFile() {
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QTemporaryDir dir;
    const QString file = dir.filePath("zel536.ini");
    for (int run = 0; run < 3; ++run) {
      auto store = std::make_unique<zel::QtSettingsStore>(file);
      store->write(section.toStdString(), key.toStdString(), value.toStdString());
      store->flush();
    }
    const QString copy = dir.filePath("after_restart.ini");
    QVERIFY(QFile::copy(file, copy));
    zel::QtSettingsStore reopened(copy);
    std::string out;
    QVERIFY(reopened.read(section.toStdString(), key.toStdString(), out));
    QCOMPARE(QString::fromStdString(out), value);
    // Each run writes the same section again rather than one more.
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(f.readAll());
    QCOMPARE(text.count(key + "="), 1);
    QVERIFY(text.count("General]") <= 1);
  }

  void removedKeysStayRemoved() {
    QTemporaryDir dir;
    const QString file = dir.filePath("zel536.ini");
    {
      zel::QtSettingsStore store(file);
      store.write("general", "a", "1");
      store.flush();
      store.remove("general", "a");
      store.flush();
    }
    const QString copy = dir.filePath("after_restart.ini");
    QVERIFY(QFile::copy(file, copy));
    zel::QtSettingsStore reopened(copy);
    std::string out;
    QVERIFY(!reopened.read("general", "a", out));
  }
};

QTEST_GUILESS_MAIN(SettingsStoreTest)
#include "settings_store_test.moc"
