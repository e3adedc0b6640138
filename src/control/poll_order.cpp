#include "control/poll_order.h"

namespace zel::control {

namespace {
constexpr PollEntry kBcdOrder[] = {{"STS", 1}, {"GID", 2},  {"GLG", 3}, {"VOL", 4},
                                   {"SQL", 5}, {"MDL", 6},  {"PWR", 7}, {"GSI", 8},
                                   {"SVC", 9}, {"FQK", 10}, {"WIN", 0}};

struct Listed {
  int step;
  PollEntry entry;
};
constexpr Listed kSdsOrder[] = {{0, {"STS", 1}}, {1, {"GLG", 5}}, {5, {"MDL", 6}},
                                {6, {"GSI", 8}}, {8, {"SVC", 9}}, {9, {"FQK", 0}}};
constexpr Listed kSdsWaterfallOrder[] = {{0, {"STS", 1}}, {1, {"GSI", 8}}, {8, {"GWF,1", 0}}};
}  // namespace

const PollEntry* pollEntry(Family family, bool waterfallPage, int pollStep) {
  if (family == Family::Bcd) {
    if (pollStep < 0 || pollStep > 10) return nullptr;
    return &kBcdOrder[pollStep];
  }
  if (waterfallPage) {
    for (const auto& l : kSdsWaterfallOrder)
      if (l.step == pollStep) return &l.entry;
    return nullptr;
  }
  for (const auto& l : kSdsOrder)
    if (l.step == pollStep) return &l.entry;
  return nullptr;
}

ReplyKind awaitedReply(Family family, int pollStep) {
  if (family == Family::Bcd) {
    switch (pollStep) {
      case 1:
        return ReplyKind::Sts;
      case 2:
        return ReplyKind::Gid;
      case 3:
        return ReplyKind::Glg;
      case 4:
        return ReplyKind::Vol;
      case 5:
        return ReplyKind::Sql;
      case 6:
        return ReplyKind::Mdl;
      case 7:
        return ReplyKind::Pwr;
      case 8:
        return ReplyKind::Gsi;
      case 9:
        return ReplyKind::Svc;
      case 0:
        return ReplyKind::Win;
      default:
        return ReplyKind::None;  // 10: FQK has no parser
    }
  }
  switch (pollStep) {
    case 1:
      return ReplyKind::Sts;
    case 5:
      return ReplyKind::Glg;
    case 6:
      return ReplyKind::Mdl;
    case 8:
      return ReplyKind::Gsi;
    case 9:
      return ReplyKind::Svc;
    case 0:
      return ReplyKind::Waterfall;
    default:
      return ReplyKind::None;
  }
}

}  // namespace zel::control
