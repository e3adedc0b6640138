#include "cli/window_hints.h"

namespace zel::cli {

namespace {

struct Hint {
  std::string_view start;  // the message begins with this text
  std::string_view hint;
};

constexpr Hint kHints[] = {
    {"Please select a favorite file.",
     "On the command line: name an existing list with --overwrite N (zel card list shows them)."},
    {"Please enter a name for the new Favorite List",
     "On the command line: give the new list's name with --name NAME."},
    {"(u)BCDx36HP/sds not found",
     "On the command line: give the card's folder with --root DIR when it is mounted elsewhere."},
    {"BCDx36HP not found, please plug USB cable in",
     "On the command line: give the card's folder with --root DIR when it is mounted elsewhere."},
    {"Scanner not found, please plug USB cable in",
     "On the command line: give the card's folder with --root DIR when it is mounted elsewhere."},
    {"HP1 not found, please plug USB cable in",
     "On the command line: give the HomePatrol-1's folder with --root DIR along with --hp1."},
    {"Please select at least one frequency for import.",
     "On the command line: name a subcategory with --subcat SCID (zel rr browse county CTID "
     "lists them)."},
    {"Please select at least one site.",
     "On the command line: name a site with --site SITEID (zel rr browse system SID lists them)."},
    {"New sds model detected, please select SDS VC",
     "On the command line: use --family sds, or leave --family out to pick it from the model."},
    {"Scanner model 436/536 model detected, please select BCD VC",
     "On the command line: use --family bcd, or leave --family out to pick it from the model."},
    {"Search range is too small",
     "On the command line: widen --start and --stop (or --span), or give a smaller --step."},
    {"Search range is limited to 3200 steps",
     "On the command line: narrow --start and --stop (or --span), or give a larger --step."},
};

}  // namespace

std::string windowHint(std::string_view message) {
  for (const Hint& h : kHints) {
    if (message.substr(0, h.start.size()) == h.start) return std::string(h.hint);
  }
  // "...properly.\nPlease select only one site." ends the message of a site kind that takes one.
  if (message.find("Please select only one site.") != std::string_view::npos) {
    return "On the command line: give --site once.";
  }
  return {};
}

}  // namespace zel::cli
