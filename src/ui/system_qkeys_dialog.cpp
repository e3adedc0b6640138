#include "ui/system_qkeys_dialog.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/text.h"
#include "database/qkey_layout.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

constexpr const char* kPlaceSection = "qkeyeditor";
constexpr const char* kUsedStyle = "QCheckBox { background-color: #70D070; }";

}  // namespace

SystemQkeysDialog::SystemQkeysDialog(Session& session, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName("frm_sysqkeys");
  setWindowTitle("System Quickkeys HP");
  auto* root = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  auto* grid = new QGridLayout;
  grid->setSpacing(2);
  const std::string stored = qkeys::loadSystemKeyFlags(session_.settingsCodec());
  const std::vector<bool> used = qkeys::systemKeysInUse(session_.document().data);
  for (int k = 0; k < qkeys::kKeyCount; ++k) {
    auto* box = new QCheckBox(QString::number(k), this);
    box->setObjectName(QString("sCheck1_%1").arg(k));
    box->setChecked(stored[k] == '1');
    if (used[k]) box->setStyleSheet(kUsedStyle);
    box->setToolTip(used[k] ? "One or more systems are assigned to this QuickKey."
                            : "No system is assigned to this QuickKey.");
    box->installEventFilter(this);
    connect(box, &QCheckBox::clicked, this, [this, k] {
      store();
      showKey(k);
    });
    grid->addWidget(box, k / 10, k % 10);
    boxes_[k] = box;
  }
  left->addLayout(grid);
  auto* green = new QLabel("Green background: One or more systems are assigned to this QuickKey.", this);
  green->setObjectName("greenLabel");
  left->addWidget(green);
  left->addWidget(new QLabel(
      "Move mouse over System QuickKey to see systems assigned to that quickkey.", this));
  auto* buttons = new QHBoxLayout;
  auto* autoEnable = new QPushButton("AutoEnable  Qkeys", this);
  autoEnable->setObjectName("Command6");
  autoEnable->setToolTip("Ticks every quick key to which at least one system is assigned");
  auto* allOn = new QPushButton("All On", this);
  allOn->setObjectName("sCommand1");
  auto* allOff = new QPushButton("All Off", this);
  allOff->setObjectName("sCommand2");
  auto* close = new QPushButton("Close", this);
  close->setObjectName("closeButton");
  buttons->addWidget(autoEnable);
  buttons->addWidget(allOn);
  buttons->addWidget(allOff);
  buttons->addStretch(1);
  buttons->addWidget(close);
  left->addLayout(buttons);
  root->addLayout(left, 3);

  auto* right = new QVBoxLayout;
  right->addWidget(new QLabel("Systemlist, click Qkeynumber to see list of systems", this));
  assigned_ = new QLabel("Systems assigned to Qkey: ", this);
  assigned_->setObjectName("assignedLabel");
  right->addWidget(assigned_);
  list2_ = new QListWidget(this);
  list2_->setObjectName("List2");
  right->addWidget(list2_, 1);
  root->addLayout(right, 1);

  connect(autoEnable, &QPushButton::clicked, this, [this] {
    const std::string enabled = qkeys::autoEnabled(session_.document().data, flags());
    for (int k = 0; k < qkeys::kKeyCount; ++k) boxes_[k]->setChecked(enabled[k] == '1');
    store();
  });
  connect(allOn, &QPushButton::clicked, this, [this] { setAll('1'); });
  connect(allOff, &QPushButton::clicked, this, [this] { setAll('0'); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);

  Settings& s = session_.settingsCodec();
  const std::string w = s.get(kPlaceSection, "width", "x");
  const std::string h = s.get(kPlaceSection, "height", "x");
  if (!w.empty() && !h.empty()) resize(leadingInteger(w), leadingInteger(h));
}

std::string SystemQkeysDialog::flags() const {
  std::string out(qkeys::kKeyCount, '0');
  for (int k = 0; k < qkeys::kKeyCount; ++k)
    if (boxes_[k]->isChecked()) out[k] = '1';
  return out;
}

void SystemQkeysDialog::store() { qkeys::saveSystemKeyFlags(session_.settingsCodec(), flags()); }

void SystemQkeysDialog::setAll(char flag) {
  for (QCheckBox* box : boxes_) box->setChecked(flag == '1');
  store();
}

void SystemQkeysDialog::showKey(int key) {
  assigned_->setText(QString("Systems assigned to Qkey: %1").arg(key));
  list2_->clear();
  for (const std::string& name : qkeys::namesOnSystemKey(session_.document().data, key))
    list2_->addItem(fromLatin1(name));
}

bool SystemQkeysDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter) {
    for (int k = 0; k < qkeys::kKeyCount; ++k)
      if (boxes_[k] == watched) showKey(k);
  }
  return QDialog::eventFilter(watched, event);
}

void SystemQkeysDialog::done(int result) {
  Settings& s = session_.settingsCodec();
  s.put(kPlaceSection, "width", std::to_string(width()));
  s.put(kPlaceSection, "height", std::to_string(height()));
  QDialog::done(result);
}

void openSystemQuickKeys(QWidget* parent, Session& session) {
  SystemQkeysDialog dialog(session, parent);
  dialog.exec();
}

}  // namespace zel::ui
