// A serial port made of two byte pipes, for tests and for wiring the state machines to a
// simulator in memory: what the link writes is recorded (and may be answered by a
// responder), what the test feeds is what readAll() returns.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "control/serial_port.h"

namespace zel::control {

class ScriptedSerialPort : public SerialPort {
 public:
  int open(std::string_view port, std::string_view settings) override;
  bool isOpen() const override { return open_; }
  std::string readAll() override;
  void write(std::string_view bytes) override;
  int bytesAvailable() const override { return static_cast<int>(input_.size()); }
  void close() override;
  std::vector<PortInfo> availablePorts() const override { return ports; }

  // Bytes the "scanner" sends; they wait until the next readAll().
  void feed(std::string_view bytes) { input_ += bytes; }
  // The commands written so far, split at their carriage returns (a lone CR gives "").
  const std::vector<std::string>& commands() const { return commands_; }
  const std::string& rawOutput() const { return raw_; }
  void clearOutput() {
    commands_.clear();
    raw_.clear();
  }

  // Scripting.
  std::vector<PortInfo> ports;
  int openError = kPortOk;  // returned by the next open()
  bool writeFailsWhenClosed = true;
  // Called with each complete command written (without its CR); may feed() an answer.
  std::function<void(const std::string& command)> responder;

  // Observations.
  int openCount = 0;
  int closeCount = 0;
  int readCount = 0;
  std::string lastPort;
  std::string lastSettings;

 private:
  bool open_ = false;
  std::string input_;
  std::string raw_;
  std::string pending_;
  std::vector<std::string> commands_;
};

}  // namespace zel::control
