#include "ui/qt_feedback.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QStatusBar>

namespace zel::ui {

QString fromLatin1(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string toLatin1(const QString& text) { return text.toLatin1().toStdString(); }

void QtFeedback::attach(QWidget* parent, QStatusBar* status, QLabel* progress, QListWidget* list) {
  parent_ = parent;
  status_ = status;
  progress_ = progress;
  list_ = list;
}

void QtFeedback::message(std::string_view text, std::string_view title) {
  QMessageBox::information(parent_, title.empty() ? QStringLiteral("ZEL536") : fromLatin1(title),
                           fromLatin1(text));
}

Answer QtFeedback::ask(std::string_view title, std::string_view text, Buttons buttons) {
  QMessageBox::StandardButtons set;
  switch (buttons) {
    case Buttons::Ok:
      set = QMessageBox::Ok;
      break;
    case Buttons::YesNo:
      set = QMessageBox::Yes | QMessageBox::No;
      break;
    case Buttons::YesNoCancel:
      set = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
      break;
    case Buttons::OkCancel:
      set = QMessageBox::Ok | QMessageBox::Cancel;
      break;
  }
  auto answer = QMessageBox::question(parent_, fromLatin1(title), fromLatin1(text), set);
  switch (answer) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Ok:
      return Answer::Ok;
    default:
      return Answer::Cancel;
  }
}

void QtFeedback::status(std::string_view text) {
  if (status_) status_->showMessage(fromLatin1(text));
}

void QtFeedback::progress(std::string_view text) {
  if (progress_) progress_->setText(fromLatin1(text));
}

void QtFeedback::log(std::string_view line) {
  if (list_) list_->addItem(fromLatin1(line));
}

void QtFeedback::beep() { QApplication::beep(); }

}  // namespace zel::ui
