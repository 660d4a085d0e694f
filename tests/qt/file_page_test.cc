// Step 1 in the window: drops, the selection that Remove takes, the count.

#include <gmock/gmock.h>

#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

#include "platform/posix/native_path.h"
#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

class FilePageTest : public QtWizardTest {
 protected:
  void SetUp() override {
    Start();
    form->lblStep[1].Click();
    Settle();
    list = Find<QListView>(window(), "lstFiles");
  }
  QStringList Rows() const {
    QStringList rows;
    for (int i = 0; i < list->model()->rowCount(); ++i) rows << list->model()->index(i, 0).data().toString();
    return rows;
  }
  QListView* list = nullptr;
};

TEST_F(FilePageTest, DroppedPathsArriveInModelFormFolderIncluded) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/srv/photos/b.jpg", "/srv/photos/", "/srv/a b\\c.jpg"}));
  // A native backslash is an ordinary character of the name; the folder
  // comes without its closing slash.
  EXPECT_EQ(Rows(), (QStringList{"\\srv\\a b/c.jpg", "\\srv\\photos", "\\srv\\photos\\b.jpg"}));
  // Text without files adds nothing, but the count is shown again.
  EXPECT_TRUE(DropText(list->viewport(), "just some words"));
  EXPECT_EQ(Rows().size(), 3);
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "3 files.");
}

TEST_F(FilePageTest, EveryDropTargetOfThePageTakesFiles) {
  int expected = 0;
  for (const char* name : {"Frame2", "Label11", "lblText1", "pStep1"}) {
    const QString path = QStringLiteral("/d/%1.txt").arg(QLatin1String(name));
    // Near a corner: the frame's and the page's centres lie on their
    // controls.
    QWidget* target = Find<QWidget>(window(), name);
    const QPoint corner(target->width() - 3, target->height() - 3);
    EXPECT_TRUE(DropFiles(target, {path}, &corner)) << name;
    EXPECT_EQ(list->model()->rowCount(), ++expected) << name;
  }
}

TEST_F(FilePageTest, RemoveTakesExactlyTheRowsSelectedInTheView) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/d/e", "/d/d", "/d/c", "/d/b", "/d/a"}));
  // A click, then control-clicks at the far end and in the middle.
  for (int row : {0, 4, 2}) {
    const QRect cell = list->visualRect(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton,
                      row == 0 ? Qt::NoModifier : Qt::ControlModifier, cell.center());
  }
  Click(Find<QPushButton>(window(), "cmdRemove"));
  EXPECT_EQ(Rows(), (QStringList{"\\d\\b", "\\d\\d"}));
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "2 files.");
  EXPECT_TRUE(list->selectionModel()->selectedRows().isEmpty());
  Click(Find<QPushButton>(window(), "cmdClear"));
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "0 files.");
}

TEST_F(FilePageTest, AddFilesTakesEveryFileChosenInTheDialog) {
  QTemporaryDir folder;
  for (const char* name : {"b.txt", "a.txt", "c"}) {
    QFile file(QDir(folder.path()).filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  WhenModalOpens([&](QWidget* modal) {
    auto* dialog = qobject_cast<QFileDialog*>(modal);
    ASSERT_NE(dialog, nullptr);
    dialog->setDirectory(folder.path());
    // Typed into the name box: selectFile leaves the box alone once it has
    // the focus, which it takes at some moment after opening.
    Find<QLineEdit>(dialog, "fileNameEdit")->setText("\"b.txt\" \"a.txt\"");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  Click(Find<QPushButton>(window(), "cmdAddFiles"));
  const QString model = QString::fromStdString(ToModelPath(folder.path().toStdString()));
  EXPECT_EQ(Rows(), (QStringList{model + "\\a.txt", model + "\\b.txt"}));
}

TEST_F(FilePageTest, OneChosenFileIsAnsweredAsTheDesktopDialogDoes) {
  const OpenFileAnswer answer = ShapeOpenFileAnswer({"/d/photo.jpeg"});
  EXPECT_EQ(answer.buffer.substr(0, 14), std::string("\\d\\photo.jpeg\0", 14));
  EXPECT_EQ(answer.extensionOffset, 9);
}

}  // namespace
}  // namespace tessaly::qt
