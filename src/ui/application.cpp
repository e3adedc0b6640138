#include "ui/application.h"

#include <QApplication>
#include <QMainWindow>

namespace zel::ui {
int runApplication(QApplication& app) {
  QMainWindow w;
  w.setWindowTitle("ZEL536");
  w.show();
  return app.exec();
}
}  // namespace zel::ui
