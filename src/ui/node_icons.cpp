#include "ui/node_icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QtMath>
#include <functional>
#include <map>

#include "core/record_line.h"
#include "core/text.h"
#include "core/tree_operations.h"

namespace zel::ui {

namespace {

// One picture at the sizes a tree and a title bar ask for; `draw` paints a 32 by 32 square.
QIcon drawn(const std::function<void(QPainter&)>& draw) {
  QIcon icon;
  for (int size : {16, 24, 32, 48, 64}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 32.0, size / 32.0);
    draw(p);
    icon.addPixmap(pixmap);
  }
  return icon;
}

void star(QPainter& p) {
  QPainterPath path;
  for (int i = 0; i < 10; ++i) {
    const double r = i % 2 == 0 ? 14.5 : 6.0;
    const double a = qDegreesToRadians(-90.0 + i * 36.0);
    const QPointF pt(16 + r * std::cos(a), 17 + r * std::sin(a));
    if (i == 0) path.moveTo(pt); else path.lineTo(pt);
  }
  path.closeSubpath();
  p.setPen(QPen(QColor(150, 100, 0), 1.5));
  p.setBrush(QColor(250, 196, 40));
  p.drawPath(path);
}

// A rounded box with a whip antenna; `trunk` fills it with stacked channels, otherwise it
// carries one wave.
void system(QPainter& p, bool trunk) {
  const QColor body = trunk ? QColor(40, 90, 170) : QColor(30, 130, 80);
  p.setPen(QPen(body.darker(140), 2));
  p.drawLine(QPointF(23, 10), QPointF(23, 2));
  p.setBrush(body);
  p.drawRoundedRect(QRectF(3, 10, 26, 19), 4, 4);
  p.setPen(Qt::NoPen);
  p.setBrush(Qt::white);
  if (trunk) {
    for (int i = 0; i < 3; ++i) p.drawRect(QRectF(8, 14 + i * 5, 16, 2.5));
  } else {
    QPainterPath wave;
    wave.moveTo(7, 20);
    for (int x = 7; x <= 25; ++x) wave.lineTo(x, 20 - 4 * std::sin((x - 7) * M_PI / 4.5));
    p.setPen(QPen(Qt::white, 2.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(wave);
  }
}

void tower(QPainter& p) {
  p.setPen(QPen(QColor(190, 80, 20), 2.5));
  p.drawLine(QPointF(16, 10), QPointF(8, 30));
  p.drawLine(QPointF(16, 10), QPointF(24, 30));
  p.drawLine(QPointF(11, 23), QPointF(21, 23));
  p.setBrush(QColor(230, 110, 30));
  p.drawEllipse(QPointF(16, 8), 3, 3);
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(230, 110, 30), 2));
  p.drawArc(QRectF(6, -2, 20, 20), 30 * 16, 120 * 16);
  p.drawArc(QRectF(1, -7, 30, 30), 40 * 16, 100 * 16);
}

void folder(QPainter& p, bool talkgroups) {
  const QColor front = talkgroups ? QColor(110, 160, 235) : QColor(250, 210, 90);
  p.setPen(QPen(front.darker(170), 1.5));
  p.setBrush(front.darker(120));
  QPainterPath back;
  back.moveTo(3, 8);
  back.lineTo(12, 8);
  back.lineTo(15, 11);
  back.lineTo(29, 11);
  back.lineTo(29, 27);
  back.lineTo(3, 27);
  back.closeSubpath();
  p.drawPath(back);
  p.setBrush(front);
  p.drawRoundedRect(QRectF(3, 14, 26, 14), 2, 2);
}

void scanner(QPainter& p) {
  p.setPen(QPen(QColor(30, 30, 30), 2.5));
  p.drawLine(QPointF(24, 9), QPointF(27, 1));
  p.setPen(QPen(QColor(20, 20, 24), 1.5));
  p.setBrush(QColor(55, 58, 66));
  p.drawRoundedRect(QRectF(2, 8, 28, 22), 4, 4);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(250, 196, 40));
  p.drawRoundedRect(QRectF(5, 11, 22, 8), 1.5, 1.5);
  p.setBrush(QColor(30, 30, 30));
  for (int i = 0; i < 3; ++i) p.drawRect(QRectF(7, 12.5 + i * 2, 10 + (i % 2) * 6, 1));
  p.setBrush(QColor(200, 200, 205));
  for (int i = 0; i < 4; ++i) p.drawEllipse(QPointF(8 + i * 5.3, 25), 1.8, 1.8);
}

}  // namespace

NodeKind nodeKindOf(const Document& doc, std::string_view key) {
  if (startsWith(key, "FAV-")) return NodeKind::List;
  if (startsWith(key, "SIT-")) return NodeKind::Site;
  const std::string line = treemod::getText(doc.data, key);
  if (startsWith(key, "SYS-"))
    return record::field(line, 1) == "Conventional" ? NodeKind::ConventionalSystem
                                                    : NodeKind::TrunkSystem;
  if (startsWith(key, "GRP-"))
    return record::field(line, 1) == "T-Group" || record::field(line, 0) == "TIN"
               ? NodeKind::TalkgroupDepartment
               : NodeKind::Department;
  return NodeKind::Other;
}

QIcon nodeIcon(NodeKind kind) {
  static std::map<NodeKind, QIcon> cache;
  auto it = cache.find(kind);
  if (it != cache.end()) return it->second;
  QIcon icon;
  switch (kind) {
    case NodeKind::List: icon = drawn(star); break;
    case NodeKind::ConventionalSystem: icon = drawn([](QPainter& p) { system(p, false); }); break;
    case NodeKind::TrunkSystem: icon = drawn([](QPainter& p) { system(p, true); }); break;
    case NodeKind::Site: icon = drawn(tower); break;
    case NodeKind::Department: icon = drawn([](QPainter& p) { folder(p, false); }); break;
    case NodeKind::TalkgroupDepartment: icon = drawn([](QPainter& p) { folder(p, true); }); break;
    case NodeKind::Other: break;
  }
  cache.emplace(kind, icon);
  return icon;
}

QIcon applicationIcon() {
  static const QIcon icon = drawn(scanner);
  return icon;
}

}  // namespace zel::ui
