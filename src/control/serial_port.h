// The serial port as the virtual control sees it: open with a settings text, write, and a
// read that returns whatever is buffered without ever waiting. The Qt adapter lives in
// platform/qt_serial_port.h; tests use ScriptedSerialPort.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zel::control {

// Error numbers of open(). Numbers above 8000 are the port's own failures; the link treats
// every one of them alike (beep, close, title "usb/comport error: " and the number).
inline constexpr int kPortOk = 0;
inline constexpr int kPortErrorInvalidPort = 8002;  // no such port
inline constexpr int kPortErrorBusy = 8005;         // in use, or no permission
inline constexpr int kPortErrorSettings = 8010;     // the device refused the settings
inline constexpr int kPortErrorOther = 8020;

struct PortInfo {
  std::string name;         // what open() takes: "COM3", "/dev/ttyACM0"
  std::string description;  // free text for lists, may be empty
};

class SerialPort {
 public:
  virtual ~SerialPort() = default;
  // settings: "115200,n,8,1" (rate, parity, data bits, stop bits). Returns kPortOk or an
  // error number above 8000.
  virtual int open(std::string_view port, std::string_view settings) = 0;
  virtual bool isOpen() const = 0;
  // Everything received so far; "" when nothing is there. Never blocks.
  virtual std::string readAll() = 0;
  virtual void write(std::string_view bytes) = 0;
  virtual int bytesAvailable() const = 0;
  virtual void close() = 0;
  // The ports of this machine, for the port list and the presence scan.
  virtual std::vector<PortInfo> availablePorts() const = 0;
  // True when a port of that name exists (the presence test of the scan).
  virtual bool exists(std::string_view port) const;
};

// Reads "115200,n,8,1"; false when the text is not of that form.
struct PortSettings {
  int baud = 115200;
  char parity = 'n';
  int dataBits = 8;
  int stopBits = 1;
};
bool parsePortSettings(std::string_view text, PortSettings& out);

}  // namespace zel::control
