#include "control/reply_fields.h"

#include "core/text.h"

namespace zel::control {

std::string stripLineEnds(std::string_view reply) {
  std::string out;
  out.reserve(reply.size());
  for (char c : reply) {
    if (c != '\r' && c != '\n') out += c;
  }
  return out;
}

std::vector<std::string_view> replyFields(std::string_view stripped) {
  return splitView(stripped, ',');
}

namespace {
// Field n of a reply without building the whole array: the hot path of every parser.
std::string_view fieldView(std::string_view s, int n) {
  if (n < 0) return {};
  std::size_t start = 0;
  for (int i = 0; i < n; ++i) {
    std::size_t comma = s.find(',', start);
    if (comma == std::string_view::npos) return {};
    start = comma + 1;
  }
  std::size_t end = s.find(',', start);
  return s.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
}
}  // namespace

std::string ReplyField(std::string_view reply, int n) {
  std::string s = stripLineEnds(reply);
  return std::string(fieldView(s, n));
}

std::string ReplyFieldFromEnd(std::string_view reply, int n) {
  std::string s = stripLineEnds(reply);
  auto fields = replyFields(s);
  if (fields.size() > 51) fields.resize(51);
  int index = static_cast<int>(fields.size()) - 1 - n;
  if (index < 0 || index >= static_cast<int>(fields.size())) return {};
  return std::string(fields[index]);
}

std::string ReplyFieldUnquoted(std::string_view reply, int n, int expectedLast) {
  std::string s = stripLineEnds(reply);
  if (expectedLast > 0) {
    int last = static_cast<int>(replyFields(s).size()) - 1;
    if (last != expectedLast) return "0";
  }
  std::string_view f = fieldView(s, n);
  if (!f.empty() && f.front() == '"') f.remove_prefix(1);
  if (!f.empty() && f.back() == '"') f.remove_suffix(1);
  return std::string(f);
}

}  // namespace zel::control
