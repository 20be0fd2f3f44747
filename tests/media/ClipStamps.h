#ifndef CLIPSTAMPS_H
#define CLIPSTAMPS_H

#include <QString>

#include <utility>
#include <vector>

/// What a container says of a clip, read without the code that is tested.
namespace ClipStamps {

/// When the frames are shown, in seconds, ascending: of all packets that aren't marked to be dropped. Times
/// of decoding where aDecoded is set, for containers that know no others.
std::vector<double> read(const QString& aPath, bool aDecoded);

/// Where the packets lie in the file and how long they are, in the order of decoding.
std::vector<std::pair<qint64, int>> places(const QString& aPath);

} // namespace ClipStamps

#endif
