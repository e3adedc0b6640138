#include "radioref/soap_node.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace zel::radioref {

namespace {

const std::string kEmpty;

std::string_view trimBlanks(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

// The whole text as a number, or false: "12abc", "" and "Null" are no numbers.
bool wholeDouble(std::string_view text, double& out) {
  text = trimBlanks(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return false;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, out);
  return ec == std::errc() && ptr == end && std::isfinite(out);
}

}  // namespace

SoapNode& SoapNodes::Create(std::string_view name, std::string_view value, std::string_view type) {
  return nodes_.emplace_back(std::string(name), std::string(value), std::string(type));
}

const SoapNode* SoapNodes::ItemByName(std::string_view name, std::string_view /*ns*/) const {
  for (const SoapNode& node : nodes_) {
    if (node.Name() == name) return &node;
  }
  return nullptr;
}

SoapNode* SoapNodes::ItemByName(std::string_view name, std::string_view ns) {
  return const_cast<SoapNode*>(std::as_const(*this).ItemByName(name, ns));
}

long long SoapNode::ValueInt() const {
  if (null_) return 0;
  std::string_view text = trimBlanks(value_);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  long long whole = 0;
  const char* end = text.data() + text.size();
  const auto [ptr, ec] = std::from_chars(text.data(), end, whole);
  if (ec == std::errc() && ptr == end && !text.empty()) return whole;
  // "12.0" and "1e3" are numbers too; the fraction is dropped.
  double real = 0;
  if (!wholeDouble(text, real)) return 0;
  constexpr double kLimit = 9.2e18;
  if (real >= kLimit || real <= -kLimit) return 0;
  return static_cast<long long>(real);
}

double SoapNode::ValueDouble() const {
  double real = 0;
  if (null_ || !wholeDouble(value_, real)) return 0;
  return real;
}

const std::string& SoapNode::childText(std::string_view name) const {
  const SoapNode* child = children_.ItemByName(name);
  if (child == nullptr || child->IsNull()) return kEmpty;
  return child->Value();
}

}  // namespace zel::radioref
