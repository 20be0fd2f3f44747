#ifndef HEADLESS_H
#define HEADLESS_H

#include <QStringList>

class QTextStream;
struct CommandLine;

/// The program without a window.
namespace Headless {

/// Does what the command line asks for and writes results to aOut; false with one sentence in aError. What
/// the user should know of the file beside the results comes as sentences into aRemarks.
bool run(const CommandLine& aLine, QTextStream& aOut, QStringList& aRemarks, QString& aError);

} // namespace Headless

#endif
