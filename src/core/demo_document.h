// The embedded demo: a small favorites document made with the New commands, so that a new
// user sees systems, sites and departments before opening a file of their own.
#pragma once

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"

namespace zel {

// Fills the document with a conventional and a P25 system (with a site and departments)
// and their rows in the page files.
void buildDemoDocument(Document& doc, PageFiles& pages, Feedback& feedback);

}  // namespace zel
