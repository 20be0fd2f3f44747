#include "QuietStderr.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

QuietStderr::QuietStderr()
{
    std::fflush(stderr);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0)
        return;
    theKept = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    if (theKept >= 0)
        ::dup2(nowhere, STDERR_FILENO);
    ::close(nowhere);
}

QuietStderr::~QuietStderr()
{
    if (theKept < 0)
        return;
    std::fflush(stderr);
    ::dup2(theKept, STDERR_FILENO);
    ::close(theKept);
}
