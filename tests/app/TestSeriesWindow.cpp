#include "Document.h"
#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmImage.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "MadeFiles.h"
#include "Media.h"
#include "ModalAnswer.h"
#include "Sentence.h"
#include "TestFont.h"
#include "TimelineDock.h"
#include "WindowFixture.h"

#include <QAction>
#include <QDir>
#include <QSpinBox>
#include <QStatusBar>

namespace {

// By number, which isn't how their letters sort.
const QStringList kNames{QStringLiteral("shot8.png"), QStringLiteral("shot9.png"),
                         QStringLiteral("shot10.png"), QStringLiteral("shot11.png")};

/// A window, and a folder of pictures whose gray tells their place.
class SeriesWindow : public WindowFixture
{
public:
    SeriesWindow() : WindowFixture(kEmpty)
    {
        if (!QDir().mkpath(folder()))
            QTest::qFail("the folder couldn't be made", __FILE__, __LINE__);
        for (int frame = 0; frame < kNames.size(); ++frame)
            MadeFiles::write(file(frame), MadeFiles::encoded(picture(frame), "png"));
    }

    static int grayOf(int aFrame) { return 40 * (aFrame + 1); }
    static QImage picture(int aFrame, const QSize& aSize = QSize(400, 300))
    {
        QImage picture(aSize, QImage::Format_Grayscale8);
        picture.fill(grayOf(aFrame));
        return picture;
    }
    QString folder() { return path(QStringLiteral("series.1")); }
    QString file(int aFrame) { return QDir(folder()).filePath(kNames[aFrame]); }
    Media& media() { return bench().media(); }
    /// The gray that is shown.
    int gray() { return media().isOpen() ? *media().image()->row(0) : -1; }
    QSpinBox& frameField() { return *window().findChild<QSpinBox*>(QStringLiteral("frameNumber")); }
    QString message() { return window().statusBar()->currentMessage(); }

    /// Opens a folder with the dialog of the menu.
    void openFolder(const QString& aFolder)
    {
        const ModalAnswer answer(ModalAnswer::chooseFile(aFolder));
        key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    }
    QString saveAs(const QString& aName)
    {
        const ModalAnswer answer(ModalAnswer::chooseFile(path(aName)));
        actions().theSaveAs->trigger();
        return path(aName);
    }
};

} // namespace

/// Measuring on the pictures of a folder in the window.
class TestSeriesWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuOpensAFolder();
    void cancelledDialogChangesNothing();
    void framesAreSteppedBothWays();
    void movingThingIsMeasuredOnSeveralPictures();
    void projectOfASeriesComesBack();
    void missingSeriesIsLocatedAsAFolder();
    void shorterSeriesIsToldWhenItIsLocated();
    void damagedPictureIsToldAndSteppedOver();
    void picturesOfAnotherSizeAreToldOf();
    void folderWithoutPicturesIsToldAndThePresentOneStays();
};

void TestSeriesWindow::menuOpensAFolder()
{
    SeriesWindow f;
    QVERIFY(!f.window().findChild<TimelineDock*>()->isVisible());
    f.openFolder(f.folder());
    QCOMPARE(f.media().path(), f.folder());
    QCOMPARE(f.media().frameCount(), int(kNames.size()));
    QCOMPARE(f.kernel().theFrameCount, Int64(kNames.size()));
    QCOMPARE(f.gray(), SeriesWindow::grayOf(0));
    QVERIFY(f.window().findChild<TimelineDock*>()->isVisible());
    QCOMPARE(f.frameField().maximum(), int(kNames.size()));
    QVERIFY2(f.window().windowTitle().startsWith(QStringLiteral("series.1[*]")),
             qPrintable(f.window().windowTitle()));
    QCOMPARE(f.message(), QString());
}

void TestSeriesWindow::cancelledDialogChangesNothing()
{
    SeriesWindow f;
    const ModalAnswer answer(ModalAnswer::cancel());
    f.actions().theOpenFolder->trigger();
    QVERIFY(answer.isDone());
    QVERIFY(!f.media().isOpen());
}

void TestSeriesWindow::framesAreSteppedBothWays()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    for (int frame = 1; frame < kNames.size(); ++frame) {
        f.key(Qt::Key_PageDown);
        QCOMPARE(f.gray(), SeriesWindow::grayOf(frame));
        QCOMPARE(f.frameField().value(), frame + 1);
    }
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(2));
    f.frameField().setValue(1);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(0));
}

void TestSeriesWindow::movingThingIsMeasuredOnSeveralPictures()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    QCOMPARE(f.draw(QPoint(50, 50), QPoint(150, 50)), 1);
    f.window().findChild<QAction*>(QStringLiteral("animate-object"))->trigger();
    f.frameField().setValue(3);
    f.drag(QPoint(150, 50), QPoint(250, 50));
    QCOMPARE(f.distance(1)->getKeyframedFrames(), (QList<long long>{0, 2}));
    // The vector from the middle to the end.
    QCOMPARE(f.value(1, QStringLiteral("ep")).toPoint(), QPoint(100, 0));
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.value(1, QStringLiteral("ep")).toPoint(), QPoint(75, 0));
}

