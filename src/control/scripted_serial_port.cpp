#include "control/scripted_serial_port.h"

namespace zel::control {

int ScriptedSerialPort::open(std::string_view port, std::string_view settings) {
  lastPort = std::string(port);
  lastSettings = std::string(settings);
  ++openCount;
  if (openError != kPortOk) return openError;
  if (open_) return kPortErrorBusy;
  open_ = true;
  return kPortOk;
}

std::string ScriptedSerialPort::readAll() {
  ++readCount;
  if (!open_) return {};
  std::string out;
  out.swap(input_);
  return out;
}

void ScriptedSerialPort::write(std::string_view bytes) {
  // A closed port swallows what is written, as a real one refuses it.
  if (!open_ && writeFailsWhenClosed) return;
  raw_ += bytes;
  for (char c : bytes) {
    if (c == '\r') {
      commands_.push_back(pending_);
      std::string done;
      done.swap(pending_);
      if (responder) responder(done);
    } else {
      pending_ += c;
    }
  }
}

void ScriptedSerialPort::close() {
  if (open_) ++closeCount;
  open_ = false;
  pending_.clear();
}

}  // namespace zel::control
