// zel hpd: favorites files without a window.
//   zel hpd info FILE [--json]   what a file holds, and one line per system
//   zel hpd convert IN OUT       read IN into a fresh document and save it as OUT
//   zel hpd check FILE           lines a read passes over, values a save would change
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "cli/command_registry.h"
#include "core/document.h"
#include "core/memory_ports.h"
#include "core/page_files.h"
#include "formats/hpd_check.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"

namespace {

namespace fs = std::filesystem;
using namespace zel;
using namespace zel::formats;

// The page folder of a one-off document: made empty, removed at the end, so that the
// command never touches the pages of a running desktop session.
class ScratchPages {
 public:
  ScratchPages() {
    std::string pattern = (fs::temp_directory_path() / "zel-hpd-XXXXXX").string();
    if (char* made = mkdtemp(pattern.data())) folder_ = made;
    if (folder_.empty()) throw cli::UserError{"Cannot make a temporary folder for the pages."};
    pages_ = std::make_unique<PageFiles>(folder_);
  }
  ~ScratchPages() {
    std::error_code ec;
    fs::remove_all(folder_, ec);
  }
  PageFiles& pages() { return *pages_; }

 private:
  std::string folder_;
  std::unique_ptr<PageFiles> pages_;
};

HpdReadResult readOrFail(Document& doc, PageFiles& pages, const std::string& path) {
  RecordingFeedback quiet;
  HpdReadOptions options;
  options.fileIndex = 1;
  HpdReadResult read = readHpd(doc, pages, path, options, quiet);
  if (!read.ok()) throw cli::UserError{read.message};
  return read;
}

}  // namespace

ZEL_COMMAND(30) {
  (void)context;
  auto* hpd = app.add_subcommand("hpd", "Favorites files (.hpd): info, convert, check");
  hpd->require_subcommand(1);

  struct InfoArgs {
    std::string file;
    bool json = false;
  };
  auto info = std::make_shared<InfoArgs>();
  auto* infoCmd = hpd->add_subcommand("info", "Level, counts and systems of a favorites file");
  infoCmd->add_option("FILE", info->file, "The .hpd file")->required();
  infoCmd->add_flag("--json", info->json, "Print a JSON object");
  infoCmd->callback([info] {
    ScratchPages scratch;
    Document doc;
    HpdReadResult read = readOrFail(doc, scratch.pages(), info->file);
    std::vector<HpdSystemInfo> systems = systemsRead(doc, read);
    std::cout << (info->json ? formatInfoJson(info->file, read, systems)
                             : formatInfo(info->file, read, systems));
  });

  struct ConvertArgs {
    std::string in;
    std::string out;
  };
  auto convert = std::make_shared<ConvertArgs>();
  auto* convertCmd =
      hpd->add_subcommand("convert", "Read a favorites file and save it in the x36-family form");
  convertCmd->add_option("IN", convert->in, "The file to read")->required();
  convertCmd->add_option("OUT", convert->out, "The file to write")->required();
  convertCmd->callback([convert] {
    ScratchPages scratch;
    Document doc;
    readOrFail(doc, scratch.pages(), convert->in);
    RecordingFeedback quiet;
    HpdWriteOptions options;
    options.fileIndex = 1;
    HpdWriteResult written = writeHpd(doc, scratch.pages(), convert->out, options, quiet);
    if (!written.ok()) throw cli::UserError{written.message};
    std::cout << "Wrote " << written.path << ": " << written.systems << " systems\n";
  });

  auto checkFile = std::make_shared<std::string>();
  auto* checkCmd =
      hpd->add_subcommand("check", "Lines a read skips and values a save would move to a default");
  checkCmd->add_option("FILE", *checkFile, "The .hpd file")->required();
  checkCmd->callback([checkFile] {
    ScratchPages scratch;
    Document doc;
    RecordingFeedback quiet;
    HpdCheck check = checkHpd(doc, scratch.pages(), *checkFile, quiet);
    if (!check.read.ok()) throw cli::UserError{check.read.message};
    std::cout << formatCheck(check);
  });
}
