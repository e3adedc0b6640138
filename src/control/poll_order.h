// The round of poll queries. One query goes out per send tick; `pollStep` names the query
// to send and, once it is sent, the reply that is awaited.
//
//   BCD window, 11 ticks a round:
//     step  0    1    2    3    4    5    6    7    8    9   10
//     sends STS  GID  GLG  VOL  SQL  MDL  PWR  GSI  SVC  FQK  WIN
//     next  1    2    3    4    5    6    7    8    9   10    0
//   SDS window, normal round:   0 STS->1, 1 GLG->5, 5 MDL->6, 6 GSI->8, 8 SVC->9, 9 FQK->0
//   SDS window, waterfall page: 0 STS->1, 1 GSI->8, 8 GWF,1->0
#pragma once

#include <string_view>

#include "control/vc_state.h"

namespace zel::control {

struct PollEntry {
  std::string_view query;
  int next;
};

// The query to send at `pollStep`; nullptr when this order does not list the step.
const PollEntry* pollEntry(Family family, bool waterfallPage, int pollStep);

// The reply awaited once `pollStep` has been advanced past its query.
enum class ReplyKind { None, Sts, Gid, Glg, Vol, Sql, Mdl, Pwr, Gsi, Svc, Win, Waterfall };
ReplyKind awaitedReply(Family family, int pollStep);

inline constexpr int kPollStopped = 99;  // a pollStep that stops the receiver

}  // namespace zel::control
