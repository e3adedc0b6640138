#include "control/scanner_link.h"

#include <fstream>

#include "control/poll_order.h"
#include "control/vc_options.h"
#include "control/vc_timers.h"
#include "core/text.h"

namespace zel::control {

namespace {
// "COM12" -> "usb/com12"; any other name stands for itself.
std::string entryTextFor(std::string_view portName) {
  if (portName.size() > 3 && startsWith(portName, "COM") && isPlainNumber(portName.substr(3)))
    return "usb/com" + std::string(portName.substr(3));
  return std::string(portName);
}
}  // namespace

ScannerLink::ScannerLink(Family family, SerialPort& port, TimerBank& timers, const Clock& clock,
                         EventPump& pump, Feedback& feedback)
    : sendCounter(family == Family::Bcd ? 90 : 0),
      family_(family),
      port_(port),
      timers_(timers),
      clock_(clock),
      pump_(pump),
      feedback_(feedback) {
  entries_.push_back({kSelectEntry, ""});
}

void ScannerLink::onLoad() {
  entries_.clear();
  entries_.push_back({kSelectEntry, ""});
  for (int n = 1; n <= 39; ++n) {
    entries_.push_back({"usb/com" + std::to_string(n), "COM" + std::to_string(n)});
  }
  for (const auto& info : port_.availablePorts()) {
    std::string text = entryTextFor(info.name);
    bool listed = false;
    for (const auto& e : entries_) listed = listed || e.text == text;
    if (!listed) entries_.push_back({text, info.name});
  }
  selected_ = 0;
  timers_.enable(Timer9);
}

void ScannerLink::onTimer9(const Settings& settings) {
  timers_.disable(Timer9);
  connectEnabled_ = true;
  // A port chosen before the restore (typed, or given at start) stays chosen.
  if (selected_ != 0) return;
  assignPortText(settings.getPlain(settingsSection(family_), portSettingKey(family_), "1"));
}

void ScannerLink::scanPorts(const Settings& settings) {
  std::vector<PortEntry> found;
  found.push_back({kSelectEntry, ""});
  for (int n = 1; n <= 99; ++n) {
    portPresent[n] = 0;
    std::string name = "COM" + std::to_string(n);
    if (port_.exists(name)) {
      portPresent[n] = 1;
      found.push_back({"usb/com" + std::to_string(n), name});
    }
  }
  for (const auto& info : port_.availablePorts()) {
    std::string text = entryTextFor(info.name);
    bool listed = false;
    for (const auto& e : found) listed = listed || e.text == text;
    if (!listed) found.push_back({text, info.name});
  }
  entries_ = std::move(found);
  selected_ = 0;
  assignPortText(settings.getPlain(settingsSection(family_), portSettingKey(family_), "1"));
}

bool ScannerLink::assignPortText(std::string_view text) {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].text == text) {
      selected_ = static_cast<int>(i);
      return true;
    }
  }
  return false;
}

void ScannerLink::selectPortName(std::string_view name) {
  for (std::size_t i = 1; i < entries_.size(); ++i) {
    if (entries_[i].portName == name || entries_[i].text == name) {
      selected_ = static_cast<int>(i);
      return;
    }
  }
  entries_.push_back({entryTextFor(name), std::string(name)});
  selected_ = static_cast<int>(entries_.size()) - 1;
}

void ScannerLink::selectIndex(int index) {
  if (index >= 0 && index < static_cast<int>(entries_.size())) selected_ = index;
}

void ScannerLink::savePort(Settings& settings) const {
  if (selected_ == 0) return;
  settings.put(settingsSection(family_), portSettingKey(family_), entries_[selected_].text);
}

void ScannerLink::connect() {
  if (selected_ == 0) {
    feedback_.beep();
    return;
  }
  waitingReply = -1;
  timers_.disable(Timer1);
  timers_.disable(Timer10);
  if (port_.isOpen()) port_.close();
  // The port is the one chosen at the click: the wait below runs other timers, and the
  // restore of the saved port may change the selection meanwhile.
  const std::string portName = entries_[selected_].portName;
  connectedPort_ = entries_[selected_].text;
  setTitle("ZEL536PRO ");
  Wait(pump_, clock_, 0.5);
  int error = port_.open(portName, kPortSettings);
  if (error > 8000) {
    feedback_.beep();
    port_.close();
    waitingReply = 0;
    setTitle("usb/comport error: " + std::to_string(error));
    return;
  }
  timers_.enable(Timer1);
  timers_.enable(Timer10);
  waitingReply = 0;
}

