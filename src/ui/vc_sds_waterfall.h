// The waterfall page of the SDS virtual control window: the scanner's own waterfall mode read
// through "GWF,1" while the page is on show. The band labels, the running mean, the strongest
// bin and the pointer are the scope library's SdsWaterfallPage; this panel shows them over a
// line graph and the waterfall. "Save WaterFall" keeps the picture as "waterfall_sds.bmp" in
// the data folder when the window closes, and it is shown again at the next open.
#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "control/vc_state.h"
#include "scope/sds_waterfall_page.h"

class QCheckBox;
class QLabel;
class QScrollBar;

namespace zel::ui {

class ScopePicture;

class SdsWaterfallPanel : public QWidget {
  Q_OBJECT
 public:
  SdsWaterfallPanel(const std::string& dataFolder, QWidget* parent = nullptr);

  // A "GWF,..." line of the decoder.
  void receive(const std::string& line);
  // The band labels from the decoded status (on every refresh tick).
  void refreshBand(const control::ScannerStatus& status);
  // Writes "waterfall_sds.bmp" when "Save WaterFall" is ticked.
  void keepPicture();

  scope::SdsWaterfallPage& page() { return page_; }
  ScopePicture* graph() const { return graph_; }
  ScopePicture* waterfallView() const { return waterfall_; }
  QString labelText(const QString& name) const;

 private:
  QImage renderGraph(QSize size) const;
  QImage renderWaterfall(QSize size) const;
  void pointerAt(int x, int width);

  std::string dataFolder_;
  scope::SdsWaterfallPage page_;
  scope::Raster reloaded_;
  QCheckBox* hold_ = nullptr;
  QCheckBox* save_ = nullptr;
  QScrollBar* depth_ = nullptr;
  QLabel* depthText_ = nullptr;
  std::array<QLabel*, 8> band_{};
  QLabel* maxSignal_ = nullptr;
  QLabel* pointer_ = nullptr;
  ScopePicture* graph_ = nullptr;
  ScopePicture* waterfall_ = nullptr;
};

}  // namespace zel::ui
