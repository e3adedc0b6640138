#include "ui/vc_scanner_face.h"

#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>

#include "control/command_surface.h"

namespace zel::ui {

QString latin1(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

namespace {
QColor lightColour(const std::string& name) {
  if (name == "White") return Qt::white;
  if (name == "Red") return QColor(220, 40, 40);
  if (name == "Blue") return QColor(60, 90, 230);
  if (name == "Magenta") return Qt::magenta;
  if (name == "Green") return QColor(40, 200, 60);
  if (name == "Yellow") return Qt::yellow;
  if (name == "Cyan") return Qt::cyan;
  return Qt::black;
}

// Key rows of each face, by key name; "" leaves a gap.
const std::vector<std::vector<QString>>& keyRows(control::Family family) {
  static const std::vector<std::vector<QString>> bcd{
      {"SCAN", "Search", "SERV", "RANG", "ZIP", "REPLAY"},
      {"SYSTEM", "DEPT", "CHANNEL", "AVOID", "FUNC", "MENU"},
      {"1", "2", "3", "u", "vfo", "t"},
      {"4", "5", "6", "VOL", "SQL", "MONI"},
      {"7", "8", "9", "MUTE", "F", ""},
      {".", "0", "E", "", "", ""}};
  static const std::vector<std::vector<QString>> sds{
      {"Scan", "Search", "SERV", "ZIP", "REPLAY", ""},
      {"SYSTEM", "DEPT", "CHANNEL", "AVOID", "FUNC", "MENU"},
      {"1", "2", "3", "u", "vfo", "t"},
      {"4", "5", "6", "VOL", "SQL", "MONI"},
      {"7", "8", "9", "M", "F", ""},
      {".", "0", "E", "", "", ""},
      {"Step", "SPAN", "Max Hold", "HOLD", "MF > CF", ""}};
  return family == control::Family::Bcd ? bcd : sds;
}

// What each key does, for its tooltip; the keyboard keys that press it are named too.
QString keyTip(control::Family family, const QString& key) {
  const bool sds = family == control::Family::Sds;
  static const std::map<QString, QString> tips{
      {"SCAN", "Scan: scan the favorites lists"},
      {"Scan", "Scan: scan the favorites lists"},
      {"Search", "Search: the custom search ranges"},
      {"SERV", "Service types: choose the kinds of service that are scanned"},
      {"RANG", "Range: how far around your location location-based systems are scanned"},
      {"ZIP", "ZIP: set your location by its postal code"},
      {"REPLAY", "Replay: play the last transmissions again"},
      {"SYSTEM", "System: hold on the system; press again for the next one"},
      {"DEPT", "Department: hold on the department; press again for the next one"},
      {"CHANNEL", "Channel: hold on the channel; press again for the next one"},
      {"AVOID", "Avoid: lock out the system, department or channel on hold"},
      {"FUNC", "Function: held, so that the next key does its second job"},
      {"MENU", "Menu: the scanner's menu (Escape)"},
      {"u", "Turn the knob left (Left or Down arrow)"},
      {"t", "Turn the knob right (Right or Up arrow, Space)"},
      {"vfo", "Knob: press the knob"},
      {"VOL", "Volume: press, then turn the knob"},
      {"SQL", "Squelch: press, then turn the knob"},
      {"MONI", "Monitor: open the squelch"},
      {"MUTE", "Mute: volume to 0"},
      {"M", "Mute: volume to 0"},
      {".", "Decimal point; No in a question"},
      {"E", "Enter; Yes in a question (Return)"},
      {"Step", "Waterfall: the step (the System key)"},
      {"SPAN", "Waterfall: the span (the Department key)"},
      {"Max Hold", "Waterfall: hold the peak trace (the Department key)"},
      {"HOLD", "Waterfall: hold the frequency (the Channel key)"},
      {"MF > CF", "Waterfall: the marker's frequency becomes the centre (the Channel key)"}};
  if (key == "F")
    return sds ? "F: the function key, pressed once" : "F: press the knob, as Knob does";
  if (key.size() == 1 && key[0].isDigit()) return "Number " + key;
  auto it = tips.find(key);
  return it == tips.end() ? QString() : it->second;
}

QString caption(const QString& key) {
  if (key == "t") return QStringLiteral("\u25B6");  // knob right
  if (key == "u") return QStringLiteral("\u25C0");  // knob left
  if (key == "vfo") return QStringLiteral("Knob");
  return key;
}
}  // namespace

ScannerDisplay::ScannerDisplay(control::Family family, const control::ScannerStatus& status,
                               QWidget* parent)
    : QWidget(parent), family_(family), status_(status) {
  setMinimumSize(360, 250);
}

QSize ScannerDisplay::sizeHint() const {
  return {440, 300};
}

void ScannerDisplay::paintNeedle(QPainter& p, const QRect& dial) {
  const auto& d = status_.display;
  // The needle's end lives in a 2500 by 1250 dial with its pivot at (1250, 1250).
  auto map = [&](double x, double y) {
    return QPointF(dial.left() + x * dial.width() / 2500.0,
                   dial.top() + y * dial.height() / 1250.0);
  };
  p.setPen(QPen(QColor(90, 90, 90), 1));
  p.drawArc(QRectF(map(250, 250), map(2250, 2250)), 0, 180 * 16);
  p.setPen(QPen(QColor(230, 80, 40), 2));
  p.drawLine(map(1250, 1250), map(d.needleX, d.needleY));
}

void ScannerDisplay::paintEvent(QPaintEvent*) {
  const auto& d = status_.display;
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), QColor(30, 30, 34));
  QRect lcd = rect().adjusted(8, 8, -8, -8);
  // The alert light frames the display on the SDS series.
  QColor frame = family_ == control::Family::Sds ? lightColour(d.backlight) : QColor(70, 70, 70);
  p.setPen(QPen(frame == Qt::black ? QColor(70, 70, 70) : frame, 3));
  p.setBrush(Qt::black);
  p.drawRoundedRect(lcd, 6, 6);

