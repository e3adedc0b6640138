// The field widgets of the node panes. A FieldBinder ties the widgets of one form to the
// fields of one record line: it fills them when a node is shown, and every change a user
// makes goes to the line through the set-field operation of the tree, marking the document
// changed. Nothing else in the panes stores a field.
//
//   binder.bind("SIT-001-001");
//   form->addRow("Name:", binder.text(4, nameRule, "A name cannot be empty."));
//   form->addRow(binder.onOff(5, "Avoid", SwitchForm::Words));
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "ui/field_rules.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;
class QWidget;

namespace zel {
class DocumentTree;
struct Document;
}  // namespace zel

namespace zel::ui {

// What a typed text becomes in the record, or nullopt when the text is refused.
using FieldRule = std::function<std::optional<std::string>(std::string_view typed)>;

// One entry of a closed list: the word the record holds and the caption shown for it.
struct Choice {
  std::string word;
  QString caption;
  // Another word of the record that means the same entry ("" for a field left empty).
  std::optional<std::string> alias = std::nullopt;
};
// The words of a list shown as they are.
std::vector<Choice> choicesOf(const std::vector<std::string>& words);

class FieldBinder : public QObject {
  Q_OBJECT

 public:
  // The lines edited are those of the document's record tree.
  FieldBinder(Document& document, Feedback& feedback, QObject* parent = nullptr);

  // Shows the line of `key` in every widget; an empty key leaves the widgets empty and
  // disabled.
  void bind(std::string key);
  const std::string& key() const { return key_; }
  std::string field(int n) const;
  // Stores a value at field n of the bound line and marks the document changed. A value
  // equal to the stored one changes nothing. False when no line is bound.
  bool store(int n, std::string_view value);

  // A line edit for a typed field. The text is stored when editing finishes; a refused
  // text puts the stored value back and shows `refusal` in the status bar.
  QLineEdit* text(int n, FieldRule rule, QString refusal, QWidget* parent = nullptr);
  // A check box for a switch, storing in the form the field already holds.
  QCheckBox* onOff(int n, const QString& caption, rules::SwitchForm preferred,
                   QWidget* parent = nullptr);
  // A drop list of a closed vocabulary. A word in the record that is not on the list is
  // shown as an extra entry and kept until the user picks another.
  QComboBox* choice(int n, std::vector<Choice> choices, QWidget* parent = nullptr);
  // A spin box for a key number, "Off" below 0; no key stores the field's own no-key word
  // ("None", "Off", ...) or `noneWord`.
  QSpinBox* keyNumber(int n, int max, std::string noneWord, QWidget* parent = nullptr);

  // A spin box for a plain whole number; a field that holds no number shows `min` and is
  // only stored when the user changes the value.
  QSpinBox* number(int n, int min, int max, QWidget* parent = nullptr);

  // Fills every widget from the bound line again.
  void refresh();
  // Stores what a line edit holds that has not been stored yet (the selection moves on).
  void flush();

 signals:
  // A field of the bound line changed.
  void stored(int field);

 private:
  Document& document_;
  Feedback& feedback_;
  std::string key_;
  std::vector<std::function<void()>> loaders_;
  std::vector<std::function<void()>> flushers_;
  std::vector<QWidget*> widgets_;
  bool filling_ = false;
};

// The location rows of a form: latitude, longitude and range at fields n, n+1 and n+2, in
// decimal degrees and miles, read with the system's decimal mark.
struct LocationEdits {
  QLineEdit* latitude = nullptr;
  QLineEdit* longitude = nullptr;
  QLineEdit* range = nullptr;
};
LocationEdits addLocationRows(QFormLayout* form, FieldBinder& binder, int latitudeField,
                              QWidget* parent);
// The name row: the name rule, and a line edit wide enough for the longest name.
QLineEdit* addNameRow(QFormLayout* form, FieldBinder& binder, int field, QWidget* parent);

}  // namespace zel::ui
