#pragma once
// Field access shared by the reply readers. Every accessor tolerates what the service really
// sends: an absent field, xsi:nil, the text "Null", a decimal where an integer stands, and a
// structure or array where a scalar was expected all read as 0 or "".
#include <climits>
#include <string>
#include <string_view>
#include <vector>

#include "radioref/soap_node.h"

namespace zel::radioref::fields {

inline const SoapNode* child(const SoapNode& record, std::string_view name) {
  return record.Nodes().ItemByName(name);
}

// A scalar child that carries a value: not absent, not nil, not a structure or an array.
inline const SoapNode* scalar(const SoapNode& record, std::string_view name) {
  const SoapNode* node = child(record, name);
  if (node == nullptr || node->IsNull() || node->kind() != SoapNode::Kind::Scalar) return nullptr;
  return node;
}

inline int toInt(long long value) {
  return (value < INT_MIN || value > INT_MAX) ? 0 : static_cast<int>(value);
}

inline int intOf(const SoapNode& node) {
  if (node.IsNull() || node.kind() != SoapNode::Kind::Scalar) return 0;
  return toInt(node.ValueInt());
}

inline int intField(const SoapNode& record, std::string_view name) {
  const SoapNode* node = scalar(record, name);
  return node ? toInt(node->ValueInt()) : 0;
}

inline double doubleField(const SoapNode& record, std::string_view name) {
  const SoapNode* node = scalar(record, name);
  return node ? node->ValueDouble() : 0.0;
}

// "Null" is the service's word for no value, in text fields too.
inline std::string textField(const SoapNode& record, std::string_view name) {
  const SoapNode* node = scalar(record, name);
  if (node == nullptr || node->Value() == "Null") return {};
  return node->Value();
}

inline bool boolField(const SoapNode& record, std::string_view name) {
  const std::string text = textField(record, name);
  return text == "true" || text == "True" || text == "TRUE" || intField(record, name) != 0;
}

// The items of a list field: an array's items; nothing for an absent, nil or scalar field.
// A structure whose children are all named "item" is taken as an array whose type was lost.
inline const std::vector<SoapNode>* listItems(const SoapNode* list) {
  if (list == nullptr || list->IsNull()) return nullptr;
  if (list->IsArray()) return &list->Nodes().raw();
  if (list->kind() != SoapNode::Kind::Structure || list->Nodes().empty()) return nullptr;
  for (const SoapNode& node : list->Nodes()) {
    if (node.Name() != "item") return nullptr;
  }
  return &list->Nodes().raw();
}

// Reads every structure item of a list with `readOne`; nil and scalar items are skipped.
template <typename Record, typename ReadOne>
std::vector<Record> readRecords(const SoapNode* list, ReadOne readOne) {
  std::vector<Record> out;
  const std::vector<SoapNode>* items = listItems(list);
  if (items == nullptr) return out;
  out.reserve(items->size());
  for (const SoapNode& item : *items) {
    if (item.IsNull() || item.kind() != SoapNode::Kind::Structure) continue;
    out.push_back(readOne(item));
  }
  return out;
}

// A list of numbers whose items are structures holding one named field (sCounty: ctid,
// tags: tagId) or, in a plainer encoding, the numbers themselves.
inline std::vector<int> readNumbers(const SoapNode* list, std::string_view field) {
  std::vector<int> out;
  const std::vector<SoapNode>* items = listItems(list);
  if (items == nullptr) return out;
  out.reserve(items->size());
  for (const SoapNode& item : *items) {
    if (item.IsNull()) continue;
    if (item.kind() == SoapNode::Kind::Structure) {
      if (scalar(item, field) != nullptr) out.push_back(intField(item, field));
    } else if (item.kind() == SoapNode::Kind::Scalar && !item.Value().empty()) {
      out.push_back(intOf(item));
    }
  }
  return out;
}

// The same for texts (siteLicenses: license).
inline std::vector<std::string> readTexts(const SoapNode* list, std::string_view field) {
  std::vector<std::string> out;
  const std::vector<SoapNode>* items = listItems(list);
  if (items == nullptr) return out;
  out.reserve(items->size());
  for (const SoapNode& item : *items) {
    if (item.IsNull()) continue;
    std::string text;
    if (item.kind() == SoapNode::Kind::Structure) {
      text = textField(item, field);
    } else if (item.kind() == SoapNode::Kind::Scalar && item.Value() != "Null") {
      text = item.Value();
    }
    if (!text.empty()) out.push_back(std::move(text));
  }
  return out;
}

// The record of a single-record reply: the part itself, or the first structure item when the
// record came wrapped in an array of one.
inline const SoapNode& recordOf(const SoapNode& part) {
  if (const std::vector<SoapNode>* items = listItems(&part)) {
    for (const SoapNode& item : *items) {
      if (item.kind() == SoapNode::Kind::Structure) return item;
    }
  }
  return part;
}

}  // namespace zel::radioref::fields