  // The largest type with which every line of the screen fits: the top line, the three
  // name rows, the screen's lines and, on the SDS series, the strip with the needle.
  int visibleRows = 0;
  while (visibleRows < static_cast<int>(d.rows.size()) && d.rows[visibleRows].visible)
    ++visibleRows;
  const bool sds = family_ == control::Family::Sds;
  QFont mono("Monospace");
  mono.setStyleHint(QFont::TypeWriter);
  int line = 0, strip = 0;
  for (int points = 10; points >= 6; --points) {
    mono.setPointSize(points);
    line = QFontMetrics(mono).height();
    strip = sds ? std::max(line + 6, 34) : 0;
    if (6 + (line + 4) + 3 * line + 8 + visibleRows * line + strip + 4 < lcd.height()) break;
  }
  p.setFont(mono);
  int y = lcd.top() + 6;

  // Top line: busy mark, signal bars, F mark, icon, knob direction.
  p.setPen(Qt::NoPen);
  p.setBrush(status_.busy ? QColor(60, 220, 90) : QColor(40, 60, 40));
  p.drawEllipse(QPoint(lcd.left() + 14, y + line / 2), 5, 5);
  for (int bar = 0; bar < 5; ++bar) {
    p.setBrush(bar < d.signalBars ? QColor(250, 210, 60) : QColor(60, 60, 50));
    int h = 3 + bar * 2;
    p.drawRect(lcd.left() + 28 + bar * 6, y + line - 2 - h, 4, h);
  }
  p.setPen(QColor(250, 210, 60));
  QString marks;
  if (d.fIcon) marks += "F ";
  if (d.icon) marks += d.icon == 1 ? "P25 " : "DIG ";
  if (d.arrow == "t") marks += QStringLiteral("\u25B2");
  if (d.arrow == "u") marks += QStringLiteral("\u25BC");
  p.drawText(lcd.left() + 70, y + line - 3, marks);
  p.drawText(lcd.right() - 120, y + line - 3, latin1(status_.modeText));
  y += line + 4;

