#include "core/settings.h"

#include "core/text.h"

namespace zel {

std::string Settings::encode(std::string_view value) { return std::string(value) + "x"; }

std::string Settings::decode(std::string_view stored) {
  if (stored.empty()) return {};
  return std::string(stored.substr(0, stored.size() - 1));
}

std::string Settings::get(std::string_view section, std::string_view key,
                          std::string_view markedDefault) const {
  std::string raw;
  if (!store_.read(section, key, raw)) raw = std::string(markedDefault);
  return decode(raw);
}

std::string Settings::getPlain(std::string_view section, std::string_view key,
                               std::string_view plainDefault) const {
  return get(section, key, encode(plainDefault));
}

void Settings::put(std::string_view section, std::string_view key, std::string_view value) {
  store_.write(section, key, encode(value));
}

int clampComPort(std::string_view text) {
  long long port = leadingInteger(text);
  if (port < 1) return 1;
  if (port > 99) return 99;
  return static_cast<int>(port);
}

int clampBaudRate(std::string_view text) {
  long long rate = leadingInteger(text);
  switch (rate) {
    case 9600:
    case 19200:
    case 38400:
    case 57600:
    case 115200:
      return static_cast<int>(rate);
    default:
      return 57600;
  }
}

}  // namespace zel