void ScannerLink::onTimer4() {
  timers_.disable(Timer4);
  connect();
}

void ScannerLink::close() {
  if (port_.isOpen()) port_.close();
  for (int t : {Timer1, Timer10, Timer2, Timer9, Timer4}) timers_.disable(t);
}

void ScannerLink::disconnect() {
  for (int t : {Timer1, Timer10, Timer2, Timer4}) timers_.disable(t);
  if (port_.isOpen()) port_.close();
  rxBuffer.clear();
  pollStep = 0;
  waitingReply = 0;
}

bool ScannerLink::polling() const {
  return port_.isOpen() && timers_.enabled(Timer1);
}

bool ScannerLink::portOpen() const {
  return port_.isOpen();
}

void ScannerLink::onTimer1() {
  if (family_ == Family::Sds) {
    // The scanner's GPS port is slower than its USB port.
    timers_.setInterval(Timer1, useGpsPort ? 200 : 75);
    pollStepText = std::to_string(pollStep);
  }
  if (waitingReply == 1 && !timers_.enabled(Timer2)) timers_.enable(Timer2);
  if (waitingReply == 1) return;  // never true: the flag holds only 0 and -1
  // Whatever came since the last tick and was not taken is dropped: a reply has until
  // the next tick to complete.
  (void)port_.readAll();
  rxBuffer.clear();
  if (sendCounter > 56) sendCounter = 1;
  if (const PollEntry* entry = pollEntry(family_, waterfallPage, pollStep)) {
    writeDirect(entry->query);
    pollStep = entry->next;
    ++pollsSent;
  }
  ++sendCounter;
  pump_.runPending();
  waitingReply = -1;
  timers_.enable(Timer2);
}

void ScannerLink::onTimer10() {
  if (!port_.isOpen() || pollStep == kPollStopped) return;
  rxBuffer += port_.readAll();
  if (rxBuffer.empty()) return;
  if (parser_ && parser_->parse(pollStep, rxBuffer) == ParseResult::Accepted) replyAccepted();
}

void ScannerLink::setTitle(std::string text) {
  title_ = std::move(text);
  if (onTitle) onTitle(title_);
}

void ScannerLink::replyAccepted() {
  ++repliesAccepted;
  ++repliesSinceReset;
  rxBuffer.clear();
  waitingReply = 0;
  timers_.disable(Timer2);
}

void ScannerLink::appendErrorLog() {
  if (errorLogPath.empty()) return;
  std::ofstream out(errorLogPath, std::ios::app | std::ios::binary);
  if (!out) return;
  out << "Error log: " << clock_.date() << " / " << clock_.timeOfDay() << "\r\n"
      << "1:" << pollStep << "\r\n"
      << "2:" << sendCounter << "\r\n"
      << "3:" << rxBuffer.size() << "\r\n"
      << "4:" << watchdogCount << "\r\n"
      << "5:" << port_.bytesAvailable() << "\r\n"
      << "6:" << waitingReply << "\r\n"
      << "7:" << rxBuffer << "\r\n";
}

void ScannerLink::onTimer2() {
  ++watchdogFirings;
  repliesSinceReset = 0;
  if (family_ == Family::Sds) {
    setTitle("comm error");
    feedback_.beep();
    feedback_.beep();
    appendErrorLog();
  }
  waitingReply = -1;
  timers_.disable(Timer1);
  timers_.disable(Timer10);
  ++watchdogCount;
  if (watchdogCount > 20) {
    watchdogCount = 1;
    setTitle(family_ == Family::Bcd ? "No scomm1unication, trying to reset com port."
                                    : "No communication, trying to reset com port.");
  }
  (void)port_.readAll();
  rxBuffer.clear();
  pollStep = 0;
  waitingReply = 0;
  if (onWatchdog) onWatchdog();
  writeDirect("");
  Wait(pump_, clock_, 0.2);
  port_.close();
  connect();
}

bool ScannerLink::SendCommand(std::string_view text) {
  if (!port_.isOpen()) return false;
  writeDirect(text);
  return true;
}

void ScannerLink::writeDirect(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 1);
  out.append(text.data(), text.size());
  out.push_back('\r');
  port_.write(out);
}

}  // namespace zel::control
