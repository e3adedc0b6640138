// Moving lists between the open document and the card: "Save Favorite List" writes the
// document as one list through the HPD writer; "Write Selected" reads chosen lists from
// the card into the document through the HPD reader.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/document.h"
#include "core/page_files.h"
#include "core/ports.h"
#include "transfer/favorites_card.h"

namespace zel::transfer {

struct SaveListRequest {
  std::string name;              // the list's name ("Add as New Favorites List")
  std::optional<int> overwrite;  // the list to replace ("Overwrite Existing Favorites List:")
  bool copyInName = false;       // "Copy in Name": "[F" + name + "]"
};

// Renders every system of the document and writes it to the card. Says "Please wait
// saving data" and "Save finished." in the progress label; refuses with "No systems to
// upload", "Please select a favorite file." or "Please enter a name for the new Favorite
// List", in that order. Over an existing list it first asks "Warning, data in existing
// Favorite List will be lost, Continue?"; a No ends the step with an empty message.
SaveOutcome saveDocumentToCard(FavoritesCard& card, Document& doc, const PageFiles& pages,
                               const SaveListRequest& request, Feedback& feedback);

struct ReadListsOutcome {
  StepStatus status;
  int systems = 0;  // systems added to the document
};

// Reads the lists with these numbers into the document, in the order given, each under
// the next free open-file row with the list's name. "Error, no files selected for
// upload." when none is given. The caller rebuilds the visible tree.
ReadListsOutcome readCardLists(const FavoritesCard& card, const std::vector<int>& numbers,
                               Document& doc, PageFiles& pages, Feedback& feedback);

}  // namespace zel::transfer
