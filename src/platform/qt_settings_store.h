// SettingsStore on QSettings: organisation "Torvo", application "ZEL536" (the registry on
// Windows, an INI file elsewhere), or a given INI file for scripts and tests.
#pragma once

#include <QSettings>
#include <memory>

#include "core/ports.h"

namespace zel {

class QtSettingsStore : public SettingsStore {
 public:
  QtSettingsStore();                                 // the user's own settings
  explicit QtSettingsStore(const QString& iniFile);  // a settings file of its own
  bool read(std::string_view section, std::string_view key, std::string& out) const override;
  void write(std::string_view section, std::string_view key, std::string_view value) override;
  void remove(std::string_view section, std::string_view key) override;
  void flush() override;

 private:
  static QString path(std::string_view section, std::string_view key);
  std::unique_ptr<QSettings> settings_;
};

}  // namespace zel
