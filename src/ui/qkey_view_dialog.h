// frm_qkview, "QuickKey Layout Viewer And Editor:": the document's systems by system quick
// key, or one system's departments and sites by department quick key, ten key buckets at a
// time plus "No Key Assigned:". Rows dragged onto another bucket take its key; Save writes
// the changed keys into the records (qkeys::writeBack) and marks the document changed.
// Geometry lives in settings section "qkeymanager" (qk_width, qk_height, qk_left, qk_top).
#pragma once

#include <QDialog>
#include <QListWidget>
#include <array>
#include <map>
#include <string>
#include <vector>

#include "core/session.h"
#include "database/qkey_layout.h"

class QComboBox;
class QLabel;
class QPrinter;
class QRadioButton;

namespace zel::ui {

// One bucket's list. Rows carry their node key (the hidden column) in Qt::UserRole; a drop
// of rows dragged from any bucket list reports their keys.
class QkeyBucketList : public QListWidget {
  Q_OBJECT
 public:
  explicit QkeyBucketList(QWidget* parent = nullptr);
  int bucket = qkeys::kNoKey;
  // What a drop does with the dragged rows: reports their keys; false for other data.
  bool takeDrop(const QMimeData* mime);

 signals:
  void rowsDropped(const QStringList& nodeKeys, int bucket);

 protected:
  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  // Delete takes the key of the selected rows away, as a drop on "No Key Assigned:" does.
  void keyPressEvent(QKeyEvent* event) override;
};

class QkeyViewDialog : public QDialog {
  Q_OBJECT
 public:
  QkeyViewDialog(Session& session, Feedback& feedback, QWidget* parent = nullptr);

  // The list of a bucket on show: index 0 to 9 of the decade, or kNoKey.
  QkeyBucketList* bucketList(int index) const;
  QComboBox* decadeCombo() const { return combo1_; }
  // Moves rows (node keys) into a bucket, as a drop does.
  void moveRows(const QStringList& nodeKeys, int bucket);
  // Save: writes every changed key; returns the number of records written.
  int save();
  // The records written by Save and Close.
  int written() const { return written_; }
  // Prints the overview; false (and "Problem in printerroutine Qkeys") when it cannot.
  bool printOverview(QPrinter& printer);
  // The view "by System" for one system (0 goes back to the systems).
  void showSystem(int system);

 protected:
  void done(int result) override;

 private:
  void build();
  void fill();
  void findNextFree();
  void printCommand();
  qkeys::Layout& current();

  Session& session_;
  Feedback& feedback_;
  qkeys::Layout systems_;
  std::map<int, qkeys::Layout> departments_;
  int shownSystem_ = 0;
  int written_ = 0;
  QRadioButton* option1_ = nullptr;
  QRadioButton* option2_ = nullptr;
  QComboBox* systemCombo_ = nullptr;
  QComboBox* combo1_ = nullptr;
  QLabel* heading_ = nullptr;
  QLabel* freeKey_ = nullptr;
  std::array<QLabel*, 10> labels_{};
  std::array<QkeyBucketList*, 10> lists_{};
  QkeyBucketList* noKey_ = nullptr;
};

// Opens the window modally; true when Save wrote anything.
bool openQuickKeyView(QWidget* parent, Session& session, Feedback& feedback);

}  // namespace zel::ui
