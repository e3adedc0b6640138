#include "platform/qt_settings_store.h"

namespace zel {

QtSettingsStore::QtSettingsStore() : settings_(std::make_unique<QSettings>("Torvo", "ZEL536")) {}

QtSettingsStore::QtSettingsStore(const QString& iniFile)
    : settings_(std::make_unique<QSettings>(iniFile, QSettings::IniFormat)) {}

QString QtSettingsStore::path(std::string_view section, std::string_view key) {
  // A key of no section lies directly in the product's folder.
  QString k = QString::fromLatin1(key.data(), static_cast<int>(key.size()));
  if (section.empty()) return k;
  QString group = QString::fromLatin1(section.data(), static_cast<int>(section.size()));
  // An INI file holds the keys of no section under [General], so Qt writes a group of that
  // name in any case as [%General] and reads it back as "General": the store always names it
  // so, or a section "general" would be written anew each run and never found again.
  if (group.compare("General", Qt::CaseInsensitive) == 0) group = QStringLiteral("General");
  return group + "/" + k;
}

bool QtSettingsStore::read(std::string_view section, std::string_view key,
                           std::string& out) const {
  QVariant v = settings_->value(path(section, key));
  if (!v.isValid()) return false;
  out = v.toString().toLatin1().toStdString();
  return true;
}

void QtSettingsStore::write(std::string_view section, std::string_view key,
                            std::string_view value) {
  settings_->setValue(path(section, key),
                      QString::fromLatin1(value.data(), static_cast<int>(value.size())));
}

void QtSettingsStore::remove(std::string_view section, std::string_view key) {
  settings_->remove(path(section, key));
}

void QtSettingsStore::flush() { settings_->sync(); }

}  // namespace zel
