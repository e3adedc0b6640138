#include "ui/pane_fields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <algorithm>

#include "core/document.h"
#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"
#include "ui/qt_feedback.h"

namespace zel::ui {

namespace {

// Entries of a drop list beyond its vocabulary carry this mark, so a refill can drop them.
constexpr int kExtraRole = Qt::UserRole + 2;
constexpr int kAliasRole = Qt::UserRole + 3;

void markRefused(QLineEdit* edit, const QString& why) {
  edit->setStyleSheet("QLineEdit { border: 1px solid #c0392b; }");
  edit->setToolTip(why);
}

void clearMark(QLineEdit* edit) {
  edit->setStyleSheet({});
  edit->setToolTip({});
}

}  // namespace

std::vector<Choice> choicesOf(const std::vector<std::string>& words) {
  std::vector<Choice> out;
  out.reserve(words.size());
  for (const std::string& w : words) out.push_back({w, fromLatin1(w)});
  return out;
}

FieldBinder::FieldBinder(Document& document, Feedback& feedback, QObject* parent)
    : QObject(parent), document_(document), feedback_(feedback) {}

void FieldBinder::bind(std::string key) {
  key_ = std::move(key);
  refresh();
}

std::string FieldBinder::field(int n) const {
  if (key_.empty()) return {};
  return treemod::getField(document_.data, key_, n);
}

bool FieldBinder::store(int n, std::string_view value) {
  if (key_.empty() || !document_.data.contains(key_)) return false;
  const std::string clean = record::sanitize(value);
  if (field(n) == trimView(clean)) return true;
  treemod::setField(document_.data, key_, n, clean);
  document_.changed = true;
  emit stored(n);
  return true;
}

void FieldBinder::refresh() {
  filling_ = true;
  const bool bound = !key_.empty() && document_.data.contains(key_);
  for (QWidget* w : widgets_) w->setEnabled(bound);
  for (auto& load : loaders_) load();
  filling_ = false;
}

void FieldBinder::flush() {
  for (auto& f : flushers_) f();
}

QLineEdit* FieldBinder::text(int n, FieldRule rule, QString refusal, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  widgets_.push_back(edit);
  loaders_.push_back([this, edit, n] {
    edit->setText(fromLatin1(field(n)));
    edit->setModified(false);
    clearMark(edit);
  });
  auto commit = [this, edit, n, rule, refusal] {
    if (filling_ || key_.empty()) return;
    std::optional<std::string> value = rule(toLatin1(edit->text()));
    if (!value) {
      // The record keeps its value; the edit shows it again and says why.
      filling_ = true;
      edit->setText(fromLatin1(field(n)));
      filling_ = false;
      markRefused(edit, refusal);
      feedback_.status(toLatin1(refusal));
      edit->setModified(false);
      return;
    }
    clearMark(edit);
    store(n, *value);
    filling_ = true;
    edit->setText(fromLatin1(field(n)));
    filling_ = false;
    edit->setModified(false);
  };
  connect(edit, &QLineEdit::editingFinished, this, commit);
  flushers_.push_back([edit, commit] {
    if (edit->isModified()) commit();
  });
  return edit;
}

QCheckBox* FieldBinder::onOff(int n, const QString& caption, rules::SwitchForm preferred,
                              QWidget* parent) {
  auto* box = new QCheckBox(caption, parent);
  widgets_.push_back(box);
  loaders_.push_back([this, box, n] { box->setChecked(rules::isOnWord(field(n))); });
  connect(box, &QCheckBox::toggled, this, [this, n, preferred](bool on) {
    if (filling_) return;
    store(n, rules::switchWord(on, field(n), preferred));
  });
  return box;
}

QComboBox* FieldBinder::choice(int n, std::vector<Choice> choices, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  for (const Choice& c : choices) {
    box->addItem(c.caption, fromLatin1(c.word));
    if (c.alias) box->setItemData(box->count() - 1, fromLatin1(*c.alias), kAliasRole);
  }
  const int listed = box->count();
  widgets_.push_back(box);
  loaders_.push_back([this, box, n, listed] {
    while (box->count() > listed) box->removeItem(box->count() - 1);
    if (key_.empty() || !document_.data.contains(key_)) {
      box->setCurrentIndex(-1);
      return;
    }
    const QString word = fromLatin1(field(n));
    int at = box->findData(word);
    for (int i = 0; at < 0 && i < listed; ++i) {
      const QVariant alias = box->itemData(i, kAliasRole);
      if (alias.isValid() && alias.toString() == word) at = i;
    }
    if (at < 0) {
      box->addItem(word.isEmpty() ? QStringLiteral("(empty)") : word, word);
      at = box->count() - 1;
      box->setItemData(at, true, kExtraRole);
    }
    box->setCurrentIndex(at);
  });
  connect(box, &QComboBox::currentIndexChanged, this, [this, box, n](int index) {
    if (filling_ || index < 0) return;
    store(n, toLatin1(box->itemData(index).toString()));
  });
  return box;
}

QSpinBox* FieldBinder::keyNumber(int n, int max, std::string noneWord, QWidget* parent) {
  auto* spin = new QSpinBox(parent);
  spin->setRange(-1, max);
  spin->setSpecialValueText(QStringLiteral("Off"));
  spin->setKeyboardTracking(false);
  spin->setMinimumWidth(80);
  widgets_.push_back(spin);
  loaders_.push_back(
      [this, spin, n, max] { spin->setValue(std::min(rules::keyValue(field(n)), max)); });
  connect(spin, &QSpinBox::valueChanged, this, [this, n, noneWord](int value) {
    if (filling_) return;
    store(n, rules::keyWord(value, field(n), noneWord));
  });
  return spin;
}

QSpinBox* FieldBinder::number(int n, int min, int max, QWidget* parent) {
  auto* spin = new QSpinBox(parent);
  spin->setRange(min, max);
  spin->setKeyboardTracking(false);
  spin->setMinimumWidth(80);
  widgets_.push_back(spin);
  loaders_.push_back([this, spin, n, min, max] {
    const int value = rules::keyValue(field(n));
    spin->setValue(value < 0 ? min : std::clamp(value, min, max));
  });
  connect(spin, &QSpinBox::valueChanged, this, [this, n](int value) {
    if (filling_) return;
    store(n, std::to_string(value));
  });
  return spin;
}

LocationEdits addLocationRows(QFormLayout* form, FieldBinder& binder, int latitudeField,
                              QWidget* parent) {
  const DecimalMark mark = DecimalMark::system();
  LocationEdits e;
  e.latitude = binder.text(
      latitudeField, [mark](std::string_view t) { return rules::latitude(t, mark); },
      QObject::tr("A latitude is decimal degrees from -90 to 90, such as 41.453639."), parent);
  e.latitude->setObjectName("latitude");
  e.latitude->setPlaceholderText("0.000000");
  e.latitude->setMaximumWidth(140);
  e.longitude = binder.text(
      latitudeField + 1, [mark](std::string_view t) { return rules::longitude(t, mark); },
      QObject::tr("A longitude is decimal degrees from -180 to 180, such as -81.705047."), parent);
  e.longitude->setObjectName("longitude");
  e.longitude->setPlaceholderText("-0.000000");
  e.longitude->setMaximumWidth(140);
  e.range = binder.text(
      latitudeField + 2, [mark](std::string_view t) { return rules::range(t, mark); },
      QObject::tr("A range is a number of miles, such as 19.1."), parent);
  e.range->setObjectName("range");
  e.range->setPlaceholderText("0.0");
  e.range->setMaximumWidth(80);
  form->addRow(QObject::tr("Latitude:"), e.latitude);
  form->addRow(QObject::tr("Longitude:"), e.longitude);
  form->addRow(QObject::tr("Range (miles):"), e.range);
  return e;
}

QLineEdit* addNameRow(QFormLayout* form, FieldBinder& binder, int field, QWidget* parent) {
  QLineEdit* edit = binder.text(field, rules::name, QObject::tr("A name cannot be empty."), parent);
  edit->setObjectName("name");
  edit->setMaxLength(64);
  edit->setMinimumWidth(320);
  form->addRow(QObject::tr("Name:"), edit);
  return edit;
}

}  // namespace zel::ui
