#include "control/status_decoder.h"

#include <filesystem>
#include <fstream>

#include "control/poll_order.h"
#include "control/reply_fields.h"
#include "control/vc_timers.h"
#include "core/text.h"

namespace zel::control {

StatusDecoder::StatusDecoder(Family family, ScannerStatus& status, LoggerCounters& counters,
                             const VcOptions& options, ScannerLink& link, TimerBank& timers,
                             Feedback& feedback, const Clock& clock)
    : family_(family),
      st_(status),
      counters_(counters),
      options_(options),
      link_(link),
      timers_(timers),
      feedback_(feedback),
      clock_(clock) {
  st_.display.services.fill(-1);
}

ParseResult StatusDecoder::parse(int pollStep, const std::string& rx) {
  switch (awaitedReply(family_, pollStep)) {
    case ReplyKind::Sts:
      return parseSts(rx);
    case ReplyKind::Gid:
      return parseGid(rx);
    case ReplyKind::Glg:
      return parseGlg(rx);
    case ReplyKind::Vol:
      return parseVolume(rx);
    case ReplyKind::Sql:
      return parseSquelch(rx);
    case ReplyKind::Mdl:
      return parseModel(rx);
    case ReplyKind::Pwr:
      return parsePower(rx);
    case ReplyKind::Gsi:
      return parseGsi(rx);
    case ReplyKind::Svc:
      return parseServices(rx);
    case ReplyKind::Win:
      return parseWindow(rx);
    case ReplyKind::Waterfall:
      return parseWaterfall(rx);
    case ReplyKind::None:
      break;
  }
  return ParseResult::Waiting;  // FQK: nothing reads it; the next send tick drops it
}

std::string StatusDecoder::fixStatus(std::string_view sts) {
  std::string s = replaceAll(sts, ", City of,", "; City of,");
  return replaceAll(s, "Precincts 121, 122, 123", "Precincts 121 122 123");
}

std::string StatusDecoder::fixGlg(std::string_view glg) {
  return replaceAll(glg, ", City of", "; City of");
}

void StatusDecoder::appendDatalog(std::string_view line) {
  if (dataFolder.empty()) return;
  std::ofstream out(std::filesystem::path(dataFolder) / "datalog.txt",
                    std::ios::app | std::ios::binary);
  if (out) out << line << "\r\n";
}

ParseResult StatusDecoder::parseGid(const std::string& rx) {
  if (!endsWith(rx, "\r")) return ParseResult::Waiting;
  st_.groupText = rx.substr(0, rx.size() - 1);
  return ParseResult::Accepted;
}

// VOL, SQL, MDL, PWR and SVC are taken with whatever has arrived; each looks for its own
// word so that a stray reply does not overwrite the value.
ParseResult StatusDecoder::parseVolume(const std::string& rx) {
  if (rx.find("VOL") != std::string::npos) st_.volume = ReplyField(rx, 1);
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parseSquelch(const std::string& rx) {
  if (rx.find("SQL") != std::string::npos) st_.squelch = ReplyField(rx, 1);
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parsePower(const std::string& rx) {
  if (rx.find("PWR") != std::string::npos) {
    st_.signalValue = std::to_string(leadingInteger(ReplyField(rx, 1)));
  }
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parseModel(const std::string& rx) {
  if (rx.find("MDL") == std::string::npos) return ParseResult::Accepted;
  std::size_t comma = rx.find(',');
  std::string model =
      comma == std::string::npos ? std::string() : stripLineEnds(rx.substr(comma + 1, 8));
  st_.model = model;
  if (family_ == Family::Bcd) {
    if (model.find("SDS") != std::string::npos) {
      sdsModelDetected = true;
      feedback_.message("New sds model detected, please select SDS VC for correct interface");
      closeRequested = true;
      if (onCloseRequested) onCloseRequested();
    }
    return ParseResult::Accepted;
  }
  if (model.find("436") != std::string::npos || model.find("536") != std::string::npos) {
    // Told once per model: the poll asks for the model twice a second.
    if (refusedModel_ != model) {
      refusedModel_ = model;
      feedback_.message(
          "Scanner model 436/536 model detected, please select BCD VC for correct interface");
    }
    return ParseResult::Accepted;
  }
  if (!model.empty() && link_.title() != kSdsTitle) link_.setTitle(kSdsTitle);
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parseServices(const std::string& rx) {
  std::string s = stripLineEnds(rx);
  auto fields = replyFields(s);
  for (std::size_t i = 1; i < fields.size() && i < st_.display.services.size(); ++i) {
    if (fields[i] == "1") st_.display.services[i] = 1;
    if (fields[i] == "0") st_.display.services[i] = 0;
  }
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parseWindow(const std::string& rx) {
  if (!endsWith(rx, "\r")) return ParseResult::Waiting;
  if (!startsWith(rx, "WIN,")) return ParseResult::Waiting;
  std::string f = ReplyField(rx, 2);
  st_.frequencyText = std::string(mid(f, 2, 3)) + "." + std::string(mid(f, 5, 4));
  return ParseResult::Accepted;
}

ParseResult StatusDecoder::parseWaterfall(const std::string& rx) {
  if (!endsWith(rx, "\r")) return ParseResult::Waiting;
  if (!startsWith(rx, "GWF")) return ParseResult::Waiting;
  if (waterfallSink) waterfallSink(rx.substr(0, rx.size() - 1));
  return ParseResult::Accepted;
}

void StatusDecoder::onBusydelay() {
  timers_.disable(busydelay);
  st_.busy = false;
  counters_.wasBusy = 0;
  st_.uidText.clear();
  st_.idText.clear();
  counters_.secondsBusy = 0;
  timers_.disable(Timer16);
  timers_.enable(delaylog);
}

}  // namespace zel::control
