#include "Headless.h"

#include "CommandLine.h"
#include "Document.h"
#include "PictureRenderer.h"
#include "ValueReport.h"
#include "Workbench.h"

#include <QCoreApplication>
#include <QTextStream>

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

bool runOn(const CommandLine& aLine, QTextStream& aOut, QString& aError)
{
    Workbench bench;
    if (!bench.loadTools(nullptr, aError) || !bench.document().open(aLine.theInput, aError))
        return false;
    if (aLine.theAction == CommandLine::kValues)
        return printValues(bench, aOut, aError);
    // Values follow from the objects alone, but a picture to draw them on has to be there; aError tells why
    // it isn't.
    return !bench.document().isPictureMissing() &&
           PictureRenderer::renderTo(bench.editor(), aLine.theOutput, aError);
}

} // namespace

bool Headless::run(const CommandLine& aLine, QTextStream& aOut, QString& aError)
{
    switch (aLine.theAction) {
    case CommandLine::kValues:
    case CommandLine::kRender:
        return runOn(aLine, aOut, aError);
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
