#include "card_tree_support.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace zel::transfer::testing {

namespace fs = std::filesystem;

void writeText(const std::string& path, const std::string& text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

std::string readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void writeMarker(const std::string& root, const std::string& folder, const std::string& modelLine) {
  writeText(root + "/" + folder + "/scanner.inf",
            "TargetModel\tBCDx36HP\r\nFormatVersion\t1.00\r\n" + modelLine + "\r\n");
}

std::map<std::string, std::string> snapshot(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& e : fs::recursive_directory_iterator(folder)) {
    if (e.is_regular_file()) {
      files[fs::relative(e.path(), folder).string()] = readText(e.path().string());
    }
  }
  return files;
}

std::string entryLine(const std::string& tag, const std::string& name, const std::string& file) {
  std::string line = tag + "\t" + name + "\t" + file + "\tOff\tOn\tOff\tOff\t";
  for (int i = 0; i < 110; ++i) line += (i % 3 == 0 ? "On\t" : "Off\t");
  return line + "\r\n";
}

}  // namespace zel::transfer::testing
