// Child processes for the live-control end-to-end tests: the simulator runs in the
// background while `zel monitor` or `zel key` talk to it through its pseudo-terminal.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "zel_run.h"

namespace zel::e2e {

class Process {
 public:
  Process() = default;
  ~Process() { stop(); }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // Starts argv[0] with its output and errors on pipes; false when it could not start.
  bool start(const std::vector<std::string>& argv);
  // The next line of standard output, without its end; "" after timeoutMs.
  std::string readLine(int timeoutMs);
  // Waits for the end (reading all output on the way); the exit code, or -1 when the
  // process had to be killed after timeoutMs.
  int wait(int timeoutMs);
  // SIGTERM, then the exit code (SIGKILL after two seconds).
  int stop();

  const std::string& out() const { return out_; }
  const std::string& err() const { return err_; }

 private:
  void pump(int timeoutMs);
  pid_t pid_ = -1;
  int outFd_ = -1;
  int errFd_ = -1;
  int exitCode_ = -1;
  std::string out_, err_;
  std::size_t lineAt_ = 0;
};

// The zel binary of this build.
std::string zelBinary();

// A simulated scanner for one test: started with the given options, stopped at the end.
class SimulatedScanner {
 public:
  explicit SimulatedScanner(const std::vector<std::string>& options);
  const std::string& device() const { return device_; }
  Process& process() { return process_; }

 private:
  Process process_;
  std::string device_;
};

// A number after "name": in JSON text; -1 when it is not there.
long long jsonNumber(const std::string& json, const std::string& name);

// `zel VERB --port DEVICE OPTIONS...` run to its end (killed after timeoutMs).
inline ZelRun onPort(const std::string& verb, const std::string& device,
                     const std::vector<std::string>& options, int timeoutMs) {
  std::vector<std::string> argv{zelBinary(), verb, "--port", device};
  argv.insert(argv.end(), options.begin(), options.end());
  Process p;
  ZelRun run;
  if (!p.start(argv)) return run;
  run.exitCode = p.wait(timeoutMs);
  run.out = p.out();
  run.err = p.err();
  return run;
}

// A test with `zel sim radioref` serving on a free port of this machine.
class RRServiceTest : public ZelTest {
 protected:
  void SetUp() override {
    ZelTest::SetUp();
    ASSERT_TRUE(service_.start({zelBinary(), "sim", "radioref", "--port", "0"}));
    endpoint_ = service_.readLine(5000);
    ASSERT_EQ(endpoint_.rfind("http://127.0.0.1:", 0), 0u) << endpoint_ << service_.err();
  }
  Process service_;
  std::string endpoint_;
};

}  // namespace zel::e2e
