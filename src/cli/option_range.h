// Numbers on the command line: a value that is no number is bad usage (CLI11's own message,
// exit 2); a number outside what the option takes is the user's error, refused with one
// sentence and exit 1: "--slot takes a slot number from 0 to 9, not 12."
#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>
#include <vector>

namespace zel::cli {

inline constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// Accepts numbers from `low` to `high` (both included); `what` names them in the sentence
// ("a number of seconds", "a port number"). The option's help shows the range.
CLI::Option* inRange(CLI::Option* option, double low, double high,
                     const std::string& what = "a number");
// Accepts numbers above zero.
CLI::Option* aboveZero(CLI::Option* option, const std::string& what = "a number");
// Accepts the numbers of a short list: "--updated-days takes 0, 1, 7, 30 or 90, not 5."
CLI::Option* oneOf(CLI::Option* option, const std::vector<int>& values);

// The sentence for a refused value; an empty text when `value` lies in the range. Exposed for
// the commands that check a number themselves.
std::string outOfRange(const std::string& name, const std::string& what, double low, double high,
                       bool lowIncluded, const std::string& value);

}  // namespace zel::cli
