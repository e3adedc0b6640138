// The bandscope: the scanner as a spectrum sweeper. The sweep engine of the scope library
// programs a custom search range and files the stream; this window holds its controls, runs
// its timers on QTimers, draws the line graph over the waterfall and keeps the statistics
// list. Settings live in section "scope" and are read at open and written at close.
//
// Construction and settings are in bandscope_window.cpp; the sweep (connect, start, stop,
// timers, drawing, the saved pictures) in bandscope_sweep.cpp.
#pragma once

#include <QMainWindow>
#include <array>
#include <memory>
#include <string>

#include "core/memory_ports.h"
#include "core/ports.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_timer_host.h"
#include "scope/sweep_engine.h"
#include "scope/waterfall.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTimer;

namespace zel::ui {

class ScopePicture;
class ScopeStatsList;

struct ScopePreset {
  const char* caption;
  const char* start;
  const char* stop;
  int stepIndex;  // in the step list
  int modeIndex;  // in the mode list
};
// Airband, marine VHF, 2 m, 70 cm, FRS/GMRS, 800 MHz public safety.
const std::array<ScopePreset, 6>& scopePresets();

class BandscopeWindow : public QMainWindow {
  Q_OBJECT
 public:
  BandscopeWindow(SettingsStore& settings, Feedback& feedback, const std::string& dataFolder,
                  QWidget* parent = nullptr);
  ~BandscopeWindow() override;

  scope::SweepEngine& engine() { return *engine_; }
  const scope::Waterfall& waterfall() const { return waterfall_; }
  ScopePicture* graph() const { return graph_; }
  ScopePicture* waterfallView() const { return waterfallView_; }
  ScopeStatsList* statistics() const { return stats_; }
  QComboBox* portList() const { return ports_; }
  // The pictures Stop wrote last (full paths, "" before the first stop).
  const std::string& lastBmp() const { return lastBmp_; }
  const std::string& lastPng() const { return lastPng_; }
  // The history picture reloaded at open ("waterfall.bmp"), empty when there was none.
  const scope::Raster& reloadedPicture() const { return reloaded_; }

  void connectPort();
  bool startUpdate();
  void stopSweep();
  void applyPreset(int index);
  // The save button: writes "Waterfall/waterfall_saved_...", then asks before clearing.
  void saveAndClearWaterfall();
  // "Marker=" and the frequency under pixel x of a picture `width` wide; "" for x < 0.
  QString markerText(int x, int width) const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildControls(QWidget* host);
  QWidget* buildScopeArea(QWidget* parent);
  void loadSettings();
  void saveSettings();
  void fillPorts(const std::string& saved);
  scope::SweepRequest request() const;
  void syncTimers();
  void fire(int timer);
  void drawn(bool sweepEnded);
  void showLabels();
  QImage renderGraph(QSize size) const;
  QImage renderWaterfall(QSize size) const;
  int waterfallBins() const;
  bool writePictures(const std::string& prefix, std::string* bmp, std::string* png);
  void centerSpanChanged();

  SettingsStore& settings_;
  Feedback& feedback_;
  std::string dataFolder_;
  QtSerialPort port_;
  SystemClock clock_;
  QtEventPump pump_;
  std::unique_ptr<scope::SweepEngine> engine_;
  scope::Waterfall waterfall_;
  scope::Traces frame_;     // an SDS frame as row 2, 1-based, as the waterfall takes it
  scope::Raster reloaded_;  // the saved history shown beneath the live rows
  std::array<QTimer*, 3> timers_{};
  std::string lastBmp_, lastPng_;
  bool closing_ = false;

  QComboBox* ports_ = nullptr;
  QLabel* model_ = nullptr;
  QRadioButton* startStop_ = nullptr;   // Option1(0)
  QRadioButton* centerSpan_ = nullptr;  // Option1(1)
  std::array<QLineEdit*, 4> freq_{};    // Text1(2) start, (3) stop, (4) centre, (5) span
  QComboBox* mode_ = nullptr;           // Combo1
  QComboBox* step_ = nullptr;           // Combo2
  QComboBox* slot_ = nullptr;           // Combo3
  QComboBox* noise_ = nullptr;          // Combo5
  QComboBox* amplify_ = nullptr;        // Combo6
  QComboBox* squelch_ = nullptr;        // Combo7
  std::array<QCheckBox*, 6> check_{};   // Check1 .. Check6
  QCheckBox* peakHold_ = nullptr;       // bc_view1
  QCheckBox* lowHold_ = nullptr;        // bc_view2
  QScrollBar* level_ = nullptr;         // HScroll1
  QLabel* levelText_ = nullptr;
  QLabel* label9_ = nullptr;         // resolution, steps, sweeps
  QLabel* label8_ = nullptr;         // "ATT ON"
  std::array<QLabel*, 2> label5_{};  // frequency and level of the last line
  std::array<QLabel*, 3> label6_{};  // low edge, high edge, middle
  QLabel* marker_ = nullptr;
  ScopePicture* graph_ = nullptr;
  ScopePicture* waterfallView_ = nullptr;
  ScopeStatsList* stats_ = nullptr;
  QListWidget* stream_ = nullptr;  // List1
  QListWidget* open_ = nullptr;    // List2
};

// Opens the bandscope (deleted when it is closed).
BandscopeWindow* openBandscope(QWidget* parent, SettingsStore& settings, Feedback& feedback,
                               const std::string& dataFolder);

}  // namespace zel::ui
