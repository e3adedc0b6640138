// The quick key windows over the real BCD536HP card (ZEL_SCREENSHOT_DIR saves pictures of them).
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPrinter>
#include <QTreeWidget>
#include <filesystem>

#include "core/record_line.h"
#include "transfer/drive_roots.h"
#include "ui/qkey_browser_window.h"
#include "ui/qkey_view_dialog.h"
#include "ui/system_qkeys_dialog.h"
#include "window_fixture.h"

using namespace zel;
namespace fs = std::filesystem;

namespace {

void screenshot(QWidget* w, const char* name) {
  const QString dir = qEnvironmentVariable("ZEL_SCREENSHOT_DIR");
  if (!dir.isEmpty()) w->grab().save(dir + "/" + name + ".png");
}

QStringList texts(QListWidget* list) {
  QStringList out;
  for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
  return out;
}

// Drags the rows of `source` with the given texts onto `target`: the source's own drag data,
// taken by the target as its drop handler takes it (the platform delivers no drop without a
// real drag in progress).
void drag(QListWidget* source, const QStringList& rows, ui::QkeyBucketList* target) {
  source->clearSelection();
  for (int i = 0; i < source->count(); ++i)
    if (rows.contains(source->item(i)->text())) source->item(i)->setSelected(true);
  std::unique_ptr<QMimeData> mime(
      source->model()->mimeData(source->selectionModel()->selectedIndexes()));
  QVERIFY(target->takeDrop(mime.get()));
}

std::string field(Document& doc, const char* key, int n) {
  return record::field(treemod::getText(doc.data, key), n);
}

}  // namespace

class QkeyViewTest : public QObject {
  Q_OBJECT
 private slots:
  void decadeComboShowsTenKeysAndEndsWithNinety() {
    NEED_CARD();
    test::SessionFixture f;
    QVERIFY(f.readCardList());
    ui::QkeyViewDialog view(f.session, f.feedback);
    view.show();
    QComboBox* combo = view.decadeCombo();
    QCOMPARE(combo->count(), 10);
    QCOMPARE(combo->itemText(9), QString("90-99"));
    QCOMPARE(test::child<QLabel>(&view, "qkLabel0")->text(), QString("QuickKey: 0"));
    QCOMPARE(texts(view.bucketList(1)).size(), 1);
    combo->setCurrentIndex(9);
    QCOMPARE(test::child<QLabel>(&view, "qkLabel0")->text() + "," +
                 test::child<QLabel>(&view, "qkLabel9")->text(),
             QString("QuickKey: 90,QuickKey: 99"));
    QVERIFY(texts(view.bucketList(1)).isEmpty());
  }

  void droppedSystemsTakeTheBucketsKeyOnSave() {
    NEED_CARD();
    test::SessionFixture f;
    QVERIFY(f.readCardList());
    ui::QkeyViewDialog view(f.session, f.feedback);
    view.show();
    ui::QkeyBucketList* one = view.bucketList(1);
    const QString trunk = texts(one).value(0);
    QVERIFY(trunk.startsWith("[T] Greater Cleveland"));
    const QString conv = texts(view.bucketList(2)).value(0);
    QVERIFY(conv.startsWith("[C] Southwest"));

    // On its own bucket a row stays where it is.
    drag(one, {trunk}, one);
    QCOMPARE(texts(one), QStringList{trunk});
    // Two drops gather three systems in bucket 1; then two of them go to bucket 6 at once.
    drag(view.bucketList(2), {conv}, one);
    drag(view.bucketList(3), texts(view.bucketList(3)), one);
    QCOMPARE(texts(one).size(), 3);
    QVERIFY(texts(view.bucketList(2)).isEmpty());
    drag(one, {trunk, conv}, view.bucketList(6));
    QCOMPARE(texts(view.bucketList(6)), (QStringList{trunk, conv}));
    drag(one, texts(one), view.bucketList(qkeys::kNoKey));
    screenshot(&view, "qkey_view_systems");

    QVERIFY(!f.doc().changed);
    QCOMPARE(view.save(), 3);
    QVERIFY(f.doc().changed);
    QCOMPARE(field(f.doc(), "SYS-001", 13) + "," + field(f.doc(), "SYS-002", 13) + "," +
                 field(f.doc(), "SYS-003", 13),
             std::string("6,6,None"));
  }

