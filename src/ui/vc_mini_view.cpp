#include "ui/vc_mini_view.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "control/command_surface.h"
#include "core/text.h"
#include "ui/vc_scanner_face.h"

namespace zel::ui {

MiniView::MiniView(control::Family family, const control::ScannerStatus& status, Settings& settings,
                   std::function<void(const std::string&)> pressKey, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint),
      family_(family),
      status_(status),
      settings_(settings) {
  setWindowTitle(family == control::Family::Sds ? "SDS mini view" : "Mini view");
  auto* layout = new QGridLayout(this);
  for (int r = 0; r < 3; ++r) {
    rows_[r] = new QLabel(this);
    rows_[r]->setMinimumWidth(260);
    layout->addWidget(rows_[r], r, 0, 1, 3);
  }
  busy_ = new QLabel(this);
  busy_->setFixedSize(14, 14);
  layout->addWidget(busy_, 0, 3);
  struct Button {
    const char* caption;
    control::MiniButton which;
  } buttons[] = {{"Hold/Res", control::MiniButton::HoldResume},
                 {"Scan", control::MiniButton::Scan},
                 {"Avoid", control::MiniButton::Avoid}};
  for (int i = 0; i < 3; ++i) {
    auto* b = new QPushButton(buttons[i].caption, this);
    std::string name = control::miniViewKey(family, buttons[i].which);
    connect(b, &QPushButton::clicked, this, [pressKey, name] { pressKey(name); });
    layout->addWidget(b, 3, i);
  }
  int left = static_cast<int>(leadingInteger(settings_.getPlain("minivc", key("minileft"), "100")));
  int top = static_cast<int>(leadingInteger(settings_.getPlain("minivc", key("minitop"), "100")));
  move(left, top);
  refresh();
}

std::string MiniView::key(const char* what) const {
  return std::string(family_ == control::Family::Sds ? "vcsds" : "vc396") + what;
}

void MiniView::refresh() {
  for (int r = 0; r < 3; ++r) rows_[r]->setText(latin1(status_.display.names[r]));
  busy_->setStyleSheet(status_.miniBusy ? "background: rgb(60,220,90); border-radius: 7px;"
                                        : "background: rgb(40,60,40); border-radius: 7px;");
}

void MiniView::closeEvent(QCloseEvent* event) {
  settings_.put("minivc", key("minileft"), std::to_string(x()));
  settings_.put("minivc", key("minitop"), std::to_string(y()));
  settings_.put("minivc", key("minimode"), isVisible() ? "1" : "0");
  settings_.put("minivc", key("ah"), "1");  // always on top
  event->accept();
}

}  // namespace zel::ui
