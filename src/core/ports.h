// The core's ports: the only ways the document libraries reach the outside world.
// Qt adapters live in platform/; tests use the in-memory doubles of memory_ports.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

// A per-user store of (section, key) -> text. Values go in and out raw: the trailing-"x"
// mark of stored values is the business of Settings (settings.h), not of the store.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // Returns false when the key is not stored.
  virtual bool read(std::string_view section, std::string_view key, std::string& out) const = 0;
  virtual void write(std::string_view section, std::string_view key, std::string_view value) = 0;
  virtual void remove(std::string_view section, std::string_view key) = 0;
  virtual void flush() {}
};

enum class Answer { Yes, No, Cancel, Ok };
enum class Buttons { Ok, YesNo, YesNoCancel, OkCancel };

// Everything a user is told: modal messages with fixed text, questions, the status bar,
// the progress label and the status list of the main window, and the beep.
class Feedback {
 public:
  virtual ~Feedback() = default;
  virtual void message(std::string_view text, std::string_view title = {}) = 0;
  virtual Answer ask(std::string_view title, std::string_view text, Buttons buttons) = 0;
  // A question whose default button (the one Enter presses) is `preferred`; a question that
  // could throw work away prefers the answer that keeps it.
  virtual Answer askPreferring(std::string_view title, std::string_view text, Buttons buttons,
                               Answer preferred) {
    (void)preferred;
    return ask(title, text, buttons);
  }
  virtual void status(std::string_view text) = 0;    // first panel of the status bar
  virtual void progress(std::string_view text) = 0;  // the progress label (lbl_sys)
  virtual void log(std::string_view line) = 0;       // the status list (List5)
  virtual void beep() = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::string timeOfDay() const = 0;  // "HH:MM:SS"
  virtual std::string date() const = 0;       // "YYYY-MM-DD"
  virtual std::int64_t monotonicMs() const = 0;
};

}  // namespace zel
