// The CSV mapper window: a delimited text loaded into a work grid, cleaned by line and cell
// filters, its columns given meanings, and sent on as a plain file, to the clipboard, or
// pasted into the grid on show through the cell commit. "To CSV" writes the favorites
// export. The window's place is kept in the settings section "csv" (twips, as the other
// windows keep theirs).
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "core/session.h"
#include "exchange/csv_mapper.h"
#include "grid/grid_page.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QHBoxLayout;
class QRadioButton;
class QSpinBox;
class QTableView;
class QTableWidget;

namespace zel::ui {

class GridPageModel;

class CsvMapperDialog : public QDialog {
  Q_OBJECT

 public:
  // `grid` is the grid on show for "Paste Frequencies" (null when none is); `changed` is
  // called after a paste changed it.
  CsvMapperDialog(Session& session, Feedback& feedback, GridPage* grid,
                  std::function<void()> changed, QWidget* parent = nullptr);

  void setGrid(GridPage* grid);

  // Loads a file or a text into the work grid with the chosen separator and the checked
  // "Line must ..." conditions. False only when the text passes the line limit.
  bool loadFile(const QString& path);
  bool loadText(const QString& text);
  // "Clipboard import:": the clipboard's text, read like a file.
  bool importClipboard();

  void autoDetect();
  void addColumn();
  int applyLineFilters();  // the checked "Line must ..." conditions on the loaded grid
  int removeEmptyLines();
  int removeWithoutNumbers();
  int applyCellFilters();  // "Apply"

  // The plain grid export; returns the path written ("" when it failed).
  QString saveCsv(const QString& path);
  // The mapped columns to the clipboard; returns the text.
  QString copyToClipboard();
  // "Paste Frequencies": the clipboard into the grid on show; returns the rows added.
  int pasteFrequencies();
  // "To CSV": the "[ZEL CSV FILE]" export of the systems in use.
  bool exportZelCsv(const QString& path);

  exchange::CsvMapper& mapper() { return mapper_; }
  QComboBox* meaningBox(int column) const;
  QTableView* workGrid() const { return view_; }

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* buildLineFilters();
  QWidget* buildCellFilters();
  QPushButton* addButton(QHBoxLayout* row, QWidget* bar, const char* caption, const char* name,
                         std::function<void()> handler);
  QWidget* buildButtons();
  QWidget* buildTransfers();
  void refresh();
  void rebuildMeaningBoxes();
  std::vector<int> chosenRows() const;
  exchange::RowFilters lineFilters() const;
  QString withSeparator(const QString& text) const;
  void restorePosition();
  void storePosition();
  void openFileDialog();
  void saveCsvDialog();
  void toCsvDialog();

  Session& session_;
  Feedback& feedback_;
  GridPage* grid_;
  std::function<void()> changed_;
  exchange::CsvMapper mapper_;

  QTableView* view_ = nullptr;
  GridPageModel* model_ = nullptr;
  QTableWidget* combos_ = nullptr;
  QComboBox* separator_ = nullptr;
  // "Line must ..."
  QCheckBox* mustFrequency_ = nullptr;
  QCheckBox* mustComma_ = nullptr;
  QCheckBox* mustDigits_ = nullptr;
  QSpinBox* digits_ = nullptr;
  QCheckBox* mustDash_ = nullptr;
  QCheckBox* mustText_ = nullptr;
  QLineEdit* text1_ = nullptr;
  QCheckBox* mustBy16_ = nullptr;
  // "Filter Options (selected cells):"
  QRadioButton* autoSelect_ = nullptr;
  QRadioButton* selectedRows_ = nullptr;
  QRadioButton* entireRow_ = nullptr;
  QRadioButton* allColumns_ = nullptr;
  QRadioButton* singleColumn_ = nullptr;
  QSpinBox* column_ = nullptr;
  QRadioButton* upper_ = nullptr;
  QRadioButton* lower_ = nullptr;
  QRadioButton* replace_ = nullptr;
  QRadioButton* remove_ = nullptr;
  QLineEdit* replaceFind_ = nullptr;
  QLineEdit* replaceBy_ = nullptr;
  QLineEdit* removeText_ = nullptr;
  QPushButton* paste_ = nullptr;
};

}  // namespace zel::ui
