#include "qt_test_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QDialog>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include "wizard/start_up.h"

namespace tessaly::qt {

void WatchingUi::LetPendingEventsRun() {
  if (ProgressWindow* window = progressWindow()) {
    if (progressTexts.isEmpty() || progressTexts.constLast() != window->percentText()) {
      progressTexts << window->percentText();
    }
    if (!progressTitles.contains(window->windowTitle())) progressTitles << window->windowTitle();
  }
  if (onPendingEvents) onPendingEvents();
  QtUi::LetPendingEventsRun();
}

void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

void Click(QWidget* widget) {
  ASSERT_NE(widget, nullptr);
  // A check box or option takes clicks on its mark and caption only, and
  // may be wider than both.
  const bool markAtLeft = qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget);
  const QPoint at = markAtLeft ? QPoint(8, widget->height() / 2) : widget->rect().center();
  QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, at);
  Settle();
}

void TypeOver(QWidget* box, const QString& text) {
  QLineEdit* edit = qobject_cast<QLineEdit*>(box);
  if (auto* combo = qobject_cast<QComboBox*>(box)) edit = combo->lineEdit();
  ASSERT_NE(edit, nullptr);
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  QTest::keyClicks(edit, text);
  Settle();
}

bool DropFiles(QWidget* target, const QStringList& nativePaths, const QPoint* where) {
  QMimeData data;
  QList<QUrl> urls;
  for (const QString& path : nativePaths) urls << QUrl::fromLocalFile(path);
  data.setUrls(urls);
  const QPoint at = where != nullptr ? *where : target->rect().center();
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &enter);
  if (!enter.isAccepted()) return false;
  QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &move);
  if (!move.isAccepted()) return false;
  QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &drop);
  Settle();
  return drop.isAccepted();
}

namespace {

// How long a modal window may take to open, and to close once answered,
// before the test gives up on it: far beyond any wait on a busy machine.
constexpr int kModalPatienceMs = 10'000;

// Fails the test and closes `modal` if it is still open once the patience
// is spent, so that a lost answer ends its loop instead of hanging.
void CloseIfStillOpen(QPointer<QWidget> modal) {
  QTimer::singleShot(kModalPatienceMs, [modal] {
    if (modal.isNull() || !modal->isVisible()) return;
    ADD_FAILURE() << "modal window \"" << modal->windowTitle().toStdString()
                  << "\" still open " << kModalPatienceMs << " ms after it was answered";
    if (auto* dialog = qobject_cast<QDialog*>(modal.data())) {
      dialog->reject();
    } else {
      modal->close();
    }
  });
}

}  // namespace

void WhenModalOpens(std::function<void(QWidget*)> action) {
  // Polls, since the modal loop starts only after the call that opens it.
  auto* timer = new QTimer;
  timer->setInterval(10);
  QElapsedTimer waited;
  waited.start();
  QObject::connect(timer, &QTimer::timeout, [timer, action, waited] {
    QWidget* modal = QApplication::activeModalWidget();
    const bool open = modal != nullptr && modal->isVisible();
    if (!open && !waited.hasExpired(kModalPatienceMs)) return;
    timer->stop();
    timer->deleteLater();
    if (!open) {
      ADD_FAILURE() << "no modal window opened within " << kModalPatienceMs << " ms";
      return;
    }
    const QPointer<QWidget> answered(modal);
    action(modal);
    CloseIfStillOpen(answered);
  });
  timer->start();
}

QtWizardTest::~QtWizardTest() {
  // The windows go before the form they draw.
  if (QWidget* wizard = ui.wizardWindow()) delete wizard;
  Settle();
}

fTessaly& QtWizardTest::Start(std::string commandLine) {
  world.Start(std::move(commandLine));
  Settle();
  return *form;
}

QWidget* QtWizardTest::window() const { return ui.wizardWindow(); }

}  // namespace tessaly::qt

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
