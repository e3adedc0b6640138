// The node pane over a favorites list from a real card: each kind of node shows in its form,
// and each edit changes exactly its field, or nothing when the value is refused.
#include "ui/node_pane.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <optional>

#include "core/new_commands.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "ui/band_plan_editor.h"
#include "ui/department_form.h"
#include "ui/field_rules.h"
#include "ui/fleet_map_editor.h"
#include "ui/site_form.h"
#include "ui/site_frequency_grid.h"
#include "ui/system_form.h"
#include "ui/unit_id_grid.h"
#include "window_fixture.h"

using namespace zel;

namespace {

// The systems of that list as the reader numbers them.
constexpr const char* kP25System = "SYS-001";
constexpr const char* kP25Site = "SIT-001-001";
constexpr const char* kConventional = "SYS-002";
constexpr const char* kFireDepartment = "GRP-999-002-000";

struct Fixture : test::SessionFixture {
  std::unique_ptr<ui::NodePane> pane;
  bool ok = true;

  explicit Fixture(bool readCard = true) {
    if (readCard) ok = readCardList();
    pane = std::make_unique<ui::NodePane>(session, feedback);
    pane->resize(800, 600);
    pane->show();
  }
  std::string line(const std::string& key) { return treemod::getText(doc().data, key); }
  QString at(const std::string& key, int n) {
    return QString::fromStdString(record::field(line(key), n));
  }
  template <typename T>
  T* find(const char* name) {
    return pane->currentWidget()->findChild<T*>(name);
  }
};

void typeInto(QLineEdit* edit, const QString& text) {
  edit->setText(text);
  edit->setModified(true);
  emit edit->editingFinished();
}

// The positions at which two record lines differ.
std::vector<int> changedFields(const std::string& before, const std::string& after) {
  std::vector<int> out;
  const int n = std::max(record::fieldCount(before), record::fieldCount(after));
  for (int i = 0; i < n; ++i) {
    if (record::field(before, i) != record::field(after, i)) out.push_back(i);
  }
  return out;
}

}  // namespace

class NodePaneTest : public QObject {
  Q_OBJECT

 private slots:
  void eachKindShowsInItsForm() {
    NEED_CARD();
    Fixture f;
    QVERIFY(f.ok);
    f.pane->showNode(kP25System, "SYSTEM");
    QCOMPARE(f.pane->currentWidget(), static_cast<QWidget*>(f.pane->systemForm()));
    QCOMPARE(f.find<QLineEdit>("name")->text(),
             QString("Greater Cleveland Radio Communications Network"));
    // A P25 system has a network access code but no fleet map; its unit IDs are there.
    ui::SystemForm* system = f.pane->systemForm();
    QVERIFY(system->rowShown(12));
    QVERIFY(!system->rowShown(17));
    QVERIFY(!system->tabs()->isTabVisible(1));
    QVERIFY(system->tabs()->isTabVisible(2));
    QCOMPARE(f.find<QSpinBox>("field13")->value(), 1);  // the system's quick key
    // The reader keeps the file's "Off" of the emergency alert; the list shows Off.
    QCOMPARE(f.find<QComboBox>("field9")->currentText(), QString("Off"));
    QCOMPARE(system->unitIds()->grid()->rowKey(1), std::string("UDD-001-00-0001"));

    f.pane->showNode(kP25Site, "SITE");
    QCOMPARE(f.pane->currentWidget(), static_cast<QWidget*>(f.pane->siteForm()));
    QCOMPARE(f.find<QLineEdit>("name")->text() + "|" + f.find<QLineEdit>("latitude")->text() + "|" +
                 f.find<QLineEdit>("range")->text(),
             QString("Simulcast|41.453639|19.1"));
    QCOMPARE(f.find<QComboBox>("bandPlanType")->currentData().toString(), QString("Standard"));
    QVERIFY(!f.find<QCheckBox>("attenuator")->isChecked());
    ui::SiteFrequencyGrid* grid = f.pane->siteForm()->frequencies();
    QCOMPARE(grid->page().textMatrix(1, 1) + "|" + grid->page().textMatrix(1, 2),
             std::string("851.900000|1"));
    QVERIFY(!f.pane->siteForm()->bandPlanDue());

    f.pane->showNode(kFireDepartment, "GROUP");
    QCOMPARE(f.pane->currentWidget(), static_cast<QWidget*>(f.pane->departmentForm()));
    QCOMPARE(f.find<QLineEdit>("name")->text(), QString("Fire Departments - North Royalton"));
    QCOMPARE(f.find<QSpinBox>("quickKey")->value(), 1);
    QVERIFY(f.pane->departmentForm()->filterShown());
    QCOMPARE(f.find<QComboBox>("filter")->currentText(), QString("Global"));

    f.pane->showNode("FAV-001", "FAV");
    QVERIFY(f.pane->currentWidget() != f.pane->systemForm());
    QVERIFY(!f.doc().changed);  // looking changes nothing
  }

