// Runs a zel command inside this process, as `zel ARGS...` would run it, with its standard
// output and errors caught in texts: `zel demo` walks the suite by the commands a user types.
#pragma once

#include <string>
#include <vector>

#include "cli/command_registry.h"

namespace zel::cli {

struct NestedRun {
  int code = 0;     // the exit code the command would end with
  std::string out;  // what it printed on standard output
  std::string err;  // its standard error, with the sentence of a refusal
};

// `args` start with the noun ("card", "write", ...); `context` gives the data folder and the
// settings file and must outlive the call.
NestedRun runNested(Context& context, const std::vector<std::string>& args);

}  // namespace zel::cli
