#ifndef SESSIONFIXTURE_H
#define SESSIONFIXTURE_H

#include "MeasureFixture.h"
#include "PlainWindow.h"

#include <memory>

/// All tools that there are and a fake one that recalculates, with the measurement window on screen and a
/// plain window beside it.
class SessionFixture : public MeasureFixture
{
public:
    SessionFixture();
    ~SessionFixture();

    /// Compares all that can be seen with the plain window, and the rows with records and items.
    void compare();

    FakeTool theProbe{1901, QStringLiteral("Probe"), {"X", "Angle", "Share"}};
    std::unique_ptr<PlainWindow> thePlain;

private:
    void compareTable();
    void compareStatistics();
    void compareRecords();
};

#endif
