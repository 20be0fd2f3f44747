#include "ModalAnswer.h"
#include "PatientRun.h"
#include "TestFont.h"

#include <QProgressDialog>
#include <QSemaphore>
#include <QThread>

#include <memory>

namespace {

constexpr int kLong = 1000 * 60; // ms, more than any test takes

} // namespace

class TestPatientRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void workIsDoneInAnotherThread();
    void shortWorkShowsNoDialog();
    void longWorkShowsADialogUntilItsEnd();
    void cancelledWorkIsToldSoAndLeft();
    void piecesGoOnWithoutADialogWhileTheyAreShort();
    void piecesStopWhenTheyAreCancelled();
    void cursorIsBusyMeanwhile();
};

void TestPatientRun::workIsDoneInAnotherThread()
{
    const Qt::HANDLE here = QThread::currentThreadId();
    auto there = std::make_shared<Qt::HANDLE>(here);
    PatientRun run("Working", kLong, nullptr);
    QVERIFY(run.inThread([there](const std::atomic_bool&) { *there = QThread::currentThreadId(); }));
    QVERIFY(*there != here);
}

void TestPatientRun::shortWorkShowsNoDialog()
{
    ModalAnswer none{QList<ModalAnswer::Answer>()};
    PatientRun run("Working", kLong, nullptr);
    QVERIFY(run.inThread([](const std::atomic_bool&) {}));
    QVERIFY(none.isDone());
}

void TestPatientRun::longWorkShowsADialogUntilItsEnd()
{
    const auto mayEnd = std::make_shared<QSemaphore>();
    QString shown;
    ModalAnswer answer([&](QWidget* aDialog) {
        if (const auto* dialog = qobject_cast<QProgressDialog*>(aDialog))
            shown = dialog->labelText();
        mayEnd->release();
    });
    bool finished = false;
    {
        PatientRun run("Working hard", 0, nullptr);
        finished = run.inThread([mayEnd](const std::atomic_bool&) { mayEnd->acquire(); });
    }
    QVERIFY(finished);
    QVERIFY(answer.isDone());
    QCOMPARE(shown, QStringLiteral("Working hard"));
}

void TestPatientRun::cancelledWorkIsToldSoAndLeft()
{
    const auto ended = std::make_shared<QSemaphore>();
    ModalAnswer answer(ModalAnswer::cancel());
    PatientRun run("Working", 0, nullptr);
    QVERIFY(!run.inThread([ended](const std::atomic_bool& aCancelled) {
        while (!aCancelled)
            QThread::yieldCurrentThread();
        ended->release();
    }));
    QVERIFY(answer.isDone());
    QVERIFY(ended->tryAcquire(1, kLong));
}

void TestPatientRun::piecesGoOnWithoutADialogWhileTheyAreShort()
{
    ModalAnswer none{QList<ModalAnswer::Answer>()};
    PatientRun run("Working", kLong, nullptr);
    for (int i = 0; i < 1000; ++i)
        QVERIFY(run.goOn(i, 1000));
}

void TestPatientRun::piecesStopWhenTheyAreCancelled()
{
    ModalAnswer answer(ModalAnswer::cancel());
    PatientRun run("Working", 0, nullptr);
    QElapsedTimer timer;
    timer.start();
    int done = 0;
    while (run.goOn(done % 100, 100) && timer.elapsed() < kLong)
        ++done;
    QVERIFY(timer.elapsed() < kLong);
    QVERIFY(answer.isDone());
}

void TestPatientRun::cursorIsBusyMeanwhile()
{
    {
        const PatientRun run("Working", kLong, nullptr);
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

MEASURE_TEST_MAIN(TestPatientRun)
#include "TestPatientRun.moc"
