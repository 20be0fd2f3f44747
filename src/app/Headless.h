#ifndef HEADLESS_H
#define HEADLESS_H

#include <QString>

class QTextStream;
struct CommandLine;

/// The program without a window.
namespace Headless {

/// Does what the command line asks for and writes results to aOut; false with one sentence in aError.
bool run(const CommandLine& aLine, QTextStream& aOut, QString& aError);

} // namespace Headless

#endif
