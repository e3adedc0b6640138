#include "cli/cmd_rr_session.h"

#include <termios.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/option_range.h"
#include "core/settings.h"
#include "formats/text_file.h"
#include "platform/qt_http_transport.h"
#include "radioref/soap_envelope.h"

namespace zel::cli {

namespace fs = std::filesystem;

namespace {

constexpr const char* kSection = "radioref";

std::string firstLine(std::string text) {
  const auto end = text.find_first_of("\r\n");
  if (end != std::string::npos) text.resize(end);
  return text;
}

std::string promptPassword() {
  std::cerr << "RadioReference password: " << std::flush;
  termios old{};
  const bool tty = tcgetattr(STDIN_FILENO, &old) == 0;
  if (tty) {
    termios quiet = old;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSANOW, &quiet);
  }
  std::string line;
  std::getline(std::cin, line);
  if (tty) tcsetattr(STDIN_FILENO, TCSANOW, &old);
  std::cerr << '\n';
  return firstLine(line);
}

std::string readPassword(const RROptions& options) {
  if (!options.passwordFile.empty()) {
    auto text = formats::readWholeFile(options.passwordFile);
    if (!text) throw UserError{"Cannot read the password file " + options.passwordFile + "."};
    return firstLine(*text);
  }
  if (const char* env = std::getenv("ZEL_RR_PASSWORD")) return env;
  if (isatty(STDIN_FILENO)) return promptPassword();
  throw UserError{
      "No password given: use --password-file FILE, the ZEL_RR_PASSWORD variable, or a terminal."};
}

std::string withSlash(std::string url) {
  if (!url.empty() && url.back() != '/') url += '/';
  return url;
}

}  // namespace

CLI::Option* rrId(CLI::Option* option) {
  return inRange(option, 1, 2147483647, "an id");
}

void addRROptions(CLI::App& cmd, RROptions& options) {
  cmd.add_option("--endpoint", options.endpoint,
                 "End point folder of the service (the description is read from it with "
                 "\"?wsdl&v=15\", calls go to its index.php)");
  cmd.add_option("--user", options.user, "RadioReference user name (stored for next time)");
  cmd.add_option("--password-file", options.passwordFile,
                 "File whose first line is the password (else ZEL_RR_PASSWORD or a prompt)");
  cmd.add_option("--app-key", options.appKey,
                 "Application key the service issued (stored in the settings once given)");
  cmd.add_option("--save-xml", options.saveXml, "Write the last raw XML reply to this file");
  inRange(cmd.add_option("--timeout", options.timeoutMs, "Time-out of a request in milliseconds"),
          1, 3600000, "a number of milliseconds");
  cmd.add_flag("--debug", options.debug, "Trace the calls to soaplog.txt (never the password)");
  cmd.add_flag("--json", options.json, "Print JSON");
}

RRCliSession::RRCliSession(Context& context, const RROptions& options)
    : context_(context), options_(options) {
  Settings settings(context.settings());
  if (!options_.appKey.empty()) settings.put(kSection, "appkey", options_.appKey);
  if (!options_.user.empty()) settings.put(kSection, "user", radioref::utf8ToLatin1(options_.user));

  http_ = std::make_unique<QtHttpTransport>();
  client_ = std::make_unique<radioref::SoapClient>(*http_, feedback_, clock_);
  auto& c = *client_;
  const fs::path dataFolder = fs::path(context.dataFolder());
  const fs::path documents = dataFolder.parent_path();
  c.documentsFolder = documents.string();
  c.WorkFolder = (documents / "torvosoap" / "ZEL536").string();
  c.BaseUrl = withSlash(options_.endpoint.empty()
                            ? settings.getPlain(kSection, "endpoint", kDefaultEndpoint)
                            : options_.endpoint);
  c.appKeySetting = settings.getPlain(kSection, "appkey", "");
  c.versionSetting = settings.getPlain(kSection, "version", "15");
  if (options_.timeoutMs > 0) c.wsdlTimeoutMs = c.callTimeoutMs = options_.timeoutMs;
  if (options_.debug) {
    const std::string logPath = (documents / "soaplog.txt").string();
    c.traceSink = [logPath](std::string_view line) {
      std::ofstream log(logPath, std::ios::binary | std::ios::app);
      log << line << "\r\n";
    };
  }
  queries_ = std::make_unique<radioref::RRQueries>(c);
}

RRCliSession::~RRCliSession() = default;

radioref::LoginOutcome RRCliSession::login(bool withLookups) {
  Settings settings(context_.settings());
  const std::string user = settings.getPlain(kSection, "user", "");
  if (user.empty()) throw UserError{"No user name given: use --user NAME."};
  if (client_->appKeySetting.empty()) throw UserError{std::string(radioref::kMissingAppKey)};
  const std::string password = radioref::utf8ToLatin1(readPassword(options_));

  radioref::LoginOutcome outcome;
  if (withLookups) {
    outcome = queries_->login(user, password);
  } else {
    auto& c = *client_;
    c.RRUser = user;
    c.RRPassword = password;
    if (!c.InitDone) c.InitDone = c.INITSOAP();
    if (!c.InitDone) {
      outcome.result = radioref::LoginOutcome::Result::InitFailed;
    } else if (!queries_->getUserData()) {
      outcome.result = radioref::LoginOutcome::Result::NoUserData;
    } else {
      outcome.result = radioref::LoginOutcome::Result::LoggedIn;
      outcome.expiry = queries_->userData.subExpireDate;
    }
  }
  if (outcome.result != radioref::LoginOutcome::Result::LoggedIn) {
    finish();
    const std::string& why = client_->lastError();
    throw UserError{why.empty() ? std::string(radioref::kNoResponse) : why};
  }
  return outcome;
}

void RRCliSession::requireSuccess() {
  if (!client_->lastError().empty()) {
    finish();
    throw UserError{client_->lastError()};
  }
}

void RRCliSession::finish() {
  if (options_.debug) {
    for (const auto& m : feedback_.messages) std::cerr << m << '\n';
  }
  if (!options_.saveXml.empty() && !client_->saveLastXml(options_.saveXml)) {
    throw UserError{"Cannot write " + options_.saveXml + "."};
  }
}

}  // namespace zel::cli
