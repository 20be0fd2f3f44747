#include "BenchState.h"
#include "Document.h"
#include "LmKSKernelData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TestSamples.h"
#include "WindowFixture.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>

/// Opening, saving and leaving as a person does it, and the question before unsaved work is lost.
class TestFileCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openDialogOpensAPicture();
    void cancelledOpenDialogChangesNothing();
    void badPictureIsToldAndChangesNothing();
    void titleShowsNameAndUnsavedChanges();
    void savedProjectComesBackAsItWas();
    void saveWithAPathAsksNothing();
    void saveIntoAMissingFolderIsToldAndLosesNothing();
    void closingWithoutChangesAsksNothing();
    void cancelKeepsTheWindowOpen();
    void discardClosesWithoutAFile();
    void saveInTheQuestionWritesAndCloses();
    void cancelledSaveDialogKeepsTheWindowOpen();
    void openingAsksBeforeWorkIsLost();
    void droppedFileIsOpened();
    void droppedTextIsNotTaken();
    void exportWritesThePictureWithItsObjects();
    void missingPictureCanBeLocatedAtOnce();
    void missingPictureCanBeLocatedLater();
    void locatingAsksForWhatIsMissing_data();
    void locatingAsksForWhatIsMissing();

private:
    static void saveAs(WindowFixture& aFixture, const QString& aPath);
    static bool sendDrag(QMainWindow& aWindow, const QMimeData& aData);
};

void TestFileCommands::saveAs(WindowFixture& aFixture, const QString& aPath)
{
    const ModalAnswer answer(ModalAnswer::chooseFile(aPath));
    aFixture.actions().theSaveAs->trigger();
}

void TestFileCommands::openDialogOpensAPicture()
{
    WindowFixture fixture(WindowFixture::kEmpty);
    const ModalAnswer answer(ModalAnswer::chooseFile(fixture.picturePath()));
    fixture.key(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(answer.isDone());
    QCOMPARE(fixture.bench().media().path(), fixture.picturePath());
    QCOMPARE(fixture.kernel().getCurrentImageSize(), QSize(400, 300));
}

void TestFileCommands::cancelledOpenDialogChangesNothing()
{
    WindowFixture fixture;
    const QString before = benchState(fixture.bench());
    const ModalAnswer answer(ModalAnswer::cancel());
    fixture.actions().theOpen->trigger();
    QCOMPARE(benchState(fixture.bench()), before);
}

void TestFileCommands::badPictureIsToldAndChangesNothing()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 40));
    saveAs(fixture, fixture.path(QStringLiteral("work.mtp")));
    const QString before = benchState(fixture.bench());
    MadeFiles::write(fixture.path(QStringLiteral("bad.png")), "this is no picture");
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    QVERIFY(!fixture.window().openAtStart(fixture.path(QStringLiteral("bad.png"))));
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QCOMPARE(benchState(fixture.bench()), before);
}

void TestFileCommands::titleShowsNameAndUnsavedChanges()
{
    WindowFixture fixture;
    QVERIFY(fixture.window().windowTitle().startsWith(QStringLiteral("picture.png[*]")));
    QVERIFY(!fixture.window().isWindowModified());
    fixture.draw(QPoint(40, 40), QPoint(140, 40));
    QVERIFY(fixture.window().isWindowModified());
    saveAs(fixture, fixture.path(QStringLiteral("work.mtp")));
    QVERIFY(fixture.window().windowTitle().startsWith(QStringLiteral("work.mtp[*]")));
    QVERIFY(!fixture.window().isWindowModified());
    fixture.stack().undo();
    QVERIFY(fixture.window().isWindowModified());
    fixture.stack().redo();
    QVERIFY(!fixture.window().isWindowModified());
}

void TestFileCommands::savedProjectComesBackAsItWas()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    fixture.draw(QPoint(60, 200), QPoint(60, 100));
    const QString records = recordsText();
    saveAs(fixture, fixture.path(QStringLiteral("work"))); // the ending comes by itself
    QVERIFY(QFile::exists(fixture.path(QStringLiteral("work.mtp"))));
    fixture.restart();
    QCOMPARE(fixture.distanceCount(), 0);
    QVERIFY(fixture.window().openAtStart(fixture.path(QStringLiteral("work.mtp"))));
    QCOMPARE(recordsText(), records);
    QVERIFY(!fixture.window().isWindowModified());
    QVERIFY(!fixture.stack().canUndo());
}

