// ScannerLink: the live serial conversation with a scanner. One query goes out per send
// tick (Timer1); a faster receive tick (Timer10) drains the port into `rxBuffer` and hands
// it to the reply parser chosen by `pollStep`; a watchdog (Timer2) resets the port when no
// complete reply came for two seconds. Nothing ever blocks on the port.
//
// Wire: 115200 baud, 8N1, ASCII. A query is a word and a CR ("STS<CR>"); a reply starts
// with the same word and ends with CR, except the XML of GSI, which ends with
// "</ScannerInfo><CR>" after CRs of its own.
//
// The state is which timers run: Closed (none), Connecting (connect()), Polling (Timer1
// and Timer10), Resetting (watchdog, back to Connecting at once).
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "control/event_pump.h"
#include "control/serial_port.h"
#include "control/timer_bank.h"
#include "control/vc_state.h"
#include "core/ports.h"
#include "core/settings.h"

namespace zel::control {

// What the receive tick does with the buffer.
enum class ParseResult {
  Waiting,   // not complete (or not for this parser): keep gathering
  Accepted,  // taken: the buffer is cleared and the watchdog disarmed
};

class ReplyParser {
 public:
  virtual ~ReplyParser() = default;
  virtual ParseResult parse(int pollStep, const std::string& rxBuffer) = 0;
};

struct PortEntry {
  std::string text;      // what the list shows and the setting stores: "usb/com3"
  std::string portName;  // what the port opens: "COM3", "/dev/ttyACM0"
};

inline constexpr const char* kPortSettings = "115200,n,8,1";

class ScannerLink {
 public:
  ScannerLink(Family family, SerialPort& port, TimerBank& timers, const Clock& clock,
              EventPump& pump, Feedback& feedback);

  Family family() const { return family_; }
  void setParser(ReplyParser* parser) { parser_ = parser; }

  // --- Port choice -------------------------------------------------------------------
  // Fills the list ("select", "usb/com1" ... "usb/com39", then the other ports of the
  // machine by name) and arms the one-shot restore of the saved port.
  void onLoad();
  // The one-shot restore: enables connecting and, unless a port was chosen meanwhile,
  // assigns the stored port text, which selects its entry when there is one.
  void onTimer9(const Settings& settings);
  // The presence scan: keeps only the ports that answer, then reassigns the saved text.
  void scanPorts(const Settings& settings);
  // Assigning a text to the list: selects the entry with that text; a text that is no
  // entry leaves the selection alone and returns false (the error is ignored).
  bool assignPortText(std::string_view text);
  // Selects the port of that name, adding an entry for it when the list has none.
  void selectPortName(std::string_view name);
  void selectIndex(int index);
  int selectedIndex() const { return selected_; }
  const std::vector<PortEntry>& entries() const { return entries_; }
  bool connectEnabled() const { return connectEnabled_; }
  // At close: the selected text is stored, unless "select" is selected.
  void savePort(Settings& settings) const;

  // --- Connection ----------------------------------------------------------------------
  void connect();   // the Connect button
  void onTimer4();  // the one-shot re-connect
  void close();     // closes the port and stops every link timer (window close)
  // The Disconnect button: the port closes and polling stops; the chosen port stays chosen.
  void disconnect();
  // Polling: the port is open and the send tick runs (a watchdog reset passes through a
  // moment of not polling). The port is the one of the last connect.
  bool polling() const;
  bool portOpen() const;
  const std::string& connectedPort() const { return connectedPort_; }

  // --- Ticks -----------------------------------------------------------------------------
  void onTimer1();   // send tick
  void onTimer10();  // receive tick
  void onTimer2();   // watchdog

  // --- Commands --------------------------------------------------------------------------
  // Writes text and CR when the port is open; false when it is not.
  bool SendCommand(std::string_view text);
  // Writes text and CR straight to the port, open or not (a closed port ignores it).
  void writeDirect(std::string_view text);

  // --- State -----------------------------------------------------------------------------
  int pollStep = 0;
  std::string rxBuffer;
  std::int16_t sendCounter;
  int waitingReply = 0;  // 0 or -1; compared with 1 by the send tick, so never holds a send
  int watchdogCount = 0;
  std::array<int, 100> portPresent{};  // 1..99
  const std::string& title() const { return title_; }
  void setTitle(std::string text);
  std::function<void(const std::string&)> onTitle;  // every change of the window title
  std::string pollStepText;                         // the SDS window shows pollStep
  bool waterfallPage = false;  // SDS: the waterfall page is on show (reduced round)
  bool useGpsPort = false;     // SDS: "Use GPS port" slows the send tick to 200 ms
  std::string errorLogPath;    // SDS watchdog records are appended here
  // Counts for reports and tests: queries sent, replies taken, and replies taken since the
  // watchdog last reset the port.
  int pollsSent = 0;
  int repliesAccepted = 0;
  int repliesSinceReset = 0;
  int watchdogFirings = 0;
  std::function<void()> onWatchdog;

  // The parser accepted a reply: clear the buffer, the wait flag and the watchdog.
  void replyAccepted();

 private:
  void appendErrorLog();

  Family family_;
  SerialPort& port_;
  TimerBank& timers_;
  const Clock& clock_;
  EventPump& pump_;
  Feedback& feedback_;
  ReplyParser* parser_ = nullptr;
  std::string title_;
  std::vector<PortEntry> entries_;
  int selected_ = 0;
  bool connectEnabled_ = false;
  std::string connectedPort_;
};

// The SDS window's title once it knows the scanner's model.
inline constexpr const char* kSdsTitle =
    "ZEL536PRO for SDS series - Virtual Control  -  version 2.800";

// "select" at index 0 of the list.
inline constexpr const char* kSelectEntry = "select";

}  // namespace zel::control
