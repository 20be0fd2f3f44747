#ifndef VIDEOTHREADS_H
#define VIDEOTHREADS_H

#include <QThread>

namespace VideoThreads {

/// How many threads may work on a video. More would gain little, and a decoder holds back a frame for each.
inline int count()
{
    constexpr int kMost = 8;
    return qBound(1, QThread::idealThreadCount(), kMost);
}

} // namespace VideoThreads

#endif
