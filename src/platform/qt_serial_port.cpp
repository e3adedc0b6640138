#include "platform/qt_serial_port.h"

#include <QFileInfo>
#include <QSerialPortInfo>

namespace zel {

namespace {
QString latin1(std::string_view s) {
  return QString::fromLatin1(s.data(), static_cast<qsizetype>(s.size()));
}

std::string nameOf(const QSerialPortInfo& info) {
#ifdef Q_OS_WIN
  return info.portName().toStdString();
#else
  return info.systemLocation().toStdString();
#endif
}

int errorNumber(QSerialPort::SerialPortError error) {
  switch (error) {
    case QSerialPort::NoError:
      return control::kPortOk;
    case QSerialPort::DeviceNotFoundError:
      return control::kPortErrorInvalidPort;
    case QSerialPort::PermissionError:
    case QSerialPort::OpenError:
      return control::kPortErrorBusy;
    case QSerialPort::UnsupportedOperationError:
      return control::kPortErrorSettings;
    default:
      return control::kPortErrorOther;
  }
}
}  // namespace

QtSerialPort::QtSerialPort() : port_(std::make_unique<QSerialPort>()) {}
QtSerialPort::~QtSerialPort() = default;

int QtSerialPort::open(std::string_view port, std::string_view settings) {
  if (port_->isOpen()) return control::kPortErrorBusy;
  control::PortSettings s;
  if (!control::parsePortSettings(settings, s)) return control::kPortErrorSettings;
  port_->setPortName(latin1(port));
  if (!port_->open(QIODevice::ReadWrite)) return errorNumber(port_->error());
  bool ok = port_->setBaudRate(s.baud);
  ok = port_->setDataBits(static_cast<QSerialPort::DataBits>(s.dataBits)) && ok;
  QSerialPort::Parity parity = QSerialPort::NoParity;
  if (s.parity == 'e') parity = QSerialPort::EvenParity;
  if (s.parity == 'o') parity = QSerialPort::OddParity;
  if (s.parity == 'm') parity = QSerialPort::MarkParity;
  if (s.parity == 's') parity = QSerialPort::SpaceParity;
  ok = port_->setParity(parity) && ok;
  ok = port_->setStopBits(s.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) && ok;
  port_->setFlowControl(QSerialPort::NoFlowControl);
  if (!ok) {
    port_->close();
    return control::kPortErrorSettings;
  }
  return control::kPortOk;
}

bool QtSerialPort::isOpen() const {
  return port_->isOpen();
}

std::string QtSerialPort::readAll() {
  if (!port_->isOpen()) return {};
  QByteArray bytes = port_->readAll();
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void QtSerialPort::write(std::string_view bytes) {
  if (!port_->isOpen()) return;
  port_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

int QtSerialPort::bytesAvailable() const {
  return port_->isOpen() ? static_cast<int>(port_->bytesAvailable()) : 0;
}

void QtSerialPort::close() {
  if (port_->isOpen()) port_->close();
}

std::vector<control::PortInfo> QtSerialPort::listPorts() {
  std::vector<control::PortInfo> out;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    std::string description = info.description().toStdString();
    if (!info.manufacturer().isEmpty()) {
      if (!description.empty()) description += ", ";
      description += info.manufacturer().toStdString();
    }
    out.push_back({nameOf(info), description});
  }
  return out;
}

std::vector<control::PortInfo> QtSerialPort::availablePorts() const {
  return listPorts();
}

bool QtSerialPort::exists(std::string_view port) const {
  if (SerialPort::exists(port)) return true;
  // A device path that the enumeration does not list (a pseudo-terminal) still counts.
  return !port.empty() && port.front() == '/' && QFileInfo::exists(latin1(port));
}

}  // namespace zel
