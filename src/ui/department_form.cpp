#include "ui/department_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>

#include "core/document.h"
#include "core/record_line.h"
#include "core/tree_operations.h"
#include "grid/vocabulary.h"

namespace zel::ui {

DepartmentForm::DepartmentForm(Document& document, Feedback& feedback, QWidget* parent)
    : QWidget(parent), document_(document) {
  setObjectName("departmentForm");
  binder_ = new FieldBinder(document, feedback, this);
  form_ = new QFormLayout(this);
  form_->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  form_->setLabelAlignment(Qt::AlignRight);
  addNameRow(form_, *binder_, 4, this);
  QCheckBox* avoid =
      binder_->onOff(5, tr("Avoid this department while scanning"), rules::SwitchForm::Words, this);
  avoid->setObjectName("avoid");
  form_->addRow(QString(), avoid);
  addLocationRows(form_, *binder_, 6, this);
  QComboBox* shape =
      binder_->choice(9, {{"Circle", tr("Circle")}, {"Rectangles", tr("Rectangles")}}, this);
  shape->setObjectName("shape");
  form_->addRow(tr("Location shape:"), shape);
  QSpinBox* quickKey = binder_->keyNumber(10, 99, "Off", this);
  quickKey->setObjectName("quickKey");
  form_->addRow(tr("Quick key:"), quickKey);
  // A department without a filter of its own is written with the global one.
  std::vector<Choice> filters = choicesOf(vocab::tabel("ufilter"));
  if (!filters.empty()) filters.front().alias = "";
  QComboBox* filter = binder_->choice(11, filters, this);
  filter->setObjectName("filter");
  form_->addRow(tr("Filter:"), filter);
  filterRow_ = filter;
  connect(binder_, &FieldBinder::stored, this, [this](int field) {
    if (field == 4) emit nameStored(QString::fromStdString(key_));
  });
  showDepartment({});
}

bool DepartmentForm::filterShown() const {
  // Only a conventional department carries the filter of its channels.
  return record::field(treemod::getText(document_.data, key_), 1) == "C-Group";
}

void DepartmentForm::showDepartment(const std::string& key) {
  key_ = key;
  binder_->bind(key);
  form_->setRowVisible(filterRow_, filterShown());
}

}  // namespace zel::ui
