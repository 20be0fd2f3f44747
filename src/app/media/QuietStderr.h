#ifndef QUIETSTDERR_H
#define QUIETSTDERR_H

#include <QtGlobal>

/// Drops what is written to standard error while it lives. The picture decoders print remarks of their own
/// there, where a user who works without a window expects one sentence and no more.
class QuietStderr
{
public:
    QuietStderr();
    ~QuietStderr();
    Q_DISABLE_COPY_MOVE(QuietStderr)

private:
    int theKept = -1; // the real standard error; -1 where it couldn't be put aside
};

#endif
