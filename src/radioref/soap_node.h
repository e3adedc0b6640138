#pragma once
// The nodes of a SOAP 1.1 rpc/encoded message, as the envelope builds and parses them.
//
//   <return xsi:type="SOAP-ENC:Array" SOAP-ENC:arrayType="tns:Talkgroup[2]">   array
//     <item xsi:type="tns:Talkgroup">                                          structure
//       <tgId xsi:type="xsd:int">1</tgId>                                      scalar
//       <tgSubfleet xsi:nil="true" xsi:type="xsd:string"/>                     nil
//
// A node is a scalar (its text), a structure (named children) or an array (its items, in
// order). Every text is 8-bit (Latin-1): the envelope converts at the wire.
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zel::radioref {

class SoapNode;

// The children of a structure, the items of an array, or the parameters of an envelope.
class SoapNodes {
 public:
  // Adds a child; `type` is the xsi:type written for it ("xsd:int", "tns:authInfo"...).
  // Returns the new node, which stays valid until the next Create on this collection.
  SoapNode& Create(std::string_view name, std::string_view value = {}, std::string_view type = {});
  // The first child of that local name, or nullptr; the namespace is not compared.
  const SoapNode* ItemByName(std::string_view name, std::string_view ns = {}) const;
  SoapNode* ItemByName(std::string_view name, std::string_view ns = {});
  // Counting from 0. (These are defined below SoapNode, which they need whole.)
  const SoapNode& Item(std::size_t index) const;
  SoapNode& Item(std::size_t index);
  std::size_t Count() const;
  bool empty() const;
  void clear();
  void reserve(std::size_t n);

  std::vector<SoapNode>::const_iterator begin() const;
  std::vector<SoapNode>::const_iterator end() const;

  std::vector<SoapNode>& raw() { return nodes_; }
  const std::vector<SoapNode>& raw() const { return nodes_; }

 private:
  std::vector<SoapNode> nodes_;
};

class SoapNode {
 public:
  enum class Kind { Scalar, Structure, Array };

  SoapNode() = default;
  SoapNode(std::string name, std::string value, std::string type = {})
      : name_(std::move(name)), value_(std::move(value)), type_(std::move(type)) {}

  // The local name, without its prefix ("getUserDataResponse", "return", "item").
  const std::string& Name() const { return name_; }
  // The scalar text; empty for a nil node, a structure or an array.
  const std::string& Value() const { return value_; }
  // The scalar as a number: 0 for nil, empty, "Null" or text that is no number.
  long long ValueInt() const;
  double ValueDouble() const;
  bool IsNull() const { return null_; }
  Kind kind() const { return kind_; }
  bool IsArray() const { return kind_ == Kind::Array; }
  // xsi:type as written ("xsd:int", "tns:Talkgroup", "SOAP-ENC:Array").
  const std::string& type() const { return type_; }
  // SOAP-ENC:arrayType of an array ("tns:Talkgroup[2]"); built from the items when empty.
  const std::string& arrayType() const { return arrayType_; }

  // The children of a structure, or the items of an array.
  SoapNodes& Nodes() { return children_; }
  const SoapNodes& Nodes() const { return children_; }

  // The text of a named child: "" when the child is absent or nil.
  const std::string& childText(std::string_view name) const;

  void setName(std::string name) { name_ = std::move(name); }
  void setValue(std::string value) { value_ = std::move(value); kind_ = Kind::Scalar; }
  void setType(std::string type) { type_ = std::move(type); }
  void setNull(bool isNull) { null_ = isNull; }
  void setKind(Kind kind) { kind_ = kind; }
  // Makes the node an array of items of `itemType` ("tns:stid"); items go into Nodes().
  void makeArray(std::string itemType) { kind_ = Kind::Array; arrayType_ = std::move(itemType); }
  void setArrayType(std::string arrayType) { arrayType_ = std::move(arrayType); }

 private:
  std::string name_;
  std::string value_;
  std::string type_;
  std::string arrayType_;
  SoapNodes children_;
  Kind kind_ = Kind::Scalar;
  bool null_ = false;
};

inline const SoapNode& SoapNodes::Item(std::size_t index) const { return nodes_[index]; }
inline SoapNode& SoapNodes::Item(std::size_t index) { return nodes_[index]; }
inline std::size_t SoapNodes::Count() const { return nodes_.size(); }
inline bool SoapNodes::empty() const { return nodes_.empty(); }
inline void SoapNodes::clear() { nodes_.clear(); }
inline void SoapNodes::reserve(std::size_t n) { nodes_.reserve(n); }
inline std::vector<SoapNode>::const_iterator SoapNodes::begin() const { return nodes_.begin(); }
inline std::vector<SoapNode>::const_iterator SoapNodes::end() const { return nodes_.end(); }

}  // namespace zel::radioref
