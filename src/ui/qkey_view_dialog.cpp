#include "ui/qkey_view_dialog.h"

#include <algorithm>

#include <QComboBox>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "core/keys.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr const char* kMime = "application/x-zel-quickkey-rows";
constexpr const char* kSection = "qkeymanager";
constexpr int kTwipsPerPixel = 15;

}  // namespace

QkeyBucketList::QkeyBucketList(QWidget* parent) : QListWidget(parent) {
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setDragEnabled(true);
  setAcceptDrops(true);
  setDropIndicatorShown(true);
  setDragDropMode(QAbstractItemView::DragDrop);
  setDefaultDropAction(Qt::MoveAction);
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setToolTip("Drag rows here to give them this key; Delete takes the key away");
}

QStringList QkeyBucketList::mimeTypes() const { return {kMime}; }

QMimeData* QkeyBucketList::mimeData(const QList<QListWidgetItem*>& items) const {
  QStringList keys;
  for (QListWidgetItem* item : items) keys << item->data(Qt::UserRole).toString();
  auto* mime = new QMimeData;
  mime->setData(kMime, keys.join('\n').toLatin1());
  return mime;
}

void QkeyBucketList::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(kMime)) event->acceptProposedAction();
}

void QkeyBucketList::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasFormat(kMime)) event->acceptProposedAction();
}

// The window rebuilds every list from its layout, so the drag itself removes nothing: the
// drop is reported as a copy.
void QkeyBucketList::dropEvent(QDropEvent* event) {
  if (!takeDrop(event->mimeData())) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

bool QkeyBucketList::takeDrop(const QMimeData* mime) {
  if (!mime || !mime->hasFormat(kMime)) return false;
  emit rowsDropped(QString::fromLatin1(mime->data(kMime)).split('\n'), bucket);
  return true;
}

void QkeyBucketList::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Delete || selectedItems().isEmpty()) {
    QListWidget::keyPressEvent(event);
    return;
  }
  QStringList keys;
  for (QListWidgetItem* item : selectedItems()) keys << item->data(Qt::UserRole).toString();
  emit rowsDropped(keys, qkeys::kNoKey);
}

QkeyViewDialog::QkeyViewDialog(Session& session, Feedback& feedback, QWidget* parent)
    : QDialog(parent), session_(session), feedback_(feedback) {
  setObjectName("frm_qkview");
  setWindowTitle("QuickKey Layout Viewer And Editor:");
  systems_ = qkeys::systemLayout(session_.document().data);
  build();
  Settings& s = session_.settingsCodec();
  resize(leadingInteger(s.get(kSection, "qk_width", "9330x")) / kTwipsPerPixel,
         leadingInteger(s.get(kSection, "qk_height", "9780x")) / kTwipsPerPixel);
  const std::string left = s.get(kSection, "qk_left", "x");
  const std::string top = s.get(kSection, "qk_top", "x");
  if (!left.empty() && !top.empty())
    move(leadingInteger(left) / kTwipsPerPixel, leadingInteger(top) / kTwipsPerPixel);
  fill();
}

