// Edit Banknames: the names of every department of the document in one table, so that a
// list read from a card can be renamed without clicking through the tree. Names are typed
// in place; OK stores them all (or, when one is refused, none), Cancel and Escape keep the
// document as it was.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/ports.h"

class QTableWidget;
class QLineEdit;
class QLabel;

namespace zel::ui {

class BanknamesDialog : public QDialog {
  Q_OBJECT

 public:
  BanknamesDialog(Document& document, Feedback& feedback, QWidget* parent = nullptr);

  QTableWidget* table() const { return table_; }
  QLineEdit* filter() const { return filter_; }
  // Stores the typed names; false (and the document untouched) when one was refused.
  bool apply();
  int renamed() const { return renamed_; }

 public slots:
  void accept() override;

 private:
  void fill();
  void applyFilter(const QString& text);

  Document& document_;
  Feedback& feedback_;
  QTableWidget* table_ = nullptr;
  QLineEdit* filter_ = nullptr;
  QLabel* count_ = nullptr;
  std::vector<std::string> keys_;  // a row's department key
  int renamed_ = 0;
};

}  // namespace zel::ui
