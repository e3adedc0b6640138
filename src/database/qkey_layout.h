// The quick key layout of a document: which systems sit on which system quick key, and
// which departments and sites of one system sit on which department quick key. The layout
// viewer shows the items in ten buckets at a time and moves them between buckets; the
// changed keys go back into the record lines through the tree's set-field operation.
//
//   SIN,P25 Standard,2,StateId=0,Cleveland,0,,P25Standard,...,1,...    field 13: system key
//   GIN,C-Group,,,Fire,Off,41.316497,-81.744117,3.5,Circle,1,Global   field 10: department key
//   SIT,Site,,,Simulcast,Off,41.45,-81.70,19.1,AUTO,...,Off           field 17: department key
//
// A key is a whole number from 0 to 99; "None", "Off", "." and anything else mean no key.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/document.h"
#include "core/settings.h"

namespace zel::qkeys {

inline constexpr int kNoKey = -1;
inline constexpr int kKeyCount = 100;
inline constexpr int kDecades = 10;

inline constexpr const char* kNoKeyCaption = "No Key Assigned:";

// The key a record field holds, or kNoKey.
int parseKey(std::string_view field);
// The record field that holds the quick key of a node ("SYS-" 13, "GRP-" 10, "SIT-" 17);
// 0 for any other key.
int keyField(std::string_view nodeKey);
// The quick key of a node of the record tree, or kNoKey.
int nodeKey(const DocumentTree& data, std::string_view key);

// The decade combo: position d shows the keys d x 10 to d x 10 + 9 ("0-9" ... "90-99").
std::string decadeCaption(int decade);
inline int bucketKey(int decade, int index) { return decade * 10 + index; }
// "QuickKey: 12"; "No Key Assigned:" for kNoKey.
std::string bucketCaption(int key);

enum class View { Systems, Departments };

struct Item {
  std::string key;   // node key: "SYS-001", "GRP-999-001-002", "SIT-001-001"
  std::string text;  // "[C] Federal", "[T] Cleveland", "[DEP] Fire", "[SITE] Simulcast"
  int original = kNoKey;  // the key the record holds
  int quickKey = kNoKey;  // the key of the bucket it sits in now
};

struct Layout {
  View view = View::Systems;
  int system = 0;  // the system of a department view
  std::vector<Item> items;  // in tree order
};

// Every system of the document by its system quick key.
Layout systemLayout(const DocumentTree& data);
// The departments and sites of one system by their department quick key.
Layout departmentLayout(const DocumentTree& data, int system);

// The items of a bucket in tree order (kNoKey: those without a key).
std::vector<const Item*> bucketItems(const Layout& layout, int key);
// Moves the items named by node key into a bucket. An item already there keeps its key;
// unknown keys are passed over. Returns how many items changed bucket.
int moveTo(Layout& layout, const std::vector<std::string>& nodeKeys, int key);
// The first number from 0 that no item of the layout uses; kNoKey when all 100 are used.
int nextFreeKey(const Layout& layout);
bool changed(const Layout& layout);

// Writes the keys that changed into the record lines: the number, or for no key "Off"
// (departments and sites) or "None" (systems). Marks the document changed when anything
// was written. Returns the number of records written.
int writeBack(Document& doc, const Layout& layout);

// The lines of "Print Overview": the heading and title, then each system key in use with
// its systems, and under each system its departments and sites with their keys.
std::vector<std::string> overviewLines(const DocumentTree& data, std::string_view title);

// The printed page of one system's view: "QuickKeys for: " + the system's name, then
// "QuicKey 1:" to "QuicKey 10:" for the ten keys of the decade on show, each followed by the
// items on that key.
std::vector<std::string> bucketPrintLines(const Layout& layout, std::string_view name, int decade);

// The enabled state of the hundred system quick keys as "1"/"0" flags, kept in settings
// section "qkeysrs" (one value a key, "qk0" to "qk99"; all on by default).
std::string loadSystemKeyFlags(Settings& settings);
void saveSystemKeyFlags(Settings& settings, std::string_view flags);
// "AutoEnable Qkeys": the flags with every key that some system uses switched on.
std::string autoEnabled(const DocumentTree& data, std::string_view flags);
// The keys that one or more systems use.
std::vector<bool> systemKeysInUse(const DocumentTree& data);
// What is on a system quick key: the names of its systems, then "site: " + name for its
// sites; {"None"} when nothing is.
std::vector<std::string> namesOnSystemKey(const DocumentTree& data, int key);

}  // namespace zel::qkeys
