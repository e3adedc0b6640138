// `zel demo`: the embedded demo without a window. Builds the demo document in a scratch
// data folder and prints its tree, as the desktop application would show it.
#include <filesystem>
#include <iostream>

#include "cli/command_registry.h"
#include "core/demo_document.h"
#include "core/memory_ports.h"
#include "core/record_line.h"
#include "core/session.h"
#include "core/text.h"

namespace {

void printTree(const zel::DocumentTree& tree, zel::NodeId node, int depth) {
  for (zel::NodeId c : tree.childList(node)) {
    std::cout << std::string(depth * 2, ' ') << tree.text(c) << "  [" << tree.key(c) << "]\n";
    printTree(tree, c, depth + 1);
  }
}

}  // namespace

ZEL_COMMAND(90) {
  auto* cmd =
      app.add_subcommand("demo", "Show the embedded demo favorites list (no window needed)");
  cmd->callback([&context] {
    namespace fs = std::filesystem;
    const bool scratch = context.dataDir.empty();
    const fs::path folder =
        scratch ? fs::temp_directory_path() / "zel-demo" : fs::path(context.dataDir);
    zel::MemorySettingsStore settings;
    zel::StreamFeedback feedback;
    zel::SystemClock clock;
    zel::Session session(settings, feedback, clock, folder.string());
    session.start(false);
    zel::buildDemoDocument(session.document(), session.pages(), feedback);
    const zel::DocumentTree& vis = session.document().visible;
    std::cout << "ZEL536 demo favorites list\n";
    for (zel::NodeId top : vis.topLevel()) {
      std::cout << vis.text(top) << "  [" << vis.key(top) << "]\n";
      printTree(vis, top, 1);
    }
    for (const std::string& dept : session.pages().departments()) {
      std::cout << "\n" << dept << ":\n";
      for (const std::string& line : session.pages().load(dept)) std::cout << "  " << line << "\n";
    }
    std::cout << "\n" << session.unsavedText() << "\n";
    if (scratch) {
      std::error_code ec;
      fs::remove_all(folder, ec);
    }
  });
}
