// The pane of a department: its record (GIN or TIN line).
//
//   GIN,C-Group,CGroupId=0,AgencyId=0,Fire,Off,41.316497,-81.744117,3.5,Circle,1,Global
//   ^4 name ^5 avoid ^6-8 location ^9 shape ^10 quick key ^11 site filter (conventional)
#pragma once

#include <QWidget>
#include <string>

#include "ui/pane_fields.h"

class QFormLayout;

namespace zel::ui {

class DepartmentForm : public QWidget {
  Q_OBJECT

 public:
  DepartmentForm(Document& document, Feedback& feedback, QWidget* parent = nullptr);
  void showDepartment(const std::string& key);
  void flush() { binder_->flush(); }
  FieldBinder& binder() { return *binder_; }
  bool filterShown() const;

 signals:
  void nameStored(const QString& key);

 private:
  Document& document_;
  FieldBinder* binder_ = nullptr;
  QFormLayout* form_ = nullptr;
  QWidget* filterRow_ = nullptr;
  std::string key_;
};

}  // namespace zel::ui
