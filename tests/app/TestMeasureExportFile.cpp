#include "Drawn.h"
#include "LmAppSettings.h"
#include "MadeFiles.h"
#include "MeasureWindow.h"
#include "ModalAnswer.h"
#include "TestFont.h"

#include <QAbstractButton>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QLineEdit>
#include <QRegularExpression>

#include <unistd.h>

/// Where the export button writes: its dialogs, the name of the file, and what it remembers.
class TestMeasureExportFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogAsksForATextFile();
    void lastNameIsProposed();
    void cancelledDialogWritesNothing();
    void nameIsCutAtItsFirstDot_data();
    void nameIsCutAtItsFirstDot();
    void fileOfTheCutNameIsOverwrittenWithoutAQuestion();
    void noAsksAgainForTheNameJustChosen();
    void yesOverwrites();
    void questionIsAboutTheNameAsTyped();
    void folderThatIsNotThereIsTold();
    void folderWithoutRightsIsTold();
    void folderOfThatNameIsTold();
    void fullDiskIsNotNoticed();

private:
    static QByteArray contents(MeasureWindow& aFixture) { return aFixture.exportHead() + "Object name\t\n"; }
    // What was written into the fixture's folder besides its picture and the settings.
    static QStringList files(MeasureWindow& aFixture)
    {
        QStringList names = QDir(aFixture.path(QString())).entryList(QDir::Files | QDir::System);
        names.removeAll(QStringLiteral("picture.png"));
        names = names.filter(QRegularExpression(QStringLiteral("\\.(?!conf$)")));
        return names;
    }
    // Chooses a file with an answer to each question that follows.
    static void save(MeasureWindow& aFixture, const QString& aPath,
                     const QList<ModalAnswer::Answer>& aFurther = {});
    static ModalAnswer::Answer failure();
};

void TestMeasureExportFile::save(MeasureWindow& aFixture, const QString& aPath,
                                 const QList<ModalAnswer::Answer>& aFurther)
{
    const ModalAnswer answer(QList<ModalAnswer::Answer>{ModalAnswer::chooseFile(aPath)} + aFurther);
    aFixture.clickExport();
    QVERIFY(answer.isDone());
}

ModalAnswer::Answer TestMeasureExportFile::failure()
{
    return [](QWidget* aDialog) {
        const auto* box = qobject_cast<QMessageBox*>(aDialog);
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("Save error"));
        QCOMPARE(box->text(), QStringLiteral("The file cannot be opened for writing."));
        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    };
}

void TestMeasureExportFile::dialogAsksForATextFile()
{
    MeasureWindow fixture;
    const ModalAnswer answer([&fixture](QWidget* aDialog) {
        const auto* dialog = qobject_cast<QFileDialog*>(aDialog);
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Save text file"));
        QCOMPARE(dialog->nameFilters(), QStringList{QStringLiteral("text files (*.txt)")});
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->parentWidget(), fixture.dock().widget());
        QTest::keyClick(aDialog, Qt::Key_Escape);
    });
    fixture.clickExport();
    QVERIFY(answer.isDone());
}

// Reads what the dialog proposes, and cancels it.
static ModalAnswer::Answer readProposal(QString& aFolder, QString& aName)
{
    return [&aFolder, &aName](QWidget* aDialog) {
        aFolder = qobject_cast<QFileDialog*>(aDialog)->directory().absolutePath();
        aName = aDialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        QTest::keyClick(aDialog, Qt::Key_Escape);
    };
}

void TestMeasureExportFile::lastNameIsProposed()
{
    MeasureWindow fixture;
    save(fixture, fixture.path(QStringLiteral("first.txt")));
    QString folder;
    QString name;
    const ModalAnswer answer(readProposal(folder, name));
    fixture.clickExport();
    QCOMPARE(folder, QDir(fixture.path(QString())).absolutePath());
    QCOMPARE(name, QStringLiteral("first.txt"));
}

void TestMeasureExportFile::cancelledDialogWritesNothing()
{
    MeasureWindow fixture;
    LmAppSettings::theLastExcelFile = fixture.path(QStringLiteral("kept.name.csv"));
    const ModalAnswer answer(ModalAnswer::cancel());
    fixture.clickExport();
    QVERIFY(answer.isDone());
    QCOMPARE(LmAppSettings::theLastExcelFile, fixture.path(QStringLiteral("kept.name.csv")));
    QCOMPARE(files(fixture), QStringList());
}

void TestMeasureExportFile::nameIsCutAtItsFirstDot_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    QTest::newRow("text file") << QStringLiteral("run.txt") << QStringLiteral("run.txt");
    QTest::newRow("no extension") << QStringLiteral("run") << QStringLiteral("run.txt");
    QTest::newRow("another extension") << QStringLiteral("run.csv") << QStringLiteral("run.txt");
    QTest::newRow("two dots") << QStringLiteral("run.1.csv") << QStringLiteral("run.txt");
    QTest::newRow("blanks") << QStringLiteral("my last run") << QStringLiteral("my last run.txt");
    QTest::newRow("dots and blanks") << QStringLiteral("my run 1.2 of 3.txt")
                                     << QStringLiteral("my run 1.txt");
    QTest::newRow("letters of all kinds")
        << QStringLiteral("\u00e4\u03bc\u65e5.txt") << QStringLiteral("\u00e4\u03bc\u65e5.txt");
}

