#include "formats/profile_config.h"

#include "core/text.h"
#include "formats/text_file.h"

namespace zel::formats {

namespace {

void appendOn(std::string& out, std::string_view word, int count) {
  out.append(word);
  for (int i = 0; i < count; ++i) out += "\tOn";
}

}  // namespace

std::string profileConfigPath(const std::string& cardRoot) {
  std::string root = cardRoot;
  while (!root.empty() && (root.back() == '/' || root.back() == '\\')) root.pop_back();
  return root + "/BCDx36HP/profile.cfg";
}

std::string enableAllFlags(std::string_view text) {
  std::string out;
  out.reserve(text.size() + 512);
  // The scanner's file holds well under 200 lines; every line is kept, so a longer file
  // loses nothing either.
  forEachLine(text, [&](std::string_view line) {
    if (line.empty()) return;
    if (startsWith(line, "ServiceType")) {
      appendOn(out, "ServiceType", 36);
    } else if (startsWith(line, "CustomServiceType")) {
      appendOn(out, "CustomServiceType", 9);
    } else if (startsWith(line, "QuickKeys")) {
      appendOn(out, "QuickKeys", 99);
    } else {
      out.append(line);
    }
    out += "\r\n";
  });
  return out;
}

ProfileRewrite enableAllInProfile(const std::string& cardRoot, std::string_view flags,
                                  Feedback& feedback) {
  (void)flags;  // every flag is written "On", whatever the caller passes
  feedback.message("fix");
  const std::string path = profileConfigPath(cardRoot);
  if (!fileExists(path)) return ProfileRewrite::Missing;
  std::optional<std::string> text = readWholeFile(path);
  if (!text) return ProfileRewrite::Failed;
  return writeFileAtomically(path, enableAllFlags(*text)).ok ? ProfileRewrite::Written
                                                              : ProfileRewrite::Failed;
}

}  // namespace zel::formats
