// The scanner face of a virtual control window: the display as the scanner shows it (menu
// rows, the system, department and channel rows with their hold and avoid marks, signal
// bars, the busy mark, the SDS signal needle and alert light) and the keys, each a button
// named by its key name.
#pragma once

#include <QWidget>
#include <functional>

#include "control/vc_state.h"

class QGridLayout;
class QPushButton;

namespace zel::ui {

class ScannerDisplay : public QWidget {
  Q_OBJECT
 public:
  ScannerDisplay(control::Family family, const control::ScannerStatus& status,
                 QWidget* parent = nullptr);
  QSize sizeHint() const override;
  // The screen lines the last paint found room for.
  int rowsPainted() const { return rowsPainted_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintNeedle(class QPainter& p, const QRect& dial);
  control::Family family_;
  const control::ScannerStatus& status_;
  int rowsPainted_ = 0;
};

class ScannerFace : public QWidget {
  Q_OBJECT
 public:
  // pressKey is called with the key name of every click.
  ScannerFace(control::Family family, const control::ScannerStatus& status,
              std::function<void(const std::string&)> pressKey, QWidget* parent = nullptr);
  ScannerDisplay* display() const { return display_; }
  QPushButton* key(const QString& name) const;
  // Repaints from the status (the window calls it on its refresh tick).
  void refresh();

 private:
  ScannerDisplay* display_;
  std::function<void(const std::string&)> pressKey_;
};

// Scanner text is 8-bit; the window shows it as Latin-1.
QString latin1(const std::string& text);

}  // namespace zel::ui
