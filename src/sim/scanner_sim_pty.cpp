#include "sim/scanner_sim_pty.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>

namespace zel::sim {

namespace {
std::int64_t steadyMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::string printable(const std::string& s) {
  std::string out;
  for (char c : s) {
    auto u = static_cast<unsigned char>(c);
    if (c == '\r') {
      out += "\\r";
    } else if (u < 32 || u > 126) {
      out += '.';
    } else {
      out += c;
    }
    if (out.size() > 100) {
      out += "...";
      break;
    }
  }
  return out;
}
}  // namespace

PtyScanner::PtyScanner(ScannerSimOptions options, SimFaults faults)
    : sim_(options), faults_(faults, options.seed) {}

PtyScanner::~PtyScanner() {
  if (slave_ >= 0) ::close(slave_);
  if (master_ >= 0) ::close(master_);
}

bool PtyScanner::open(std::string& error) {
  master_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
    error = std::string("Cannot open a pseudo-terminal: ") + std::strerror(errno);
    return false;
  }
  const char* name = ptsname(master_);
  if (!name) {
    error = "Cannot name the pseudo-terminal.";
    return false;
  }
  path_ = name;
  slave_ = ::open(path_.c_str(), O_RDWR | O_NOCTTY);
  if (slave_ < 0) {
    error = "Cannot open " + path_ + ": " + std::strerror(errno);
    return false;
  }
  // A serial line, not a terminal: no echo, no CR to LF, no line editing.
  termios tio{};
  if (tcgetattr(slave_, &tio) == 0) {
    cfmakeraw(&tio);
    cfsetispeed(&tio, B115200);
    cfsetospeed(&tio, B115200);
    tcsetattr(slave_, TCSANOW, &tio);
  }
  int flags = fcntl(master_, F_GETFL);
  fcntl(master_, F_SETFL, flags | O_NONBLOCK);
  return true;
}

void PtyScanner::send(const std::string& bytes) {
  if (bytes.empty()) return;
  std::size_t done = 0;
  while (done < bytes.size()) {
    ssize_t n = ::write(master_, bytes.data() + done, bytes.size() - done);
    if (n <= 0) break;  // nobody reads and the line is full: the rest is lost, as on a wire
    done += static_cast<std::size_t>(n);
  }
}

void PtyScanner::handle(const std::string& command, std::int64_t elapsed, std::ostream* log) {
  std::string reply = sim_.answer(command);
  if (reply.empty()) return;
  if (faults_.silent(elapsed)) {
    if (log) *log << "> " << printable(command) << "   (silent)\n";
    return;
  }
  reply = faults_.apply(std::move(reply));
  ++answered_;
  if (log) *log << "> " << printable(command) << "\n< " << printable(reply) << "\n";
  send(reply);
}

void PtyScanner::run(const std::atomic<bool>& stop, std::ostream* log) {
  const std::int64_t start = steadyMs();
  sim_.advance(start);
  char buffer[4096];
  while (!stop.load()) {
    pollfd p{master_, POLLIN, 0};
    int ready = ::poll(&p, 1, 20);
    const std::int64_t now = steadyMs();
    sim_.advance(now);
    if (ready > 0 && (p.revents & POLLIN)) {
      ssize_t n = ::read(master_, buffer, sizeof buffer);
      if (n > 0) pending_.append(buffer, static_cast<std::size_t>(n));
    } else if (ready > 0) {
      // A hang-up without our own slave open should not happen; do not spin on it.
      ::usleep(20000);
    }
    std::size_t end;
    while ((end = pending_.find_first_of("\r\n")) != std::string::npos) {
      std::string command = pending_.substr(0, end);
      pending_.erase(0, end + 1);
      handle(command, now - start, log);
    }
    if (pending_.size() > 4096) pending_.clear();  // a line that never ends is noise
    std::string extra = sim_.unsolicited();
    if (!extra.empty() && !faults_.silent(now - start)) send(faults_.applyToLines(extra));
    if (log) log->flush();
  }
}

}  // namespace zel::sim
