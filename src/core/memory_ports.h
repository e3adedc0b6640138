// Plain in-memory implementations of the ports: used by the command line where nothing
// is shown, and by tests, which read back what was said and script the answers.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/ports.h"

namespace zel {

class MemorySettingsStore : public SettingsStore {
 public:
  bool read(std::string_view section, std::string_view key, std::string& out) const override;
  void write(std::string_view section, std::string_view key, std::string_view value) override;
  void remove(std::string_view section, std::string_view key) override;
  const std::map<std::pair<std::string, std::string>, std::string>& values() const {
    return values_;
  }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

// Records every call; answers questions from a script (default: the given fallback).
class RecordingFeedback : public Feedback {
 public:
  void message(std::string_view text, std::string_view title = {}) override;
  Answer ask(std::string_view title, std::string_view text, Buttons buttons) override;
  Answer askPreferring(std::string_view title, std::string_view text, Buttons buttons,
                       Answer preferred) override {
    preferredAnswers.push_back(preferred);
    return ask(title, text, buttons);
  }
  void status(std::string_view text) override { statuses.emplace_back(text); }
  void progress(std::string_view text) override { progresses.emplace_back(text); }
  void log(std::string_view line) override { logs.emplace_back(line); }
  void beep() override { ++beeps; }

  std::vector<std::string> messages;
  std::vector<std::string> questions;  // "title|text"
  std::vector<Answer> preferredAnswers;  // the default buttons asked for, in order
  std::vector<std::string> statuses;
  std::vector<std::string> progresses;
  std::vector<std::string> logs;
  int beeps = 0;
  std::deque<Answer> answers;  // popped in order by ask()
  Answer fallback = Answer::Yes;
};

// Writes messages to a stream (stderr for the command line), answers with a fixed reply.
class StreamFeedback : public Feedback {
 public:
  explicit StreamFeedback(bool verbose = false, Answer reply = Answer::No)
      : verbose_(verbose), reply_(reply) {}
  void message(std::string_view text, std::string_view title = {}) override;
  Answer ask(std::string_view title, std::string_view text, Buttons buttons) override;
  void status(std::string_view text) override;
  void progress(std::string_view text) override;
  void log(std::string_view line) override;
  void beep() override {}
  const std::vector<std::string>& messages() const { return messages_; }

 private:
  bool verbose_;
  Answer reply_;
  std::vector<std::string> messages_;
};

class ManualClock : public Clock {
 public:
  std::string timeOfDay() const override { return time; }
  std::string date() const override { return day; }
  std::int64_t monotonicMs() const override { return ms; }
  void advance(std::int64_t delta) { ms += delta; }
  std::string time = "12:00:00";
  std::string day = "2026-01-01";
  std::int64_t ms = 0;
};

// The machine's own clock, through the standard library.
class SystemClock : public Clock {
 public:
  std::string timeOfDay() const override;
  std::string date() const override;
  std::int64_t monotonicMs() const override;
};

}  // namespace zel