void TestMeasureExportFile::nameIsCutAtItsFirstDot()
{
    QFETCH(QString, typed);
    QFETCH(QString, saved);
    MeasureWindow fixture;
    save(fixture, fixture.path(typed));
    QCOMPARE(files(fixture), QStringList{saved});
    QCOMPARE(MadeFiles::read(fixture.path(saved)), contents(fixture));
    QCOMPARE(LmAppSettings::theLastExcelFile, fixture.path(saved));
}

void TestMeasureExportFile::fileOfTheCutNameIsOverwrittenWithoutAQuestion()
{
    MeasureWindow fixture;
    MadeFiles::write(fixture.path(QStringLiteral("run.txt")), "earlier");
    save(fixture, fixture.path(QStringLiteral("run.1.csv")));
    QCOMPARE(MadeFiles::read(fixture.path(QStringLiteral("run.txt"))), contents(fixture));
}

void TestMeasureExportFile::noAsksAgainForTheNameJustChosen()
{
    MeasureWindow fixture;
    LmAppSettings::theLastExcelFile = fixture.path(QStringLiteral("last.txt"));
    MadeFiles::write(fixture.path(QStringLiteral("run.txt")), "earlier");
    QString folder;
    QString name;
    // The file dialog asks on its own account too.
    save(fixture, fixture.path(QStringLiteral("run.txt")),
         {ModalAnswer::press(QMessageBox::Yes),
          [](QWidget* aDialog) {
              const auto* box = qobject_cast<QMessageBox*>(aDialog);
              QVERIFY(box);
              QCOMPARE(box->windowTitle(), QStringLiteral("Save"));
              QCOMPARE(box->text(), QStringLiteral("File exists. Overwrite?"));
              QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
              QTest::mouseClick(box->button(QMessageBox::No), Qt::LeftButton);
          },
          readProposal(folder, name)});
    QCOMPARE(name, QStringLiteral("run.txt"));
    QCOMPARE(folder, QDir(fixture.path(QString())).absolutePath());
    QCOMPARE(MadeFiles::read(fixture.path(QStringLiteral("run.txt"))), QByteArray("earlier"));
    QCOMPARE(LmAppSettings::theLastExcelFile, fixture.path(QStringLiteral("last.txt")));
}

void TestMeasureExportFile::yesOverwrites()
{
    MeasureWindow fixture;
    MadeFiles::write(fixture.path(QStringLiteral("run.txt")), "earlier");
    save(fixture, fixture.path(QStringLiteral("run.txt")),
         {ModalAnswer::press(QMessageBox::Yes), ModalAnswer::press(QMessageBox::Yes)});
    QCOMPARE(MadeFiles::read(fixture.path(QStringLiteral("run.txt"))), contents(fixture));
    QCOMPARE(LmAppSettings::theLastExcelFile, fixture.path(QStringLiteral("run.txt")));
}

void TestMeasureExportFile::questionIsAboutTheNameAsTyped()
{
    MeasureWindow fixture;
    MadeFiles::write(fixture.path(QStringLiteral("run.csv")), "a table of another program");
    save(fixture, fixture.path(QStringLiteral("run.csv")),
         {ModalAnswer::press(QMessageBox::Yes), ModalAnswer::press(QMessageBox::Yes)});
    QCOMPARE(MadeFiles::read(fixture.path(QStringLiteral("run.csv"))),
             QByteArray("a table of another program"));
    QCOMPARE(MadeFiles::read(fixture.path(QStringLiteral("run.txt"))), contents(fixture));
}

void TestMeasureExportFile::folderThatIsNotThereIsTold()
{
    MeasureWindow fixture;
    const QString path = fixture.path(QStringLiteral("nowhere/run.txt"));
    save(fixture, path, {failure()});
    QVERIFY(!QFile::exists(path));
    QCOMPARE(LmAppSettings::theLastExcelFile, path);
}

void TestMeasureExportFile::folderWithoutRightsIsTold()
{
    MeasureWindow fixture;
    const QString folder = fixture.path(QStringLiteral("locked"));
    const QString path = folder + QStringLiteral("/run.txt");
    QVERIFY(QDir().mkdir(folder));
    // The superuser may write everywhere, so somebody else does it, who has to see the folder.
    const bool superuser = ::geteuid() == 0;
    QVERIFY(QFile::setPermissions(folder,
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    if (superuser) {
        constexpr uid_t kNobody = 65534;
        QVERIFY(QFile::setPermissions(fixture.path(QString()), QFile::ReadOwner | QFile::WriteOwner |
                                                                   QFile::ExeOwner | QFile::ExeOther));
        QCOMPARE(::seteuid(kNobody), 0);
    }
    save(fixture, path, {failure()});
    if (superuser)
        QCOMPARE(::seteuid(0), 0);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(LmAppSettings::theLastExcelFile, path);
}

void TestMeasureExportFile::folderOfThatNameIsTold()
{
    MeasureWindow fixture;
    QVERIFY(QDir().mkdir(fixture.path(QStringLiteral("run.txt"))));
    save(fixture, fixture.path(QStringLiteral("run")), {failure()});
    QVERIFY(QDir(fixture.path(QStringLiteral("run.txt"))).exists());
}

void TestMeasureExportFile::fullDiskIsNotNoticed()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("there is no full device here");
    MeasureWindow fixture;
    const QString path = fixture.path(QStringLiteral("full.txt"));
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), path));
    fixture.addThree();
    save(fixture, path, {ModalAnswer::press(QMessageBox::Yes), ModalAnswer::press(QMessageBox::Yes)});
    QCOMPARE(LmAppSettings::theLastExcelFile, path);
    QCOMPARE(fixture.distanceCount(), 3);
}

MEASURE_TEST_MAIN(TestMeasureExportFile)
#include "TestMeasureExportFile.moc"
