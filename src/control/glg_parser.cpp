// GLG: the channel that the scanner is on, and whether it is receiving.
//
//   GLG,0154.4300,NFM,0,127.3,County,Fire,Dispatch,1,0,,,NONE<CR>
//       ^1 freq   ^2  ^3 ^4   ^5     ^6   ^7       ^8 ^9  ^12 nac
//   GLG,2412,FM,0,,Metro P25,Police,Patrol 1,1,0,,,293<CR>   (a talkgroup: no point)
//   GLG,,,,,,,,,,,,<CR>                                      (between hits)
//
// Field 9 is the mute flag: "0" means the audio is open, i.e. a transmission is on.
#include "control/reply_fields.h"
#include "control/status_decoder.h"
#include "control/vc_timers.h"
#include "core/text.h"

namespace zel::control {

ParseResult StatusDecoder::parseGlg(const std::string& rx) {
  if (!endsWith(rx, "\r") || !startsWith(rx, "GLG,")) return ParseResult::Waiting;
  std::string text = fixGlg(std::string_view(rx).substr(0, rx.size() - 1));
  st_.glgText = text;
  // The SDS record is whole again only when the GSI reply of this round has been read.
  st_.gsiPending = family_ == Family::Sds;
  if (options_.debug && text != "GLG,,,,,,,,,,,,") appendDatalog(text);

  std::string stripped = stripLineEnds(text);
  auto fields = replyFields(stripped);
  auto field = [&](int i) {
    return i < static_cast<int>(fields.size()) ? std::string(fields[i]) : std::string();
  };
  auto& l = st_.ldat;
  std::string x = field(1);
  if (x.find('.') != std::string::npos) {
    l[ld::kFrequency] = x;
    // "0154.4300" is shown as "154.4300".
    if (x[0] == '0') l[ld::kFrequency] = std::string(mid(x, 2, 8));
    l[ld::kTalkgroup].clear();
  } else {
    l[ld::kFrequency].clear();
    l[ld::kTalkgroup] = x;
  }
  st_.idText = l[ld::kTalkgroup];
  l[ld::kSubtone] = field(4);
  l[ld::kModulation] = field(2);
  l[ld::kSystem] = field(5);
  l[ld::kDepartment] = field(6);
  l[ld::kChannel] = field(7);
  l[ld::kNac] = field(12);
  st_.modeText = st_.busy && !l[ld::kModulation].empty() ? l[ld::kModulation] : std::string();

  const bool active = field(9) == "0" || text.find("1,0,,,NONE") != std::string::npos ||
                      ReplyFieldFromEnd(text, 3) == "0";
  if (active) {
    timers_.disable(busydelay);
    timers_.disable(delaylog);
    st_.busy = true;
    st_.miniBusy = true;
    if (options_.resumeAfterIndex > 0 && options_.action == LogAction::ResumeAfter)
      timers_.enable(Timer16);
  } else {
    st_.miniBusy = false;
    timers_.enable(busydelay);
  }
  return ParseResult::Accepted;
}

}  // namespace zel::control