  void partsOfASystemOpenTheirTabs() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode("UID-001-001", "UID");
    QCOMPARE(f.pane->systemForm()->tabs()->currentIndex(), 2);
    f.pane->showNode("MCP-001-001", "");
    // The site's plan is Standard: no plan tab, the site's first tab instead.
    QCOMPARE(f.pane->currentWidget(), static_cast<QWidget*>(f.pane->siteForm()));
    QCOMPARE(f.pane->siteForm()->tabs()->currentIndex(), 0);
  }

  void nameEditChangesOnlyTheNameAndTheCaption() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode(kP25System, "SYSTEM");
    QSignalSpy captions(f.pane.get(), &ui::NodePane::captionChanged);
    const std::string before = f.line(kP25System);
    typeInto(f.find<QLineEdit>("name"), "County, Fire");
    const std::string after = f.line(kP25System);
    QCOMPARE(changedFields(before, after), std::vector<int>{4});
    QCOMPARE(QString::fromStdString(record::field(after, 4)), QString("County; Fire"));
    QCOMPARE(captions.count(), 1);
    QCOMPARE(captions.at(0).at(0).toString(), QString(kP25System));
    QCOMPARE(visibleCaption(f.doc(), kP25System) + "|" + f.doc().systems.get(1, 1) + "|" +
                 f.doc().visible.text(f.doc().visible.find(kP25System)),
             std::string("County; Fire|County; Fire|County; Fire"));
    QVERIFY(f.doc().changed);

    // An empty name is refused and the record keeps the name it had.
    typeInto(f.find<QLineEdit>("name"), "   ");
    QCOMPARE(f.line(kP25System), after);
    QCOMPARE(captions.count(), 1);
  }

  void duplicateTrunkNameWarnsAndIsKept() {
    NEED_CARD();
    Fixture f;
    NewNodeResult second = newSystem(f.doc(), "New Motorola Trunk System", f.feedback);
    QVERIFY(second.ok);
    f.pane->showNode(second.key, "SYSTEM");
    typeInto(f.find<QLineEdit>("name"), "Greater Cleveland Radio Communications Network");
    QCOMPARE(f.feedback.messages.size(), size_t(1));
    QVERIFY(f.feedback.messages[0].find("Duplicate Trunk System Name") != std::string::npos);
    QCOMPARE(f.at(second.key, 4), QString("Greater Cleveland Radio Communications Network"));
  }

  void avoidBoxesKeepTheFormOfTheirField() {
    NEED_CARD();
    Fixture f;
    struct Case {
      const char* key;
      const char* kind;
      const char* box;
      int field;
      const char* on;
      const char* off;
    };
    // The reader holds a system's switches as digits and a site's or a department's avoid
    // as words; a toggle writes the form the field already has.
    const Case cases[] = {
        {kP25System, "SYSTEM", "field5", 5, "1", "0"},
        {kP25Site, "SITE", "avoid", 5, "On", "Off"},
        {kFireDepartment, "GROUP", "avoid", 5, "On", "Off"},
        {kP25Site, "SITE", "attenuator", 13, "1", "0"},
    };
    for (const Case& c : cases) {
      f.pane->showNode(c.key, c.kind);
      QCheckBox* box = f.find<QCheckBox>(c.box);
      QVERIFY2(box, c.box);
      QVERIFY(!box->isChecked());
      const std::string before = f.line(c.key);
      box->click();
      const std::string after = f.line(c.key);
      QCOMPARE(changedFields(before, after), std::vector<int>{c.field});
      QCOMPARE(QString::fromStdString(record::field(after, c.field)), QString(c.on));
      box->click();
      QCOMPARE(QString::fromStdString(record::field(f.line(c.key), c.field)), QString(c.off));
    }
  }

  void locationsFollowTheCoordinateRules() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode(kFireDepartment, "GROUP");
    struct Case {
      const char* edit;
      int field;
      const char* typed;
      const char* stored;  // nullptr: refused, the record is unchanged
    };
    // Each edit goes through its rule (the rules' edges: fieldRules below and the gps tests).
    const Case cases[] = {
        {"latitude", 6, "north", nullptr},
        {"latitude", 6, "41271300N", "41.453611"},
        {"longitude", 7, "-181", "-180.000000"},
        {"range", 8, "3.55", "3.6"},
    };
    for (const Case& c : cases) {
      const std::string before = f.line(kFireDepartment);
      const std::size_t statuses = f.feedback.statuses.size();
      QLineEdit* edit = f.find<QLineEdit>(c.edit);
      typeInto(edit, c.typed);
      const std::string after = f.line(kFireDepartment);
      if (!c.stored) {
        QVERIFY2(after == before, c.typed);
        QCOMPARE(edit->text(), QString::fromStdString(record::field(before, c.field)));
        QCOMPARE(f.feedback.statuses.size(), statuses + 1);
        continue;
      }
      QCOMPARE(QString::fromStdString(record::field(after, c.field)), QString(c.stored));
      for (int field : changedFields(before, after)) QCOMPARE(field, c.field);
    }
  }

  void keysAndListsStoreTheirWords() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode(kFireDepartment, "GROUP");
    QSpinBox* key = f.find<QSpinBox>("quickKey");
    key->setValue(42);
    QCOMPARE(f.at(kFireDepartment, 10), QString("42"));
    key->setValue(-1);
    QCOMPARE(f.at(kFireDepartment, 10), QString("Off"));
    QComboBox* filter = f.find<QComboBox>("filter");
    filter->setCurrentIndex(filter->findData("Wide Invert"));
    QCOMPARE(f.at(kFireDepartment, 11), QString("Wide Invert"));

    // A word the list does not hold is shown and kept until another is chosen.
    f.pane->showNode(kP25Site, "SITE");
    treemod::setField(f.doc().data, kP25Site, 9, "WFM");
    f.pane->showNode(kP25Site, "SITE");
    QComboBox* mod = f.find<QComboBox>("modulation");
    QCOMPARE(mod->currentData().toString(), QString("WFM"));
    QCOMPARE(f.at(kP25Site, 9), QString("WFM"));
    mod->setCurrentIndex(mod->findData("NFM"));
    QCOMPARE(f.at(kP25Site, 9), QString("NFM"));
  }

  void siteFrequencyEditsReachBothTrees() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode(kP25Site, "SITE");
    ui::SiteFrequencyGrid* grid = f.pane->siteForm()->frequencies();
    QAbstractItemModel* model = grid->view()->model();
    const std::string key = grid->rowKey(1);
    QCOMPARE(key, std::string("TFQ-001-001-001"));
    const std::string before = f.line(key);

    QVERIFY(model->setData(model->index(0, 0), "851.9125", Qt::EditRole));
    QCOMPARE(changedFields(before, f.line(key)), std::vector<int>{1});
    QCOMPARE(f.at(key, 1), QString("851.912500"));
    QCOMPARE(QString::fromStdString(treemod::getField(f.doc().frequencies, key, 1)),
             QString("851.912500"));
    QVERIFY(f.doc().changed);

    // Unreadable text and an emptied frequency leave the line alone.
    const std::string edited = f.line(key);
    QVERIFY(!model->setData(model->index(0, 0), "abc", Qt::EditRole));
    QVERIFY(!model->setData(model->index(0, 0), "", Qt::EditRole));
    QCOMPARE(f.line(key), edited);

    // A frequency typed into the first free row adds a site frequency to both trees.
    QVERIFY(model->setData(model->index(30, 0), "852.0", Qt::EditRole));
    const std::string added = grid->rowKey(31);
    QCOMPARE(added, std::string("TFQ-001-001-031"));
    QCOMPARE(QString::fromStdString(f.line(added)), QString("TFQ,852.000000"));
    QVERIFY(f.doc().frequencies.contains(added));
    QCOMPARE(f.doc().data.parent(f.doc().data.find(added)), f.doc().data.find(kP25Site));

    // Removing it takes it out of both.
    grid->view()->selectRow(30);
    grid->removeSelected();
    QVERIFY(!f.doc().data.contains(added));
    QVERIFY(!f.doc().frequencies.contains(added));
    QVERIFY(grid->rowKey(31).empty());
  }

  void unitIdEditsReachTheirLine() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode("UID-001-001", "UID");
    ui::RecordGrid* grid = f.pane->systemForm()->unitIds()->grid();
    QAbstractItemModel* model = grid->view()->model();
    const std::string key = grid->rowKey(1);
    const std::string before = f.line(key);
    QVERIFY(model->setData(model->index(0, 1), "Engine 7", Qt::EditRole));
    QCOMPARE(changedFields(before, f.line(key)), std::vector<int>{2});
    QVERIFY(!model->setData(model->index(0, 4), "Purple", Qt::EditRole));  // not a light
    QVERIFY(model->setData(model->index(0, 4), "Green", Qt::EditRole));
    QCOMPARE(f.at(key, 5), QString("Green"));
  }

  void newTrunkSystemGetsFleetMapUnitListAndBandPlan() {
    Fixture f(false);
    NewNodeResult sys = newSystem(f.doc(), "New Motorola Trunk System", f.feedback);
    NewNodeResult site = newSite(f.doc(), 1, f.feedback);
    QVERIFY(sys.ok && site.ok);
    f.pane->showNode(sys.key, "SYSTEM");
    ui::SystemForm* form = f.pane->systemForm();
    QVERIFY(form->tabs()->isTabVisible(1));
    QVERIFY(form->rowShown(17));  // Motorola end code
    QVERIFY(!form->rowShown(12));

    // Nothing is added by looking; the buttons add the parts.
    QVERIFY(!f.doc().data.contains("FMP-001-000"));
    QVERIFY(form->fleetMap()->startFleetMap());
    QCOMPARE(QString::fromStdString(f.line("FMP-001-000")), QString("FRN,0,0,0,0,0,0,0,0"));
    QComboBox* block = form->fleetMap()->block(2);
    block->setCurrentIndex(block->findData("4"));
    QCOMPARE(QString::fromStdString(f.line("FMP-001-000")), QString("FRN,0,0,4,0,0,0,0,0"));
    QVERIFY(form->unitIds()->startList());
    QVERIFY(!form->unitIds()->startList());
    QAbstractItemModel* units = form->unitIds()->grid()->view()->model();
    QVERIFY(units->setData(units->index(0, 0), "1234", Qt::EditRole));
    QCOMPARE(QString::fromStdString(f.line("UDD-001-00-0001")),
             QString("UID,1234,,Off,Auto,Off,On"));

    f.pane->showNode(site.key, "SITE");
    ui::SiteForm* siteForm = f.pane->siteForm();
    QVERIFY(!siteForm->tabs()->isTabVisible(2));
    QComboBox* plan = f.find<QComboBox>("bandPlanType");
    plan->setCurrentIndex(plan->findData("Custom/Rebanded"));
    QVERIFY(siteForm->tabs()->isTabVisible(2));
    ui::BandPlanEditor* editor = siteForm->bandPlan();
    QVERIFY(!editor->value(0, 0)->isEnabled());
    QVERIFY(editor->startPlan());
    const std::string mcp = "MCP-001-001";
    QCOMPARE(f.doc().data.parent(f.doc().data.find(mcp)), f.doc().data.find(sys.key));
    const std::string before = f.line(mcp);
    typeInto(editor->value(0, 0), "851.5");
    typeInto(editor->value(1, 2), "12.50");
    typeInto(editor->value(1, 3), "x");
    const std::string after = f.line(mcp);
    QCOMPARE(changedFields(before, after), (std::vector<int>{2, 8}));
    QCOMPARE(QString::fromStdString(record::field(after, 2)), QString("851.5000"));
    QCOMPARE(QString::fromStdString(record::field(after, 8)), QString("12.5"));
  }

  void storeNodeTakesInAnOpenEdit() {
    NEED_CARD();
    Fixture f;
    f.pane->showNode(kP25Site, "SITE");
    QLineEdit* name = f.find<QLineEdit>("name");
    name->setText("Downtown");
    name->setModified(true);  // typed, but the field was never left
    QCOMPARE(f.at(kP25Site, 4), QString("Simulcast"));
    f.pane->storeNode();
    QCOMPARE(f.at(kP25Site, 4), QString("Downtown"));

    // The same for a grid cell whose editor is still open.
    f.pane->siteForm()->tabs()->setCurrentIndex(1);
    QTableView* view = f.pane->siteForm()->frequencies()->view();
    const QModelIndex lcn = view->model()->index(1, 1);
    view->edit(lcn);
    QLineEdit* editor = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText("9");
    f.pane->storeNode();
    QCOMPARE(QString::fromStdString(treemod::getField(f.doc().data, "TFQ-001-001-002", 2)),
             QString("9"));
  }

  void fieldRules() {
    const DecimalMark point = DecimalMark::point();
    const DecimalMark comma = DecimalMark::comma();
    struct Case {
      const char* what;
      std::optional<std::string> got;
      std::optional<std::string> want;
    };
    const Case cases[] = {
        {"latitude empty stays empty", ui::rules::latitude("", point), ""},
        {"latitude under a comma", ui::rules::latitude("12,5", comma), "12.500000"},
        {"latitude comma under a point", ui::rules::latitude("12,5", point), std::nullopt},
        {"range cap", ui::rules::range("5000", point), "999.9"},
        {"name commas", ui::rules::name(" Fire, Main "), "Fire; Main"},
        {"nac search", ui::rules::nac("srch"), "Search"},
        {"nac hex", ui::rules::nac("02a3"), "2A3"},
        {"nac cap", ui::rules::nac("1FFF"), "FFF"},
        {"nac zero", ui::rules::nac("0"), "1"},
        {"nac junk", ui::rules::nac("G1"), std::nullopt},
        {"ran prefix kept", ui::rules::ran("Area=1"), "Area=1"},
        {"ran cap", ui::rules::ran("99"), "63"},
        {"ran junk", ui::rules::ran("five"), std::nullopt},
        {"edge unused", ui::rules::bandPlanEdge("0", point), "0"},
        {"edge decimals", ui::rules::bandPlanEdge("851.00625", point), "851.00625"},
        {"step zero", ui::rules::bandPlanStep("0", point), std::nullopt},
        {"step", ui::rules::bandPlanStep("6.250", point), "6.25"},
        {"offset cap", ui::rules::bandPlanOffset("5000"), "1023"},
        {"offset sign", ui::rules::bandPlanOffset("-4"), std::nullopt},
        {"key keeps None", ui::rules::keyWord(-1, "None", "Off"), "None"},
        {"key no word", ui::rules::keyWord(-1, "7", "Off"), "Off"},
        {"switch digits", ui::rules::switchWord(true, "0", ui::rules::SwitchForm::Words), "1"},
        {"switch words", ui::rules::switchWord(true, "", ui::rules::SwitchForm::Words), "On"},
    };
    for (const Case& c : cases) QVERIFY2(c.got == c.want, c.what);
  }
};

QTEST_MAIN(NodePaneTest)
#include "node_pane_test.moc"
