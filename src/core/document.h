// The favorites document of a session: the record tree and its companions.
#pragma once

#include "core/document_tree.h"
#include "core/tables.h"

namespace zel {

// Decides the optional columns of the grids and part of the frequency limits.
enum class ScannerFamily { BCD, HP };

struct Document {
  DocumentTree data;         // every record line (systems, sites, departments, ...)
  DocumentTree frequencies;  // flat copy of the TFQ- site frequency nodes
  DocumentTree visible;      // favorites lists, systems, sites, departments by name
  SystemTable systems;
  OpenFileTable files;
  bool x36Mode = true;  // the x36-family mode word
  ScannerFamily family = ScannerFamily::BCD;
  bool changed = false;

  void clear();
};

}  // namespace zel
