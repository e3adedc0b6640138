#include "hpd_cli_support.h"

#include <stdio.h>
#include <sys/wait.h>

#include <filesystem>

namespace zel::formats::test {

std::string zelProgram() {
  const std::string path = std::string(ZEL_BIN_DIR) + "/zel";
  std::error_code ec;
  return std::filesystem::exists(path, ec) ? path : std::string();
}

Run runZel(const std::string& arguments) {
  Run run;
  const std::string command =
      "QT_QPA_PLATFORM=offscreen '" + zelProgram() + "' " + arguments + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return run;
  char buffer[4096];
  std::size_t got;
  while ((got = fread(buffer, 1, sizeof buffer, pipe)) > 0) run.out.append(buffer, got);
  const int status = pclose(pipe);
  run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

}  // namespace zel::formats::test