  void aDepartmentDroppedOnNoKeyGetsOffAndCancelWritesNothing() {
    NEED_CARD();
    test::SessionFixture f;
    QVERIFY(f.readCardList());
    const std::string dept = "GRP-999-002-000";
    const std::string before = field(f.doc(), dept.c_str(), 10);
    QCOMPARE(before, std::string("1"));
    {
      ui::QkeyViewDialog view(f.session, f.feedback);
      view.show();
      view.showSystem(2);
      QCOMPARE(test::child<QLabel>(&view, "heading")->text(),
               QString("Southwest/South Central Region Departments/Sites"));
      ui::QkeyBucketList* one = view.bucketList(1);
      QCOMPARE(texts(one), QStringList{"[DEP] Fire Departments - North Royalton"});
      drag(one, texts(one), view.bucketList(qkeys::kNoKey));
      screenshot(&view, "qkey_view_departments");
      f.feedback.answers.push_back(Answer::No);  // stays open
      view.reject();
      QVERIFY(view.isVisible());
      view.reject();  // the fallback answer, Yes, lets it go
      QVERIFY(!view.isVisible());
      QCOMPARE(f.feedback.questions.back(),
               std::string("QuickKeys|Close without saving the changed quick keys?"));
    }
    QCOMPARE(field(f.doc(), dept.c_str(), 10), before);
    QVERIFY(!f.doc().changed);

    ui::QkeyViewDialog view(f.session, f.feedback);
    view.show();
    view.showSystem(2);
    // The keyboard's way: Delete takes the selected row's key away.
    view.bucketList(1)->item(0)->setSelected(true);
    QTest::keyClick(view.bucketList(1), Qt::Key_Delete);
    QVERIFY(texts(view.bucketList(1)).isEmpty());
    test::click(&view, "Command1");
    QCOMPARE(view.result(), int(QDialog::Accepted));
    QCOMPARE(field(f.doc(), dept.c_str(), 10) + "," + field(f.doc(), "GRP-999-002-001", 10),
             std::string("Off,2"));
  }

  void printOverviewToAFileOrSayWhyNot() {
    NEED_CARD();
    test::SessionFixture f;
    QVERIFY(f.readCardList());
    ui::QkeyViewDialog view(f.session, f.feedback);
    TestFolder dir;
    const struct {
      std::string file;
      bool printed;
    } cases[] = {{dir.file("overview.pdf"), true}, {dir.file("no/such/folder/overview.pdf"), false}};
    for (const auto& c : cases) {
      f.feedback.messages.clear();
      QPrinter printer;
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(QString::fromStdString(c.file));
      QCOMPARE(view.printOverview(printer), c.printed);
      QCOMPARE(fs::exists(c.file), c.printed);
      QCOMPARE(f.feedback.messages.size(), c.printed ? 0u : 1u);
      if (!c.printed) QCOMPARE(f.feedback.messages[0], std::string("Problem in printerroutine Qkeys"));
    }
  }

  void systemKeyBoxesShowWhatIsOnAKeyAndKeepTheirState() {
    NEED_CARD();
    test::SessionFixture f;
    QVERIFY(f.readCardList());
    ui::SystemQkeysDialog keys(f.session);
    keys.show();
    QVERIFY(keys.box(2)->styleSheet().contains("background"));
    QVERIFY(keys.box(4)->styleSheet().isEmpty());
    keys.showKey(2);
    QCOMPARE(keys.systemList()->item(0)->text(), QString("Southwest/South Central Region"));
    test::click(&keys, "sCommand2");
    QTest::mouseClick(keys.box(40), Qt::LeftButton);
    test::click(&keys, "Command6");
    std::string expected(100, '0');
    expected[1] = expected[2] = expected[3] = expected[40] = '1';
    QCOMPARE(keys.flags(), expected);
    screenshot(&keys, "system_qkeys");
    ui::SystemQkeysDialog again(f.session);
    QCOMPARE(again.flags(), expected);
  }

  void overviewReadsTheDetectedCard() {
    NEED_CARD();
    test::SessionFixture f;
    transfer::ListDriveRoots none;
    ui::QkeyBrowserWindow missing(f.session, f.feedback, none);
    QVERIFY(!missing.scan());
    QVERIFY(missing.statusText().startsWith("BCDx36HP not found, please plug USB cable in"));

    // A card folder of the real list with a real scanner.inf beside it.
    TestFolder card;
    const fs::path real = fs::path(ZEL_REALDATA_DIR);
    fs::create_directories(card.file("BCDx36HP/favorites_lists"));
    fs::copy_file(real / "card_sds200/BCDx36HP/scanner.inf", card.file("BCDx36HP/scanner.inf"));
    fs::copy(real / "card_bcd536hp/BCDx36HP/favorites_lists", card.file("BCDx36HP/favorites_lists"));
    transfer::ListDriveRoots roots({card.path()});
    ui::QkeyBrowserWindow browser(f.session, f.feedback, roots);
    browser.show();
    QVERIFY(browser.scan());
    QTreeWidget* list = browser.list();
    QVERIFY(list->isColumnHidden(6));
    QCOMPARE(list->topLevelItemCount(), 3 + 3 + 5 + 2);
    QCOMPARE(list->topLevelItem(0)->text(2), QString("FL:1"));
    QCOMPARE(browser.tree()->topLevelItemCount(), 1);
    screenshot(&browser, "qkey_overview");
    browser.copyToClipboard();
    QVERIFY(QApplication::clipboard()->text().startsWith("Name:\t#\tFL QuickKey:"));
    browser.setHtmlChooser([&card] { return QString::fromStdString(card.file("overview.html")); });
    QVERIFY(browser.createHtml());
    QVERIFY(test::slurp(card.file("overview.html")).find("[TRUNK] Greater Cleveland") !=
            std::string::npos);
  }
};

QTEST_MAIN(QkeyViewTest)
#include "qkey_view_test.moc"
