// zel536: the desktop application.
#include <QApplication>

#include "ui/application.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setOrganizationName("Torvo");
  QApplication::setApplicationName("ZEL536");
  QApplication::setApplicationVersion(ZEL_VERSION);
  return zel::ui::runApplication(app);
}
