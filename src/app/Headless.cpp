#include "Headless.h"

#include "AnimatedValues.h"
#include "CommandLine.h"
#include "Document.h"
#include "LmCvManipulator.h"
#include "Media.h"
#include "PictureRenderer.h"
#include "ValueReport.h"
#include "ValuesCsv.h"
#include "Workbench.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>
#include <utility>

namespace {

bool flushed(QTextStream& aOut, QString& aError)
{
    aOut.flush();
    if (aOut.status() == QTextStream::Ok)
        return true;
    aError =
        QCoreApplication::translate("Headless", "The output can't be written; check the place it goes to.");
    return false;
}

bool printValues(Workbench& aBench, QTextStream& aOut, QString& aError)
{
    ValueReport::write(aBench.tools(), aOut);
    return flushed(aOut, aError);
}

/// A frame that can't be read has no values; that isn't an error.
bool printValuesOverTime(Workbench& aBench, QTextStream& aOut, QString& aError)
{
    const auto goOn = [](qint64, qint64) { return true; };
    ValuesCsv::write(aBench.media(), AnimatedValues::keys(AnimatedValues::objects()), {}, goOn, aOut);
    return flushed(aOut, aError);
}

/// The tool that shows the table of all objects is known by what it can do, not by its class.
LmCvManipulator* tableTool(const Workbench& aBench)
{
    const QList<LmCvManipulator*>& tools = aBench.tools();
    const auto found = std::find_if(tools.begin(), tools.end(), [](const LmCvManipulator* aTool) {
        return aTool->metaObject()->indexOfMethod("writeDataAsText(QIODevice*)") >= 0;
    });
    return found == tools.end() ? nullptr : *found;
}

bool exportTable(const Workbench& aBench, const QString& aPath, QString& aError)
{
    LmCvManipulator* tool = tableTool(aBench);
    if (!tool) {
        aError = QCoreApplication::translate(
            "Headless", "The measuring tools have no table to export; install the whole program again.");
        return false;
    }
    QFile file(aPath);
    if (file.open(QIODevice::WriteOnly)) {
        QMetaObject::invokeMethod(tool, "writeDataAsText", Q_ARG(QIODevice*, &file));
        file.close();
        if (file.error() == QFileDevice::NoError)
            return true;
    }
    aError =
        QCoreApplication::translate("Headless", "The table %1 can't be written (%2); choose another folder.")
            .arg(QDir::toNativeSeparators(aPath), file.errorString());
    return false;
}

bool runOn(const CommandLine& aLine, QTextStream& aOut, QStringList& aRemarks, QString& aError)
{
    if (!aLine.theOutput.isEmpty() && QFileInfo(aLine.theInput) == QFileInfo(aLine.theOutput)) {
        aError = QCoreApplication::translate("Headless",
                                             "The output would overwrite %1; choose another name for it.")
                     .arg(QDir::toNativeSeparators(aLine.theInput));
        return false;
    }
    Workbench bench;
    QObject::connect(&bench.media(), &Media::flawFound,
                     [&aRemarks](const QString& aSentence) { aRemarks << aSentence; });
    if (!bench.loadTools(nullptr, aError) || !bench.document().open(aLine.theInput, aError))
        return false;
    // Values follow from the objects alone, but a picture to draw them on has to be there; aError tells why
    // it isn't.
    if (aLine.theAction == CommandLine::kRender && bench.document().isPictureMissing())
        return false;
    if (const QString remark = std::exchange(aError, QString()); !remark.isEmpty())
        aRemarks << remark;
    if (aLine.theAction == CommandLine::kValues)
        return printValues(bench, aOut, aError);
    if (aLine.theAction == CommandLine::kValuesOverTime)
        return printValuesOverTime(bench, aOut, aError);
    if (aLine.theAction == CommandLine::kExport)
        return exportTable(bench, aLine.theOutput, aError);
    return PictureRenderer::renderTo(bench.editor(), aLine.theOutput, aError, aLine.theScaleBar);
}

} // namespace

bool Headless::run(const CommandLine& aLine, QTextStream& aOut, QStringList& aRemarks, QString& aError)
{
    switch (aLine.theAction) {
    case CommandLine::kValues:
    case CommandLine::kValuesOverTime:
    case CommandLine::kExport:
    case CommandLine::kRender:
        return runOn(aLine, aOut, aRemarks, aError);
    case CommandLine::kHelp:
        aOut << CommandLine::helpText();
        return flushed(aOut, aError);
    case CommandLine::kVersion:
        aOut << CommandLine::versionText() << '\n';
        return flushed(aOut, aError);
    case CommandLine::kError:
        aError = aLine.theText;
        return false;
    case CommandLine::kWindow:
        break;
    }
    aError = QCoreApplication::translate("Headless", "A window needs a display; see measuretools --help.");
    return false;
}
