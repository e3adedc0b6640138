// The settings codec over a SettingsStore. Every value is stored with a trailing "x" so
// that an empty value can be told from a missing one; the reader strips the last
// character of what it finds, or of the default it was given when nothing is stored.
// Callers therefore pass defaults with their mark: get("colwidth", "ccol_width1", "1200x").
#pragma once

#include <string>
#include <string_view>

#include "core/ports.h"

namespace zel {

class Settings {
 public:
  explicit Settings(SettingsStore& store) : store_(store) {}

  std::string get(std::string_view section, std::string_view key,
                  std::string_view markedDefault) const;
  void put(std::string_view section, std::string_view key, std::string_view value);
  // Convenience for the common case of a value without its mark.
  std::string getPlain(std::string_view section, std::string_view key,
                       std::string_view plainDefault) const;

  SettingsStore& store() { return store_; }

  static std::string encode(std::string_view value);
  static std::string decode(std::string_view stored);

 private:
  SettingsStore& store_;
};

// The serial settings with their clamps: a port number 1..99 and one of the five rates.
int clampComPort(std::string_view text);
int clampBaudRate(std::string_view text);

}  // namespace zel
