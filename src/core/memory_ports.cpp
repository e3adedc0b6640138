#include "core/memory_ports.h"

#include <chrono>
#include <ctime>
#include <iostream>

namespace zel {

bool MemorySettingsStore::read(std::string_view section, std::string_view key,
                               std::string& out) const {
  auto it = values_.find({std::string(section), std::string(key)});
  if (it == values_.end()) return false;
  out = it->second;
  return true;
}

void MemorySettingsStore::write(std::string_view section, std::string_view key,
                                std::string_view value) {
  values_[{std::string(section), std::string(key)}] = std::string(value);
}

void MemorySettingsStore::remove(std::string_view section, std::string_view key) {
  values_.erase({std::string(section), std::string(key)});
}

void RecordingFeedback::message(std::string_view text, std::string_view) {
  messages.emplace_back(text);
}

Answer RecordingFeedback::ask(std::string_view title, std::string_view text, Buttons) {
  questions.push_back(std::string(title) + "|" + std::string(text));
  if (answers.empty()) return fallback;
  Answer a = answers.front();
  answers.pop_front();
  return a;
}

void StreamFeedback::message(std::string_view text, std::string_view) {
  messages_.emplace_back(text);
  std::cerr << text << '\n';
}

Answer StreamFeedback::ask(std::string_view, std::string_view text, Buttons) {
  std::cerr << text << '\n';
  return reply_;
}

void StreamFeedback::status(std::string_view text) {
  if (verbose_) std::cerr << text << '\n';
}

void StreamFeedback::progress(std::string_view text) {
  if (verbose_) std::cerr << text << '\n';
}

void StreamFeedback::log(std::string_view line) {
  if (verbose_) std::cerr << line << '\n';
}

std::string SystemClock::timeOfDay() const {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  char buf[16];
  std::strftime(buf, sizeof buf, "%H:%M:%S", &tm);
  return buf;
}

std::string SystemClock::date() const {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  char buf[16];
  std::strftime(buf, sizeof buf, "%Y-%m-%d", &tm);
  return buf;
}

std::int64_t SystemClock::monotonicMs() const {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace zel
