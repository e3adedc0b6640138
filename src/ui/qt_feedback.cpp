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

namespace {
QMessageBox::StandardButton buttonOf(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return QMessageBox::Yes;
    case Answer::No:
      return QMessageBox::No;
    case Answer::Ok:
      return QMessageBox::Ok;
    case Answer::Cancel:
      break;
  }
  return QMessageBox::Cancel;
}
}  // namespace

std::unique_ptr<QMessageBox> QtFeedback::questionBox(QWidget* parent, std::string_view title,
                                                     std::string_view text, Buttons buttons,
                                                     std::optional<Answer> preferred) {
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
  auto box = std::make_unique<QMessageBox>(QMessageBox::Question, fromLatin1(title),
                                           fromLatin1(text), set, parent);
  if (preferred && (set & buttonOf(*preferred))) box->setDefaultButton(buttonOf(*preferred));
  return box;
}

namespace {
Answer answerOf(int button) {
  switch (button) {
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
}  // namespace

Answer QtFeedback::ask(std::string_view title, std::string_view text, Buttons buttons) {
  return answerOf(questionBox(parent_, title, text, buttons, std::nullopt)->exec());
}

Answer QtFeedback::askPreferring(std::string_view title, std::string_view text, Buttons buttons,
                                 Answer preferred) {
  return answerOf(questionBox(parent_, title, text, buttons, preferred)->exec());
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
