// The scanner's settings file on the card, "BCDx36HP/profile.cfg". Only three of its lines
// are this system's business; the others are the scanner's and pass through.
//
//   ServiceType<TAB>On<TAB>On ...         36 service types
//   CustomServiceType<TAB>On<TAB>On ...   9 custom types
//   QuickKeys<TAB>On<TAB>On ...           99 system quick keys
#pragma once

#include <string>
#include <string_view>

#include "core/ports.h"

namespace zel::formats {

// "<card root>/BCDx36HP/profile.cfg".
std::string profileConfigPath(const std::string& cardRoot);

// The file with every flag of its three lines "On" and its empty lines dropped, CR LF ended.
std::string enableAllFlags(std::string_view text);

enum class ProfileRewrite {
  Written,  // every flag on
  Missing,  // no profile.cfg on the card: left alone
  Failed,   // the file is there but could not be read or replaced; it is as it was
};

// Rewrites the card's profile.cfg with all flags on. The step first shows "fix"; a file that
// is not there is left alone without a word. `flags` is the caller's flag string, which the
// rewrite does not use: every flag is written "On".
ProfileRewrite enableAllInProfile(const std::string& cardRoot, std::string_view flags,
                                  Feedback& feedback);

}  // namespace zel::formats