void QkeyViewDialog::build() {
  auto* root = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  option1_ = new QRadioButton("by System QuickKey", this);
  option1_->setObjectName("Option1");
  option2_ = new QRadioButton("by System", this);
  option2_->setObjectName("Option2");
  option1_->setChecked(true);
  systemCombo_ = new QComboBox(this);
  systemCombo_->setObjectName("systemCombo");
  systemCombo_->setToolTip("The system whose departments and sites are shown");
  for (NodeId sys : treemod::walkSystems(session_.document().data)) {
    const std::string& line = session_.document().data.text(sys);
    systemCombo_->addItem(fromLatin1(record::field(line, 4)),
                          keys::systemOf(session_.document().data.key(sys)));
  }
  systemCombo_->setEnabled(false);
  option2_->setEnabled(systemCombo_->count() > 0);
  combo1_ = new QComboBox(this);
  combo1_->setObjectName("Combo1");
  combo1_->setToolTip("The ten quick keys on show");
  for (int d = 0; d < qkeys::kDecades; ++d)
    combo1_->addItem(QString::fromStdString(qkeys::decadeCaption(d)));
  auto* next = new QPushButton("Find Next Free Qkey", this);
  next->setObjectName("findNextFree");
  next->setToolTip("Shows the first quick key from 0 that nothing in this view uses");
  freeKey_ = new QLabel(this);
  freeKey_->setObjectName("freeKey");
  top->addWidget(option1_);
  top->addWidget(option2_);
  top->addWidget(systemCombo_, 1);
  top->addSpacing(12);
  top->addWidget(new QLabel("Keys:", this));
  top->addWidget(combo1_);
  top->addWidget(next);
  top->addWidget(freeKey_);
  root->addLayout(top);

  heading_ = new QLabel(this);
  heading_->setObjectName("heading");
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  root->addWidget(heading_);

  auto* grid = new QGridLayout;
  auto makeList = [this](int bucket) {
    auto* list = new QkeyBucketList(this);
    list->bucket = bucket;
    connect(list, &QkeyBucketList::rowsDropped, this, &QkeyViewDialog::moveRows);
    return list;
  };
  for (int i = 0; i < 10; ++i) {
    labels_[i] = new QLabel(this);
    labels_[i]->setObjectName(QString("qkLabel%1").arg(i));
    lists_[i] = makeList(i);
    lists_[i]->setObjectName(QString("bucket%1").arg(i));
    grid->addWidget(labels_[i], (i / 5) * 2, i % 5);
    grid->addWidget(lists_[i], (i / 5) * 2 + 1, i % 5);
  }
  root->addLayout(grid, 3);
  auto* label1 = new QLabel(qkeys::kNoKeyCaption, this);
  label1->setObjectName("Label1");
  label1->setFont(bold);
  root->addWidget(label1);
  noKey_ = makeList(qkeys::kNoKey);
  noKey_->setObjectName("noKey");
  root->addWidget(noKey_, 1);

  auto* buttons = new QHBoxLayout;
  auto* print = new QPushButton("Print Overview", this);
  print->setObjectName("Command2");
  auto* save = new QPushButton("Save and Close", this);
  save->setObjectName("Command1");
  save->setDefault(true);
  auto* cancel = new QPushButton("Cancel", this);
  cancel->setObjectName("Command3");
  buttons->addWidget(new QLabel("Drag rows onto another quick key to change their key.", this), 1);
  buttons->addWidget(print);
  buttons->addWidget(save);
  buttons->addWidget(cancel);
  root->addLayout(buttons);

  connect(option1_, &QRadioButton::toggled, this, [this](bool on) {
    if (on) showSystem(0);
  });
  connect(option2_, &QRadioButton::toggled, this, [this](bool on) {
    if (on) showSystem(systemCombo_->currentData().toInt());
  });
  connect(systemCombo_, &QComboBox::currentIndexChanged, this, [this] {
    if (option2_->isChecked()) showSystem(systemCombo_->currentData().toInt());
  });
  connect(combo1_, &QComboBox::currentIndexChanged, this, [this] { fill(); });
  connect(next, &QPushButton::clicked, this, &QkeyViewDialog::findNextFree);
  connect(print, &QPushButton::clicked, this, &QkeyViewDialog::printCommand);
  connect(save, &QPushButton::clicked, this, [this] {
    written_ += this->save();
    accept();
  });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

qkeys::Layout& QkeyViewDialog::current() {
  if (shownSystem_ == 0) return systems_;
  auto it = departments_.find(shownSystem_);
  if (it == departments_.end())
    it = departments_.emplace(shownSystem_, qkeys::departmentLayout(session_.document().data,
                                                                    shownSystem_)).first;
  return it->second;
}

void QkeyViewDialog::showSystem(int system) {
  shownSystem_ = system;
  {
    const QSignalBlocker b1(option1_), b2(option2_), b3(systemCombo_);
    (system == 0 ? option1_ : option2_)->setChecked(true);
    if (system != 0) systemCombo_->setCurrentIndex(systemCombo_->findData(system));
  }
  systemCombo_->setEnabled(system != 0);
  fill();
}

void QkeyViewDialog::fill() {
  const qkeys::Layout& layout = current();
  heading_->setText(shownSystem_ == 0 ? QString("All Systems QuickKeys")
                                      : systemCombo_->currentText() + " Departments/Sites");
  const int decade = std::max(0, combo1_->currentIndex());
  auto fillList = [&layout](QkeyBucketList* list, int key) {
    list->clear();
    for (const qkeys::Item* item : qkeys::bucketItems(layout, key)) {
      auto* row = new QListWidgetItem(fromLatin1(item->text), list);
      row->setData(Qt::UserRole, QString::fromStdString(item->key));
      row->setToolTip(fromLatin1(item->text) + "  (" + QString::fromStdString(item->key) + ")");
    }
  };
  for (int i = 0; i < 10; ++i) {
    const int key = qkeys::bucketKey(decade, i);
    lists_[i]->bucket = key;
    labels_[i]->setText(QString::fromStdString(qkeys::bucketCaption(key)));
    fillList(lists_[i], key);
  }
  fillList(noKey_, qkeys::kNoKey);
}

QkeyBucketList* QkeyViewDialog::bucketList(int index) const {
  return index == qkeys::kNoKey ? noKey_ : lists_.at(index);
}

void QkeyViewDialog::moveRows(const QStringList& nodeKeys, int bucket) {
  std::vector<std::string> keys;
  for (const QString& k : nodeKeys) keys.push_back(k.toStdString());
  if (qkeys::moveTo(current(), keys, bucket) > 0) fill();
}

void QkeyViewDialog::findNextFree() {
  const int key = qkeys::nextFreeKey(current());
  if (key == qkeys::kNoKey) {
    freeKey_->setText("Every quick key is in use.");
    return;
  }
  combo1_->setCurrentIndex(key / 10);
  freeKey_->setText(QString("Next free: %1").arg(key));
  lists_[key % 10]->setFocus();
}

int QkeyViewDialog::save() {
  Document& doc = session_.document();
  int written = qkeys::writeBack(doc, systems_);
  for (const auto& [system, layout] : departments_) written += qkeys::writeBack(doc, layout);
  return written;
}

void QkeyViewDialog::printCommand() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) return;
  printOverview(printer);
}

