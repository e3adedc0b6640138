// The connection every `zel rr` command makes: where the service is, who logs in, the key,
// and a logged-in query layer. The password comes from a file, the environment or a prompt
// on a terminal, never from the command line, and is written nowhere.
#pragma once

#include <memory>
#include <string>

#include "cli/command_registry.h"
#include "core/memory_ports.h"
#include "radioref/rr_queries.h"

namespace CLI {
class App;
}

namespace zel::cli {

struct RROptions {
  std::string endpoint;
  std::string user;
  std::string passwordFile;
  std::string appKey;
  std::string saveXml;
  bool debug = false;
  bool json = false;
  int timeoutMs = 0;  // 0: the client's own (30 s description, 60 s call)
};

// Adds --endpoint, --user, --password-file, --app-key, --save-xml, --debug, --json.
void addRROptions(CLI::App& cmd, RROptions& options);
// A record id of the service (ctid, sid, scid, ...): a number from 1 up.
CLI::Option* rrId(CLI::Option* option);

class RRCliSession {
 public:
  RRCliSession(Context& context, const RROptions& options);
  ~RRCliSession();
  // Logs in (with the lookup lists when asked) or ends the command with one sentence.
  radioref::LoginOutcome login(bool withLookups);
  // Ends the command with the last call's failure, if the last call failed.
  void requireSuccess();
  radioref::RRQueries& queries() { return *queries_; }
  // Writes the last raw XML when --save-xml was given.
  void finish();

 private:
  Context& context_;
  RROptions options_;
  RecordingFeedback feedback_;
  SystemClock clock_;
  std::unique_ptr<radioref::HttpTransport> http_;
  std::unique_ptr<radioref::SoapClient> client_;
  std::unique_ptr<radioref::RRQueries> queries_;
};

// `zel rr import`, added to the rr noun (cmd_rr_import.cpp).
void addRRImport(CLI::App& rr, Context& context);

// The default end point folder of the service, and the settings that override it.
inline constexpr const char* kDefaultEndpoint = "https://api.radioreference.com/soap2/";

}  // namespace zel::cli
