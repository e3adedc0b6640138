#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <regex>

#include "monitor_process.h"

namespace zel::e2e {

namespace {
std::int64_t nowMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
}  // namespace

std::string zelBinary() {
  return std::string(ZEL_BIN_DIR) + "/zel";
}

bool Process::start(const std::vector<std::string>& argv) {
  int outPipe[2], errPipe[2];
  if (pipe(outPipe) != 0) return false;
  if (pipe(errPipe) != 0) return false;
  pid_ = fork();
  if (pid_ < 0) return false;
  if (pid_ == 0) {
    dup2(outPipe[1], 1);
    dup2(errPipe[1], 2);
    close(outPipe[0]);
    close(errPipe[0]);
    close(outPipe[1]);
    close(errPipe[1]);
    std::vector<char*> args;
    for (const auto& a : argv) args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);
    // No display is needed: the command line has no window.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    execv(args[0], args.data());
    _exit(127);
  }
  close(outPipe[1]);
  close(errPipe[1]);
  outFd_ = outPipe[0];
  errFd_ = errPipe[0];
  return true;
}

void Process::pump(int timeoutMs) {
  pollfd fds[2] = {{outFd_, POLLIN, 0}, {errFd_, POLLIN, 0}};
  int n = poll(fds, 2, timeoutMs);
  if (n <= 0) return;
  char buffer[8192];
  for (int i = 0; i < 2; ++i) {
    if (fds[i].fd < 0 || !(fds[i].revents & (POLLIN | POLLHUP))) continue;
    ssize_t got = read(fds[i].fd, buffer, sizeof buffer);
    if (got > 0) {
      (i == 0 ? out_ : err_).append(buffer, static_cast<std::size_t>(got));
    } else {
      close(fds[i].fd);
      (i == 0 ? outFd_ : errFd_) = -1;
    }
  }
}

std::string Process::readLine(int timeoutMs) {
  const std::int64_t end = nowMs() + timeoutMs;
  for (;;) {
    std::size_t nl = out_.find('\n', lineAt_);
    if (nl != std::string::npos) {
      std::string line = out_.substr(lineAt_, nl - lineAt_);
      lineAt_ = nl + 1;
      return line;
    }
    std::int64_t left = end - nowMs();
    if (left <= 0 || (outFd_ < 0 && errFd_ < 0)) return {};
    pump(static_cast<int>(left));
  }
}

int Process::wait(int timeoutMs) {
  if (pid_ < 0) return exitCode_;
  const std::int64_t end = nowMs() + timeoutMs;
  while (outFd_ >= 0 || errFd_ >= 0) {
    std::int64_t left = end - nowMs();
    if (left <= 0) break;
    pump(static_cast<int>(std::min<std::int64_t>(left, 100)));
  }
  int status = 0;
  for (;;) {
    pid_t r = waitpid(pid_, &status, WNOHANG);
    if (r == pid_) break;
    if (nowMs() >= end) {
      kill(pid_, SIGKILL);
      waitpid(pid_, &status, 0);
      pid_ = -1;
      return exitCode_ = -1;
    }
    usleep(10000);
  }
  pid_ = -1;
  if (outFd_ >= 0) close(outFd_);
  if (errFd_ >= 0) close(errFd_);
  outFd_ = errFd_ = -1;
  return exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int Process::stop() {
  if (pid_ < 0) return exitCode_;
  kill(pid_, SIGTERM);
  return wait(2000);
}

SimulatedScanner::SimulatedScanner(const std::vector<std::string>& options) {
  std::vector<std::string> argv{zelBinary(), "sim", "scanner"};
  argv.insert(argv.end(), options.begin(), options.end());
  if (process_.start(argv)) device_ = process_.readLine(5000);
}

long long jsonNumber(const std::string& json, const std::string& name) {
  std::smatch m;
  if (!std::regex_search(json, m, std::regex("\"" + name + "\":(-?[0-9]+)"))) return -1;
  return std::stoll(m[1]);
}

}  // namespace zel::e2e
