// Without libFuzzer (a gcc build) a fuzz target becomes a program that runs its input
// function over seed files: each argument is a file, or a folder whose files are all taken
// (files over 4 MiB are passed over). It prints how many inputs ran; a fault aborts.
#include <cstdint>
#include <cstdio>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int runFile(const std::filesystem::path& path) {
  std::error_code ec;
  if (std::filesystem::file_size(path, ec) > (4u << 20) || ec) return 0;
  std::ifstream in(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path arg = argv[i];
    std::error_code ec;
    if (std::filesystem::is_directory(arg, ec)) {
      std::vector<std::filesystem::path> files;
      for (const auto& e : std::filesystem::recursive_directory_iterator(arg, ec)) {
        if (e.is_regular_file()) files.push_back(e.path());
      }
      std::sort(files.begin(), files.end());
      for (const auto& f : files) inputs += runFile(f);
    } else if (std::filesystem::is_regular_file(arg, ec)) {
      inputs += runFile(arg);
    }
  }
  // The empty input and a one-byte input always run.
  LLVMFuzzerTestOneInput(nullptr, 0);
  const std::uint8_t one = 0xFF;
  LLVMFuzzerTestOneInput(&one, 1);
  std::printf("%d seed inputs replayed\n", inputs + 2);
  return 0;
}
