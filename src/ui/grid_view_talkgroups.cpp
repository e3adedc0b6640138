// The talkgroup form commands of the desktop grid's popup: "Convert AFS" rewrites every
// decimal talkgroup of the page in the AFS form of EDACS, "Convert Decimal" every AFS
// talkgroup back to four decimal digits. Rows that the conversion leaves alone (an
// individual ID, a form already converted, an empty cell) keep their text.
#include "grid/cell_commit_talkgroup.h"
#include "ui/grid_view.h"

namespace zel::ui {

int GridView::convertTalkgroupForms(bool toAfs) {
  if (!page_) return 0;
  const int col = page_->findColumn("Talkgroup");
  if (col < 1) return 0;
  finishEdit();
  syncToPage();
  int changed = 0;
  for (int r = 1; r < page_->rows(); ++r) {
    const std::string& id = page_->textMatrix(r, col);
    const std::optional<std::string> converted = toAfs ? cell::toAfs(id) : cell::toDecimal(id);
    if (!converted || *converted == id) continue;
    page_->setTextMatrix(r, col, *converted);
    ++changed;
  }
  if (changed > 0) {
    markChanged();
    syncFromPage(false);
    emit rowsChanged();
  }
  return changed;
}

}  // namespace zel::ui
