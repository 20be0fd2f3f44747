#include "TestFont.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFont>
#include <QFontInfo>
#include <QThread>

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
    constexpr int kLongest = 200; // ms; the workers of a pool don't end
    QElapsedTimer timer;
    timer.start();
    const QDir threads(QStringLiteral("/proc/self/task"));
    while (threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot).size() > 1 && timer.elapsed() < kLongest)
        QThread::yieldCurrentThread();
}