void TestFileCommands::saveWithAPathAsksNothing()
{
    WindowFixture fixture;
    saveAs(fixture, fixture.path(QStringLiteral("work.mtp")));
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    fixture.key(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!fixture.window().isWindowModified());
    QVERIFY(MadeFiles::read(fixture.path(QStringLiteral("work.mtp"))).contains("pos"));
}

void TestFileCommands::saveIntoAMissingFolderIsToldAndLosesNothing()
{
    WindowFixture fixture;
    QVERIFY(QDir().mkdir(fixture.path(QStringLiteral("sub"))));
    saveAs(fixture, fixture.path(QStringLiteral("sub/work.mtp")));
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    QVERIFY(QDir(fixture.path(QStringLiteral("sub"))).removeRecursively());
    const QString before = benchState(fixture.bench());
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    fixture.actions().theSave->trigger();
    QVERIFY(answer.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QVERIFY(fixture.window().isWindowModified());
    QCOMPARE(benchState(fixture.bench()), before);
}

void TestFileCommands::closingWithoutChangesAsksNothing()
{
    WindowFixture fixture;
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    QVERIFY(fixture.window().close());
    QVERIFY(!fixture.window().isVisible());
}

void TestFileCommands::cancelKeepsTheWindowOpen()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Cancel));
    fixture.actions().theQuit->trigger();
    QVERIFY(answer.isDone());
    QVERIFY(fixture.window().isVisible());
    QCOMPARE(fixture.distanceCount(), 1);
}

void TestFileCommands::discardClosesWithoutAFile()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Discard));
    QVERIFY(fixture.window().close());
    QVERIFY(answer.isDone());
    QVERIFY(QDir(fixture.path(QString())).entryList({QStringLiteral("*.mtp")}).isEmpty());
}

void TestFileCommands::saveInTheQuestionWritesAndCloses()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    const QString path = fixture.path(QStringLiteral("kept.mtp"));
    const ModalAnswer answers({ModalAnswer::press(QMessageBox::Save), ModalAnswer::chooseFile(path)});
    QVERIFY(fixture.window().close());
    QVERIFY(answers.isDone());
    QVERIFY(QFile::exists(path));
}

void TestFileCommands::cancelledSaveDialogKeepsTheWindowOpen()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    const ModalAnswer answers({ModalAnswer::press(QMessageBox::Save), ModalAnswer::cancel()});
    QVERIFY(!fixture.window().close());
    QVERIFY(fixture.window().isVisible());
}

void TestFileCommands::openingAsksBeforeWorkIsLost()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(140, 80));
    {
        const ModalAnswer answer(ModalAnswer::press(QMessageBox::Cancel));
        QVERIFY(!fixture.window().openAtStart(fixture.picturePath()));
    }
    QCOMPARE(fixture.distanceCount(), 1);
    const ModalAnswer answer(ModalAnswer::press(QMessageBox::Discard));
    QVERIFY(fixture.window().openAtStart(fixture.picturePath()));
    QCOMPARE(fixture.distanceCount(), 0);
}

/// Drags the data over the window and drops it; whether the window takes it.
bool TestFileCommands::sendDrag(QMainWindow& aWindow, const QMimeData& aData)
{
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &aData, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&aWindow, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &aData, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&aWindow, &drop);
    return drop.isAccepted();
}

void TestFileCommands::droppedFileIsOpened()
{
    WindowFixture fixture(WindowFixture::kEmpty);
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(fixture.picturePath())});
    QVERIFY(sendDrag(fixture.window(), dragged));
    QTRY_VERIFY(fixture.bench().media().isOpen());
    QCOMPARE(fixture.bench().media().path(), fixture.picturePath());
}

void TestFileCommands::droppedTextIsNotTaken()
{
    WindowFixture fixture(WindowFixture::kEmpty);
    QMimeData dragged;
    dragged.setText(QStringLiteral("picture.png"));
    QVERIFY(!sendDrag(fixture.window(), dragged));
    dragged.setUrls({QUrl(QStringLiteral("https://example.org/picture.png"))});
    QVERIFY(!sendDrag(fixture.window(), dragged));
}

void TestFileCommands::exportWritesThePictureWithItsObjects()
{
    WindowFixture fixture;
    fixture.draw(QPoint(40, 40), QPoint(340, 40));
    const QString path = fixture.path(QStringLiteral("out.png"));
    const ModalAnswer answer(ModalAnswer::chooseFile(path));
    fixture.actions().theExport->trigger();
    const QImage written(path);
    QCOMPARE(written.size(), QSize(400, 300));
    QVERIFY(written.convertToFormat(QImage::Format_RGB32) != madePicture(400, 300));
}

