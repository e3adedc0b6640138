#include "core/record_line.h"

#include "core/text.h"

namespace zel::record {

std::string field(std::string_view line, int n) {
  if (n < 0) return {};
  std::size_t start = 0;
  for (int i = 0; i < n; ++i) {
    std::size_t pos = line.find(',', start);
    if (pos == std::string_view::npos) return {};
    start = pos + 1;
  }
  std::size_t end = line.find(',', start);
  std::string_view raw =
      line.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
  std::string out;
  out.reserve(raw.size());
  for (char c : raw) {
    if (c != '\r' && c != '\n') out.push_back(c);
  }
  if (!out.empty() && out.front() == '"') out.erase(0, 1);
  if (!out.empty() && out.back() == '"') out.pop_back();
  return out;
}

int fieldCount(std::string_view line) {
  int count = 1;
  for (char c : line) count += c == ',';
  return count;
}

std::string withField(std::string_view line, int n, std::string_view value) {
  auto parts = split(line, ',');
  if (n < 0) return std::string(line);
  if (static_cast<int>(parts.size()) <= n) parts.resize(n + 1);
  parts[n] = trim(value);
  return join(parts, ',');
}

std::string sanitize(std::string_view value) {
  std::string out;
  out.reserve(value.size());
  for (char c : value) {
    if (c == ',') {
      out.push_back(';');
    } else if (c != '\r' && c != '\n') {
      out.push_back(c);
    }
  }
  return out;
}

}  // namespace zel::record
