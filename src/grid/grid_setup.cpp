#include "grid/grid_setup.h"

#include "core/settings.h"
#include "core/text.h"

namespace zel {

namespace {

std::size_t slotOf(Schema schema) {
  return static_cast<std::size_t>(schema);
}

const char* widthPrefix(Schema schema) {
  switch (schema) {
    case Schema::Channel:
      return "ccol_width";
    case Schema::Talkgroup:
      return "tcol_width";
    case Schema::Unit:
      return "ucol_width";
    case Schema::Site:
      return "fcol_width";
    case Schema::Search:
      return nullptr;
  }
  return nullptr;
}

constexpr const char* kWidthSection = "colwidth";

}  // namespace

int ColumnWidthTable::get(Schema schema, int col) const {
  const auto& list = widths_[slotOf(schema)];
  return col >= 0 && col < static_cast<int>(list.size()) ? list[col] : 0;
}

void ColumnWidthTable::set(Schema schema, int col, int width) {
  if (col < 0) return;
  auto& list = widths_[slotOf(schema)];
  if (col >= static_cast<int>(list.size())) list.resize(col + 1, 0);
  list[col] = width;
}

std::string columnWidthKey(Schema schema, int col) {
  const char* prefix = widthPrefix(schema);
  return prefix ? prefix + std::to_string(col) : std::string();
}

int defaultColumnWidth(Schema schema) {
  return schema == Schema::Unit ? 1500 : 1200;
}

int storedColumnWidth(SettingsStore* settings, Schema schema, int col) {
  int fallback = defaultColumnWidth(schema);
  std::string key = columnWidthKey(schema, col);
  if (!settings || key.empty()) return fallback;
  std::string text = Settings(*settings).getPlain(kWidthSection, key, std::to_string(fallback));
  long long width = leadingInteger(text);
  // Very narrow widths come from a damaged store or an old bug: they would hide a column.
  if (width <= 100) return fallback;
  return width > 1000000 ? 1000000 : static_cast<int>(width);
}

bool setupFromHeadings(GridPage* grid, Schema schema, const HeadingList& headings,
                       std::string_view routine, const GridSetup& setup) {
  if (!grid) {
    setup.env.noInput("g_r_elines no_invoer");
    return false;
  }
  int count = headingCount(headings);
  if (count == 0) setup.env.message(std::string(routine) + " error");

  grid->setRedraw(false);
  grid->clear();
  grid->setCols(count + 1);
  grid->setRows(setup.pageSize + 1);
  grid->setRowHeight(0, kHeadingRowHeight);
  for (int r = 1; r < grid->rows(); ++r) grid->setTextMatrix(r, 0, std::to_string(r));

  grid->setColWidth(0, kLabelColumnWidth);
  grid->setColWidth(1, kFirstColumnWidth);
  grid->setColAlignment(0, GridPage::kAlignCentre);
  for (int c = 1; c < grid->cols(); ++c) grid->setColAlignment(c, GridPage::kAlignLeft);

  // The stored widths come after the fixed ones, so a stored first column wins.
  for (int c = 1; c <= count; ++c) {
    int width = storedColumnWidth(setup.settings, schema, c);
    grid->setColWidth(c, width);
    if (setup.widths) setup.widths->set(schema, c, width);
  }

  grid->setTextMatrix(0, 0, "#");
  for (int c = 1; c <= count; ++c) {
    if (!headings[c].empty()) grid->setTextMatrix(0, c, headings[c]);
  }
  grid->setRow(grid->rows() > 1 ? 1 : 0);
  grid->setCol(grid->cols() > 1 ? 1 : 0);
  grid->setRedraw(true);
  return true;
}

bool setup_grid(GridPage* grid, const GridSetup& setup) {
  return setupFromHeadings(grid, Schema::Channel, schemaHeadings(Schema::Channel, setup.family),
                           "setup_grid", setup);
}

bool setup_tgrid(GridPage* grid, const GridSetup& setup) {
  return setupFromHeadings(grid, Schema::Talkgroup, schemaHeadings(Schema::Talkgroup, setup.family),
                           "setup_tgrid", setup);
}

bool setup_ugrid(GridPage* grid, const GridSetup& setup) {
  return setupFromHeadings(grid, Schema::Unit, schemaHeadings(Schema::Unit, setup.family),
                           "setup_ugrid", setup);
}

bool setup_fgrid(GridPage* grid, const GridSetup& setup) {
  return setupFromHeadings(grid, Schema::Site, schemaHeadings(Schema::Site, setup.family),
                           "setup_fgrid", setup);
}

void readBackColumnWidths(GridPage& grid, Schema schema, ColumnWidthTable& table) {
  for (int c = 1; c < grid.cols(); ++c) {
    if (grid.textMatrix(0, c) == kSortColumn) grid.setColWidth(c, 0);
    table.set(schema, c, grid.colWidth(c));
  }
}

void keepChosenColumnWidth(const GridSetup& setup, Schema schema, int col, int twips) {
  if (setup.widths) setup.widths->set(schema, col, twips);
  const std::string key = columnWidthKey(schema, col);
  if (setup.settings && !key.empty()) {
    Settings(*setup.settings).put(kWidthSection, key, std::to_string(twips));
  }
}

bool columnWidthChosen(SettingsStore* settings, Schema schema, int col) {
  const std::string key = columnWidthKey(schema, col);
  std::string ignored;
  return settings && !key.empty() && settings->read(kWidthSection, key, ignored);
}

void saveColumnWidths(const ColumnWidthTable& table, Schema schema, ScannerFamily family,
                      SettingsStore& settings) {
  const HeadingList& headings = schemaHeadings(schema, family);
  Settings store(settings);
  for (int c = 1; c <= headingCount(headings); ++c) {
    std::string key = columnWidthKey(schema, c);
    int width = table.get(schema, c);
    // A column hidden for the moment keeps the width it had before.
    if (key.empty() || width <= 0) continue;
    store.put(kWidthSection, key, std::to_string(width));
  }
}

}  // namespace zel