static void makeProjectWithoutPicture(WindowFixture& aFixture, const QString& aPath)
{
    QVERIFY(QFile::copy(aFixture.picturePath(), aFixture.path(QStringLiteral("gone.png"))));
    QVERIFY(aFixture.window().openAtStart(aFixture.path(QStringLiteral("gone.png"))));
    QCOMPARE(aFixture.draw(QPoint(40, 40), QPoint(140, 80)), 1);
    QString error;
    QVERIFY2(aFixture.bench().document().save(aPath, error), qPrintable(error));
    QVERIFY(QFile::remove(aFixture.path(QStringLiteral("gone.png"))));
}

void TestFileCommands::missingPictureCanBeLocatedAtOnce()
{
    WindowFixture fixture;
    const QString project = fixture.path(QStringLiteral("work.mtp"));
    makeProjectWithoutPicture(fixture, project);
    const ModalAnswer answers({ModalAnswer::press(QStringLiteral("Locate Picture...")),
                               ModalAnswer::chooseFile(fixture.picturePath())});
    QVERIFY(fixture.window().openAtStart(project));
    QVERIFY(answers.isDone());
    QVERIFY(!fixture.bench().document().isPictureMissing());
    QCOMPARE(fixture.distanceCount(), 1);
    QVERIFY(fixture.window().isWindowModified());
    QVERIFY(!fixture.actions().theLocate->isEnabled());
}

void TestFileCommands::missingPictureCanBeLocatedLater()
{
    WindowFixture fixture;
    const QString project = fixture.path(QStringLiteral("work.mtp"));
    makeProjectWithoutPicture(fixture, project);
    {
        const ModalAnswer answer(ModalAnswer::press(QStringLiteral("Not Now")));
        QVERIFY(fixture.window().openAtStart(project));
        QVERIFY(ModalAnswer::lastText().contains(QStringLiteral("gone.png")));
    }
    QVERIFY(fixture.bench().document().isPictureMissing());
    QVERIFY(fixture.actions().theLocate->isEnabled());
    const ModalAnswer answer(ModalAnswer::chooseFile(fixture.picturePath()));
    fixture.actions().theLocate->trigger();
    QVERIFY(!fixture.bench().document().isPictureMissing());
}

void TestFileCommands::locatingAsksForWhatIsMissing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("frames");
    QTest::addColumn<bool>("exists"); // without a picture in it
    QTest::addColumn<QFileDialog::FileMode>("mode");
    const auto row = [](const char* aName, int aFrames, bool aExists, QFileDialog::FileMode aMode) {
        QTest::addRow("%s, %d frames%s", aName, aFrames, aExists ? ", there" : "")
            << QString::fromLatin1(aName) << aFrames << aExists << aMode;
    };
    row("run", 3, false, QFileDialog::Directory);
    row("run.2", 3, false, QFileDialog::Directory);
    row("run", 1, false, QFileDialog::ExistingFile);
    row("run.2", 1, false, QFileDialog::ExistingFile);
    row("scan.tif", 3, false, QFileDialog::ExistingFile);
    row("clip.AVI", 3, false, QFileDialog::ExistingFile);
    row("clip", 3, true, QFileDialog::ExistingFile);
}

void TestFileCommands::locatingAsksForWhatIsMissing()
{
    QFETCH(QString, name);
    QFETCH(int, frames);
    QFETCH(bool, exists);
    QFETCH(QFileDialog::FileMode, mode);
    WindowFixture fixture;
    fixture.openPages(frames);
    const QString project = fixture.path(QStringLiteral("work.mtp"));
    saveAs(fixture, project);
    MadeFiles::write(project, MadeFiles::read(project).replace("pages.tif", name.toLatin1()));
    if (exists)
        MadeFiles::write(fixture.path(name), "no picture any more");
    auto asked = QFileDialog::AnyFile;
    const auto look = [&asked](QWidget* aDialog) {
        const auto* dialog = qobject_cast<QFileDialog*>(aDialog);
        asked = dialog ? dialog->fileMode() : QFileDialog::AnyFile;
        QTest::keyClick(aDialog, Qt::Key_Escape);
    };
    const ModalAnswer answers({ModalAnswer::press(QStringLiteral("Locate Picture...")), look});
    QVERIFY(fixture.window().openAtStart(project));
    QVERIFY(answers.isDone());
    QCOMPARE(asked, mode);
    QVERIFY(fixture.bench().document().isPictureMissing());
}

MEASURE_TEST_MAIN(TestFileCommands)
#include "TestFileCommands.moc"
