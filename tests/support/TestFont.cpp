#include "TestFont.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFont>
#include <QFontInfo>
#include <QThread>

#include <algorithm>

namespace {

QStringList threads()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

/// Of the test library, which ends with the tests.
bool isWatchdogThere()
{
    const QStringList all = threads();
    return std::any_of(all.begin(), all.end(), [](const QString& aThread) {
        QFile name(QStringLiteral("/proc/self/task/%1/comm").arg(aThread));
        return name.open(QIODevice::ReadOnly) && name.readAll().startsWith("QtTest Watchdog");
    });
}

} // namespace

void useTestFont()
{
    QFont::insertSubstitution(QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans"));
}

QString resolvedLabelFamily()
{
    return QFontInfo(QFont(QStringLiteral("Lucida Grande"), 10)).family();
}

void awaitOtherThreads()
{
    constexpr int kLongest = 200;      // ms; the workers of a pool don't end
    constexpr int kLongestEnd = 10000; // of a thread that is sure to end, when the machine is busy
    QElapsedTimer timer;
    timer.start();
    const auto isWaiting = [&timer] {
        return timer.elapsed() < (isWatchdogThere() ? kLongestEnd : kLongest);
    };
    while (threads().size() > 1 && isWaiting())
        QThread::yieldCurrentThread();
}
