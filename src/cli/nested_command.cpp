#include "cli/nested_command.h"

#include <iostream>
#include <sstream>

namespace zel::cli {

namespace {

// Sends a stream's output to a text of ours while it lives.
class Capture {
 public:
  Capture(std::ostream& stream, std::ostringstream& into)
      : stream_(stream), old_(stream.rdbuf(into.rdbuf())) {}
  ~Capture() { stream_.rdbuf(old_); }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

 private:
  std::ostream& stream_;
  std::streambuf* old_;
};

}  // namespace

NestedRun runNested(Context& context, const std::vector<std::string>& args) {
  CLI::App app{"zel", "zel"};
  app.require_subcommand(1);
  CommandRegistry::registerAll(app, context);
  std::ostringstream out, err;
  NestedRun run;
  {
    Capture outCapture(std::cout, out);
    Capture errCapture(std::cerr, err);
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
      app.parse(reversed);
    } catch (const CLI::ParseError& e) {
      run.code = 2;
      err << e.what() << '\n';
    } catch (const UserError& e) {
      run.code = e.code;
      if (!e.message.empty()) err << e.message << '\n';
    }
  }
  run.out = out.str();
  run.err = err.str();
  return run;
}

}  // namespace zel::cli
