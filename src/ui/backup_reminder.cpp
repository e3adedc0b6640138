#include "ui/backup_reminder.h"

#include <QCheckBox>

namespace zel::ui {

namespace {
constexpr const char* kSection = "general";
constexpr const char* kKey = "nobackupreminder";
}  // namespace

bool backupReminderWanted(const Settings& settings) {
  return settings.getPlain(kSection, kKey, "0") != "1";
}

std::unique_ptr<QMessageBox> backupReminderBox(QWidget* parent) {
  auto box = std::make_unique<QMessageBox>(QMessageBox::Information, QStringLiteral("ZEL536"),
                                           "Please backup your data and store in a safe place!",
                                           QMessageBox::Ok, parent);
  box->setCheckBox(new QCheckBox("Do not show this again", box.get()));
  return box;
}

void keepBackupReminderChoice(const QMessageBox& box, Settings& settings) {
  const bool never = box.checkBox() && box.checkBox()->isChecked();
  settings.put(kSection, kKey, never ? "1" : "0");
}

void remindBackup(QWidget* parent, Settings& settings) {
  if (!backupReminderWanted(settings)) return;
  auto box = backupReminderBox(parent);
  box->exec();
  keepBackupReminderChoice(*box, settings);
}

}  // namespace zel::ui
