#include "qt_ui.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "bindings.h"
#include "list_dialogs.h"
#include "platform/open_file_answer.h"
#include "platform/machine.h"
#include "progress_window.h"
#include "text/visible_text.h"
#include "wizard/progress_form.h"
#include "wizard/tessaly_form.h"
#include "wizard_window.h"

namespace tessaly::qt {

namespace {

// The desktop filter's "description|pattern|..." pairs as Qt name filters.
// Its "*.*" means every file, with or without a period.
QStringList NameFilters(std::string_view filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString pattern = parts[i + 1];
    pattern.replace(QLatin1Char(';'), QLatin1Char(' '));
    if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
    filters << QStringLiteral("%1 (%2)").arg(parts[i], pattern);
  }
  if (filters.isEmpty()) filters << QStringLiteral("* (*)");
  return filters;
}

}  // namespace

QtUi::~QtUi() { DropViews(); }

void QtUi::DropViews() {
  delete progress_.data();
  delete wizard_.data();
}

QWidget* QtUi::Owner() const {
  return wizard_ != nullptr && wizard_->isVisible() ? wizard_.data() : nullptr;
}

MessageAnswer QtUi::MessageBox(std::string_view text, MessageButtons buttons,
                               std::string_view title) {
  QMessageBox box(Owner());
  // A file name in the text must show as it is: no markup, and its control
  // characters visible instead of acting as layout.
  box.setWindowTitle(ToQt(text::Visible(title, text::Layout::kNone)));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQtLines(text::Visible(text, text::Layout::kLineEnds)));
  if (buttons == MessageButtons::kOk) {
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MessageAnswer::kOk;
  }
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::Cancel);
  switch (box.exec()) {
    case QMessageBox::Yes:
      return MessageAnswer::kYes;
    case QMessageBox::No:
      return MessageAnswer::kNo;
    default:
      return MessageAnswer::kCancel;
  }
}

void QtUi::ShowModal(Form& dialog) {
  std::unique_ptr<QDialog> view;
  if (auto* replace = dynamic_cast<fReplaceAdvanced*>(&dialog)) {
    view = std::make_unique<ListDialog>(*replace, layout::DescribeReplaceAdvanced(*replace), Owner());
  } else if (auto* formatting = dynamic_cast<fUnwantedFormatting*>(&dialog)) {
    view = std::make_unique<ListDialog>(*formatting, layout::DescribeUnwantedFormatting(*formatting),
                                        Owner());
  } else {
    return;  // a form this front-end has no view for
  }
  view->exec();
}

void QtUi::Show(Form& form) {
  if (auto* wizard = dynamic_cast<fTessaly*>(&form)) {
    if (wizard_ == nullptr) {
      wizard_ = new WizardWindow(*wizard);
      wizard_->setAttribute(Qt::WA_DeleteOnClose);
    }
    wizard_->show();
    wizard_->raise();
  } else if (auto* progress = dynamic_cast<fProgress*>(&form)) {
    delete progress_.data();  // a new use loads a new form
    progress_ = new ProgressWindow(*progress, Owner());
    progress_->show();
  }
}

std::string QtUi::BrowseForFolder(std::string_view title, std::string_view startFolder) {
  QFileDialog dialog(Owner(), ToQt(title), QString::fromStdString(machine::NativePath(startFolder)));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  return machine::ModelPath(dialog.selectedFiles().constFirst().toStdString());
}

OpenFileAnswer QtUi::ShowOpenFileDialog(const OpenFileRequest& request) {
  QFileDialog dialog(Owner(), QString(), QString::fromStdString(machine::NativePath(request.initialDirectory)));
  dialog.setFileMode(QFileDialog::ExistingFiles);
  dialog.setNameFilters(NameFilters(request.filter));
  if (dialog.exec() != QDialog::Accepted) return {};
  return ShapeOpenFileAnswer(dialog.selectedFiles());
}

OpenFileAnswer ShapeOpenFileAnswer(const QStringList& nativePaths) {
  if (nativePaths.isEmpty()) return {};
  if (nativePaths.size() == 1) {
    return SingleFileAnswer(machine::ModelPath(nativePaths.constFirst().toStdString()));
  }
  const QString folder = QFileInfo(nativePaths.constFirst()).absolutePath();
  std::vector<std::string> names;
  for (const QString& path : nativePaths) names.push_back(QFileInfo(path).fileName().toStdString());
  return MultipleFilesAnswer(machine::ModelPath(folder.toStdString()), names);
}

void QtUi::LetPendingEventsRun() { QCoreApplication::processEvents(); }

}  // namespace tessaly::qt
