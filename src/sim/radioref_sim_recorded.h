#pragma once
// Recorded replies of the live service (a folder of captured *.xml replies), served as
// recorded for the ids they hold. Each file's operation comes from its reply element; its id
// from inside (the sid of site and talkgroup category items, the ctid, stid, aid, coid or
// zipCode of a record). Details and talkgroup files carry no sid: they take the sid of the
// sites file with the same name suffix ("trs_details_p25.xml" and "trs_sites_p25.xml").
// Lookup lists and the account's data answer any argument.
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/radioref_sim_request.h"

namespace zel::sim::rrsim {

class RecordedReplies {
 public:
  // Reads every *.xml file of `dir`; false with `error` when the folder cannot be read.
  bool load(const std::string& dir, std::string* error);
  std::size_t size() const { return byId_.size() + anyArgument_.size(); }

  // The recorded reply to `op` with the arguments of `request`, if one was recorded.
  std::optional<std::string> find(std::string_view op, const Request& request) const;

  // What was loaded, for reports: "getTrsSites sid 6673", "getTag (any)", ...
  std::vector<std::string> describe() const;

 private:
  std::map<std::pair<std::string, long long>, std::string> byId_;
  std::map<std::string, std::string> anyArgument_;
};

// The talkgroups of a recorded getTrsTalkgroups reply that pass the filters (0: no filter),
// each item's bytes as recorded and the array count set to what is left.
std::string filterRecordedTalkgroups(const std::string& reply, long long tgCid, long long tgTag,
                                     long long tgDec);

}  // namespace zel::sim::rrsim
