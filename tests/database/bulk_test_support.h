// A small document for the bulk editor's tests: systems made with the New commands, named
// departments and sites, and rows in an in-memory row store.
#pragma once

#include <string>
#include <vector>

#include "core/document.h"
#include "core/memory_ports.h"
#include "formats/row_store.h"

namespace zel::bulk::test {

struct BulkDoc {
  Document doc;
  formats::MemoryRows rows;
  RecordingFeedback feedback;

  // A system of the New command, named; returns its number.
  int addSystem(const char* command, const std::string& name);
  // The system's first department (made with the system), renamed and given rows.
  std::string firstDepartment(int system, const std::string& name,
                              const std::vector<std::string>& lines = {});
  // A further department with rows.
  std::string addDepartment(int system, const std::string& name,
                            const std::vector<std::string>& lines = {});
  std::string addSite(int system, const std::string& name);
  std::string line(const std::string& key) const;
  std::vector<std::string> page(const std::string& department) const {
    return rows.load(department);
  }
};

// The key of row `row` of a department: "FRQ-sss-ddd-cccc" or "TID-sss-ddd-cccc".
std::string frq(const std::string& department, int row);
std::string tid(const std::string& department, int row);

// A channel row whose columns 2 to `count` hold "c2", "c3", ...: every column can be told
// from every other.
std::string markedRow(int row, const std::string& first, int count);

// The positions (0-based) at which two comma lines differ.
std::vector<int> changedFields(const std::string& before, const std::string& after);

}  // namespace zel::bulk::test
