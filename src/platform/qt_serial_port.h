// The serial port of the virtual control on QSerialPort. Reads never wait: readAll()
// hands over what the event loop has already collected. Port names are what the
// system calls them ("COM3" on Windows, "/dev/ttyACM0" elsewhere); a full path that is no
// listed port (a pseudo-terminal of the simulator) opens as well.
#pragma once

#include <QSerialPort>
#include <memory>

#include "control/serial_port.h"

namespace zel {

class QtSerialPort : public control::SerialPort {
 public:
  QtSerialPort();
  ~QtSerialPort() override;
  int open(std::string_view port, std::string_view settings) override;
  bool isOpen() const override;
  std::string readAll() override;
  void write(std::string_view bytes) override;
  int bytesAvailable() const override;
  void close() override;
  std::vector<control::PortInfo> availablePorts() const override;
  bool exists(std::string_view port) const override;

  // The enumeration alone, for `zel ports`.
  static std::vector<control::PortInfo> listPorts();

 private:
  std::unique_ptr<QSerialPort> port_;
};

}  // namespace zel