void TestSeriesWindow::projectOfASeriesComesBack()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.frameField().setValue(3);
    const QString project = f.saveAs(QStringLiteral("series.mtp"));
    QVERIFY(!f.window().isWindowModified());
    f.restart();
    const ModalAnswer nothing(QList<ModalAnswer::Answer>{});
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(!f.bench().document().isPictureMissing());
    QCOMPARE(f.media().path(), f.folder());
    QCOMPARE(f.distanceCount(), 1);
    QCOMPARE(f.frameField().value(), 3);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(2));
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(3));
}

void TestSeriesWindow::missingSeriesIsLocatedAsAFolder()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    f.draw(QPoint(50, 50), QPoint(150, 50));
    f.frameField().setValue(2);
    const QString project = f.saveAs(QStringLiteral("series.mtp"));
    const QString moved = f.path(QStringLiteral("elsewhere"));
    QVERIFY(QDir().rename(f.folder(), moved));
    const ModalAnswer answers(
        {ModalAnswer::press(QStringLiteral("Locate Picture...")), ModalAnswer::chooseFile(moved)});
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(answers.isDone());
    QVERIFY(!f.bench().document().isPictureMissing());
    QCOMPARE(f.media().path(), moved);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(1));
    QCOMPARE(f.distanceCount(), 1);
    QVERIFY(f.window().isWindowModified());
}

void TestSeriesWindow::shorterSeriesIsToldWhenItIsLocated()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    f.frameField().setValue(4);
    const QString project = f.saveAs(QStringLiteral("series.mtp"));
    QVERIFY(QFile::remove(f.file(3)));
    const QString moved = f.path(QStringLiteral("elsewhere"));
    QVERIFY(QDir().rename(f.folder(), moved));
    const ModalAnswer answers({ModalAnswer::press(QStringLiteral("Locate Picture...")),
                               ModalAnswer::chooseFile(moved), ModalAnswer::press(QMessageBox::Ok)});
    QVERIFY(f.window().openAtStart(project));
    QVERIFY(answers.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QVERIFY2(ModalAnswer::lastText().contains(QStringLiteral("has 3 frames instead of 4")),
             qPrintable(ModalAnswer::lastText()));
    QVERIFY(!f.bench().document().isPictureMissing());
    QCOMPARE(f.gray(), SeriesWindow::grayOf(2));
}

void TestSeriesWindow::damagedPictureIsToldAndSteppedOver()
{
    SeriesWindow f;
    const QByteArray whole = MadeFiles::read(f.file(1));
    MadeFiles::write(f.file(1), whole.left(whole.size() / 2)); // its size can still be read
    f.openFolder(f.folder());
    QCOMPARE(f.media().frameCount(), int(kNames.size()));
    QCOMPARE(f.message(), QString());
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.kernel().theCurrentFrame, 1U);
    QVERIFY2(f.message().contains(kNames[1]), qPrintable(f.message()));
    QCOMPARE(sentenceFault(f.message()), QString());
    QCOMPARE(f.kernel().getCurrentImageSize(), QSize(400, 300));
    QCOMPARE(f.gray(), 0x80); // what stands in for it
    f.key(Qt::Key_PageDown);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(2));
    // Objects can be had on it all the same.
    f.key(Qt::Key_PageUp);
    QCOMPARE(f.draw(QPoint(50, 50), QPoint(150, 50)), 1);
}

void TestSeriesWindow::picturesOfAnotherSizeAreToldOf()
{
    SeriesWindow f;
    const QImage other = SeriesWindow::picture(2, QSize(300, 400));
    MadeFiles::write(f.file(2), MadeFiles::encoded(other, "png"));
    f.openFolder(f.folder());
    QCOMPARE(f.media().frameCount(), int(kNames.size()) - 1);
    QVERIFY2(f.message().startsWith(QStringLiteral("1 picture(s)")), qPrintable(f.message()));
    f.frameField().setValue(3);
    QCOMPARE(f.gray(), SeriesWindow::grayOf(3));
}

void TestSeriesWindow::folderWithoutPicturesIsToldAndThePresentOneStays()
{
    SeriesWindow f;
    f.openFolder(f.folder());
    f.key(Qt::Key_PageDown);
    const QString bare = f.path(QStringLiteral("bare"));
    QVERIFY(QDir().mkdir(bare));
    const ModalAnswer answers({ModalAnswer::chooseFile(bare), ModalAnswer::press(QMessageBox::Ok)});
    f.actions().theOpenFolder->trigger();
    QVERIFY(answers.isDone());
    QCOMPARE(sentenceFault(ModalAnswer::lastText()), QString());
    QVERIFY2(ModalAnswer::lastText().contains(QStringLiteral("holds no pictures")),
             qPrintable(ModalAnswer::lastText()));
    QCOMPARE(f.media().path(), f.folder());
    QCOMPARE(f.gray(), SeriesWindow::grayOf(1));
}

MEASURE_TEST_MAIN(TestSeriesWindow)
#include "TestSeriesWindow.moc"
