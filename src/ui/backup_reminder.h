// The backup reminder at start: its fixed words, and a "Do not show this again" tick kept in
// the settings (section "general", key "nobackupreminder").
#pragma once

#include <QMessageBox>
#include <memory>

#include "core/settings.h"

namespace zel::ui {

// Whether the reminder is still wanted at start.
bool backupReminderWanted(const Settings& settings);
// The reminder's box, not yet shown, with the tick unset.
std::unique_ptr<QMessageBox> backupReminderBox(QWidget* parent);
// Keeps the tick of a box that was answered.
void keepBackupReminderChoice(const QMessageBox& box, Settings& settings);
// Shows the reminder when it is wanted and keeps the tick.
void remindBackup(QWidget* parent, Settings& settings);

}  // namespace zel::ui