  // The three name rows with their marks.
  static const char* kRow[3] = {"S", "D", "C"};
  for (int r = 0; r < 3; ++r) {
    const auto& m = d.marks[r];
    p.setPen(QColor(250, 210, 60));
    p.drawText(lcd.left() + 8, y + line - 3, kRow[r]);
    p.drawText(lcd.left() + 24, y + line - 3, latin1(d.names[r]).left(40));
    p.setPen(m.avoid ? QColor(240, 80, 60) : QColor(80, 80, 80));
    p.drawText(lcd.right() - 40, y + line - 3, "A");
    p.setPen(m.hold ? QColor(120, 220, 255) : QColor(80, 80, 80));
    p.drawText(lcd.right() - 24, y + line - 3, "H");
    y += line;
  }
  y += 4;
  p.setPen(QColor(90, 90, 60));
  p.drawLine(lcd.left() + 6, y, lcd.right() - 6, y);
  y += 4;

  // The screen's own lines, as many as the format word has.
  const int rowsBottom = lcd.bottom() - 4 - strip;
  rowsPainted_ = 0;
  for (int k = 0; k < visibleRows && y + line <= rowsBottom; ++k) {
    const auto& row = d.rows[k];
    QRect r(lcd.left() + 6, y, lcd.width() - 12, line);
    if (row.inverted) {
      p.fillRect(r, QColor(250, 210, 60));
      p.setPen(Qt::black);
    } else {
      p.setPen(QColor(250, 210, 60));
    }
    // The scanner's icon glyphs below the space have no picture here: they stay blank.
    QString text = latin1(row.text);
    for (QChar& c : text)
      if (c.unicode() < 0x20) c = ' ';
    p.drawText(r, Qt::AlignLeft | Qt::AlignVCenter, text);
    y += line;
    ++rowsPainted_;
  }

  // The SDS strip: the signal in dBm and the unit heard, and the needle at the right.
  if (sds) {
    const QRect band(lcd.left() + 8, lcd.bottom() - 4 - strip, lcd.width() - 16, strip);
    paintNeedle(p, QRect(band.right() - 2 * (strip - 2), band.top() + 2, 2 * (strip - 2),
                         strip - 2));
    QStringList parts;
    if (!status_.rssiText.empty()) parts << latin1(status_.rssiText) + " dBm";
    if (!status_.uidText.empty()) parts << "UID " + latin1(status_.uidText);
    p.setPen(QColor(250, 210, 60));
    p.drawText(band, Qt::AlignLeft | Qt::AlignVCenter, parts.join("   "));
  }
}

ScannerFace::ScannerFace(control::Family family, const control::ScannerStatus& status,
                         std::function<void(const std::string&)> pressKey, QWidget* parent)
    : QWidget(parent), pressKey_(std::move(pressKey)) {
  auto* layout = new QVBoxLayout(this);
  display_ = new ScannerDisplay(family, status, this);
  layout->addWidget(display_, 1);
  auto* keys = new QGridLayout;
  keys->setSpacing(3);
  const auto& rows = keyRows(family);
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    for (int c = 0; c < static_cast<int>(rows[r].size()); ++c) {
      const QString name = rows[r][c];
      if (name.isEmpty()) continue;
      auto* b = new QPushButton(caption(name), this);
      b->setObjectName("key " + name);
      b->setToolTip(keyTip(family, name));
      b->setFocusPolicy(Qt::NoFocus);  // the arrows and Enter belong to the window
      b->setMinimumWidth(56);
      connect(b, &QPushButton::clicked, this, [this, name] { pressKey_(name.toStdString()); });
      keys->addWidget(b, r, c);
    }
  }
  layout->addLayout(keys);
}

QPushButton* ScannerFace::key(const QString& name) const {
  return findChild<QPushButton*>("key " + name);
}

void ScannerFace::refresh() {
  display_->update();
}

}  // namespace zel::ui
