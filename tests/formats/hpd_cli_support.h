// Running the `zel` program of the build from a test: its output and exit code.
#pragma once

#include <string>

namespace zel::formats::test {

struct Run {
  int code = -1;
  std::string out;  // standard output and standard error together
};

// The path of the built `zel`, or "" when the build has none.
std::string zelProgram();
Run runZel(const std::string& arguments);

}  // namespace zel::formats::test
