#include "ModalAnswer.h"
#include "RecentFiles.h"
#include "TestFont.h"
#include "WindowFixture.h"

#include <QMenu>
#include <QSettings>
#include <QSignalSpy>

/// The list of files that were opened last, alone and in the window.
class TestRecentFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void latestComesFirstAndNoneTwice();
    void onlyTenAreKept();
    void listOutlivesTheProgram();
    void clearEmptiesTheList();
    void ampersandInANameIsNoMnemonic();
    void openedFileIsOfferedAndOpensAgain();
    void fileThatHasGoneIsToldAndTakenOff();

private:
    std::unique_ptr<QTemporaryDir> theFolder;
};

void TestRecentFiles::init()
{
    theFolder = std::make_unique<QTemporaryDir>();
    QCoreApplication::setOrganizationName(QStringLiteral("measuretools-tests"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, theFolder->path());
}

void TestRecentFiles::latestComesFirstAndNoneTwice()
{
    QMenu menu;
    RecentFiles files(menu, nullptr);
    QVERIFY(!menu.isEnabled());
    files.add(QStringLiteral("/a/one.png"));
    files.add(QStringLiteral("/a/two.png"));
    files.add(QStringLiteral("/a/../a/one.png"));
    QCOMPARE(files.paths(), QStringList({QStringLiteral("/a/one.png"), QStringLiteral("/a/two.png")}));
    QVERIFY(menu.isEnabled());
    QVERIFY(menu.actions().constFirst()->text().endsWith(QStringLiteral("one.png")));
}

void TestRecentFiles::onlyTenAreKept()
{
    QMenu menu;
    RecentFiles files(menu, nullptr);
    for (int i = 0; i <= RecentFiles::kMaxCount; ++i)
        files.add(QStringLiteral("/a/%1.png").arg(i));
    QCOMPARE(files.paths().size(), RecentFiles::kMaxCount);
    QVERIFY(!files.paths().contains(QStringLiteral("/a/0.png")));
}

void TestRecentFiles::listOutlivesTheProgram()
{
    QMenu menu;
    RecentFiles(menu, nullptr).add(QStringLiteral("/a/one.png"));
    const RecentFiles next(menu, nullptr);
    QCOMPARE(next.paths(), QStringList(QStringLiteral("/a/one.png")));
}

void TestRecentFiles::clearEmptiesTheList()
{
    QMenu menu;
    RecentFiles files(menu, nullptr);
    files.add(QStringLiteral("/a/one.png"));
    menu.actions().constLast()->trigger();
    QTRY_VERIFY(files.paths().isEmpty());
    QVERIFY(!menu.isEnabled());
}

void TestRecentFiles::ampersandInANameIsNoMnemonic()
{
    QMenu menu;
    RecentFiles files(menu, nullptr);
    files.add(QStringLiteral("/a/salt & pepper.png"));
    QVERIFY(menu.actions().constFirst()->text().contains(QStringLiteral("salt && pepper.png")));
    QSignalSpy chosen(&files, &RecentFiles::chosen);
    menu.actions().constFirst()->trigger();
    QVERIFY(chosen.wait());
    QCOMPARE(chosen[0][0].toString(), QStringLiteral("/a/salt & pepper.png"));
}

void TestRecentFiles::openedFileIsOfferedAndOpensAgain()
{
    WindowFixture fixture;
    fixture.restart();
    QMenu* menu = fixture.actions().theRecentMenu;
    QVERIFY(menu->actions().constFirst()->text().contains(QStringLiteral("picture.png")));
    QVERIFY(!fixture.actions().theSave->isEnabled());
    menu->actions().constFirst()->trigger();
    QTRY_VERIFY(fixture.actions().theSave->isEnabled());
}

void TestRecentFiles::fileThatHasGoneIsToldAndTakenOff()
{
    WindowFixture fixture;
    QVERIFY(QFile::remove(fixture.picturePath()));
    ModalAnswer answer(ModalAnswer::press(QMessageBox::Ok));
    fixture.actions().theRecentMenu->actions().constFirst()->trigger();
    QVERIFY(answer.wait());
    QVERIFY(!fixture.actions().theRecentMenu->isEnabled());
}

MEASURE_TEST_MAIN(TestRecentFiles)
#include "TestRecentFiles.moc"
