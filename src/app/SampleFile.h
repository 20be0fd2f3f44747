#ifndef SAMPLEFILE_H
#define SAMPLEFILE_H

#include <QString>

/// The sample that is shown when the program is started without a file.
namespace SampleFile {

/// Its path, looked for where the program is installed and in the build tree; empty if it isn't there.
QString find();

} // namespace SampleFile

#endif
