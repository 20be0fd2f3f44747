#include "CommandLine.h"
#include "Headless.h"
#include "MainWindow.h"

#include <QApplication>
#include <QFont>
#include <QTextStream>

#include <cstdio>
#include <utility>

namespace {

constexpr int kFailed = 2;

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void tell(const QString& aSentence)
{
    const QByteArray line = aSentence.simplified().toLocal8Bit();
    std::fprintf(stderr, "measuretools: %s\n", line.constData());
}

int failed(const QString& aSentence)
{
    tell(aSentence);
    return kFailed;
}

/// Remarks of the libraries would stand between the user and the one line that tells what is wrong.
void keepFatalOnly(QtMsgType aType, const QMessageLogContext&, const QString& aText)
{
    if (aType == QtFatalMsg)
        failed(aText);
}

CommandLine readArguments(int aCount, char* aArguments[])
{
    QStringList arguments;
    for (int i = 1; i < aCount; ++i)
        arguments << QString::fromLocal8Bit(aArguments[i]);
    return CommandLine::parse(arguments);
}

int runWithoutWindow(const CommandLine& aLine)
{
    QString error;
    QTextStream out(stdout);
    QStringList remarks;
    if (!Headless::run(aLine, out, remarks, error))
        return failed(error);
    for (const QString& remark : std::as_const(remarks))
        tell(remark);
    return 0;
}

} // namespace

int main(int aCount, char* aArguments[])
{
    // The labels ask for a font that few systems have.
    QFont::insertSubstitution(QStringLiteral("Lucida Grande"), QStringLiteral("DejaVu Sans"));
    QCoreApplication::setOrganizationName(QStringLiteral("MeasureTools"));
    QCoreApplication::setApplicationName(QStringLiteral("measuretools"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MEASURETOOLS_VERSION));

    const CommandLine line = readArguments(aCount, aArguments);
    if (!line.needsWindow()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(keepFatalOnly);
    } else if (!hasDisplay()) {
        return failed(CommandLine::tr(
            "There is no display for a window; use --values, --export or --render (see --help)."));
    }

    const QApplication application(aCount, aArguments);
    if (!line.needsWindow())
        return runWithoutWindow(line);
    MainWindow window;
    window.show();
    window.openAtStart(line.theInput);
    return QApplication::exec();
}
