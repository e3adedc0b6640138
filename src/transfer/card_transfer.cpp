#include "transfer/card_transfer.h"

#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"

namespace zel::transfer {

SaveOutcome saveDocumentToCard(FavoritesCard& card, Document& doc, const PageFiles& pages,
                               const SaveListRequest& request, Feedback& feedback) {
  SaveOutcome out;
  auto refuse = [&](const char* text) {
    out.status = {false, text};
    feedback.message(text);
    return out;
  };
  formats::HpdWriteOptions options;
  options.toScanner = true;
  formats::HpdWriteResult rendered;
  const std::string text = formats::renderHpd(doc, pages, options, feedback, rendered);
  if (!rendered.ok() || rendered.systems == 0) return refuse("No systems to upload");
  if (request.overwrite && card.rowOfNumber(*request.overwrite) < 0) {
    return refuse("Please select a favorite file.");
  }
  if (!request.overwrite && request.name.empty()) {
    return refuse("Please enter a name for the new Favorite List");
  }
  if (request.overwrite &&
      feedback.ask("", "Warning, data in existing Favorite List will be lost, Continue?",
                   Buttons::YesNo) != Answer::Yes) {
    out.status = {false, ""};  // the user said no: nothing to tell
    return out;
  }
  feedback.progress("Please wait saving data");
  out = card.saveList(text, request.name, request.overwrite, request.copyInName);
  if (!out.status.ok) {
    feedback.progress(out.status.message);
    return out;
  }
  feedback.progress("Save finished.");
  return out;
}

ReadListsOutcome readCardLists(const FavoritesCard& card, const std::vector<int>& numbers,
                               Document& doc, PageFiles& pages, Feedback& feedback) {
  ReadListsOutcome out;
  if (numbers.empty()) {
    out.status = {false, "Error, no files selected for upload."};
    return out;
  }
  for (int n : numbers) {
    const int row = card.rowOfNumber(n);
    if (row < 0) {
      out.status = {false, "There is no favorites list " + std::to_string(n) + "."};
      return out;
    }
    const auto& r = card.rows()[row];
    // Each list takes the next free row of the open files, beside what is open already.
    const int fileRow = doc.files.freeRow();
    if (fileRow == 0) {
      out.status = {false, "Error, maximum number of hpd files is 99!"};
      return out;
    }
    feedback.progress("Wait reading data: " + r.name);
    formats::HpdReadOptions options;
    options.fileIndex = fileRow;
    options.fromScanner = true;
    auto read = formats::readHpd(doc, pages, card.paths().path(r.file), options, feedback);
    if (!read.ok()) {
      out.status = {false, read.message};
      return out;
    }
    doc.files.set(fileRow, OpenFileTable::ListName, r.name);
    out.systems += read.counts.systems;
  }
  return out;
}

}  // namespace zel::transfer