bool QkeyViewDialog::printOverview(QPrinter& printer) {
  QPainter painter;
  if (!printer.isValid() || !painter.begin(&printer)) {
    feedback_.message("Problem in printerroutine Qkeys");
    return false;
  }
  // The keys as they stand in this window, saved or not: print from a copy with them.
  Document copy;
  copy.data = session_.document().data;
  qkeys::writeBack(copy, systems_);
  for (const auto& [system, layout] : departments_) qkeys::writeBack(copy, layout);
  const QWidget* main = parentWidget() ? parentWidget()->window() : nullptr;
  const std::string title = main ? toLatin1(main->windowTitle()) : "ZEL536";
  QFont font("Arial", 10);
  painter.setFont(font);
  const int line = painter.fontMetrics().lineSpacing();
  const QRect page = painter.viewport();
  int y = line;
  std::vector<std::string> lines = qkeys::overviewLines(copy.data, title);
  if (shownSystem_ != 0) {
    lines.push_back("");
    for (std::string& l : qkeys::bucketPrintLines(current(), toLatin1(systemCombo_->currentText()),
                                                  std::max(0, combo1_->currentIndex())))
      lines.push_back(std::move(l));
  }
  for (const std::string& text : lines) {
    if (y + line > page.height()) {
      printer.newPage();
      y = line;
    }
    painter.drawText(0, y, fromLatin1(text));
    y += line;
  }
  return painter.end();
}

void QkeyViewDialog::done(int result) {
  // Leaving without Save drops the moves: asked first when there are any.
  bool pending = qkeys::changed(systems_);
  for (const auto& [system, layout] : departments_) pending = pending || qkeys::changed(layout);
  if (result == QDialog::Rejected && pending &&
      feedback_.askPreferring("QuickKeys", "Close without saving the changed quick keys?",
                              Buttons::YesNo, Answer::No) != Answer::Yes)
    return;
  Settings& s = session_.settingsCodec();
  s.put(kSection, "qk_width", std::to_string(width() * kTwipsPerPixel));
  s.put(kSection, "qk_height", std::to_string(height() * kTwipsPerPixel));
  s.put(kSection, "qk_left", std::to_string(x() * kTwipsPerPixel));
  s.put(kSection, "qk_top", std::to_string(y() * kTwipsPerPixel));
  QDialog::done(result);
}

bool openQuickKeyView(QWidget* parent, Session& session, Feedback& feedback) {
  QkeyViewDialog dialog(session, feedback, parent);
  return dialog.exec() == QDialog::Accepted && dialog.written() > 0;
}

}  // namespace zel::ui
