#include "OutlineFixture.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

QList<QPoint> withoutHandles(const QList<QPoint>& aAnchors)
{
    QList<QPoint> points;
    for (const QPoint& anchor : aAnchors)
        points << anchor << anchor << anchor;
    return points;
}

void OutlineFixture::draw(const QList<QPoint>& aStroke)
{
    setNodes(withoutHandles(aStroke));
    theRegion->theHandlesEnabled = false;
}

void OutlineFixture::setNodes(const QList<QPoint>& aPoints)
{
    theRegion->setPoints(QPoint(0, 0), Q3PointArray(QPolygon(aPoints)),
                         Q3ValueVector<LmNodeState>(aPoints.size() / 3));
}

QList<QPoint> OutlineFixture::anchors() const
{
    QList<QPoint> anchors;
    for (int i = 1; i < theRegion->thePoints.size(); i += 3)
        anchors << theRegion->thePoints.at(i);
    return anchors;
}

bool OutlineFixture::hasFreshStates() const
{
    return std::all_of(theRegion->theNodeStates.cbegin(), theRegion->theNodeStates.cend(),
                       [](const LmNodeState& aState) {
                           return !aState.selected && aState.synchro == LmBezierPoint::kSynchroDirection &&
                                  aState.dragged == LmNodeState::kDraggedNone;
                       });
}

PrintedText::PrintedText() : theRecord(std::tmpfile()), theScreen(dup(STDOUT_FILENO))
{
    std::fflush(stdout);
    if (!theRecord || theScreen < 0 || dup2(fileno(theRecord), STDOUT_FILENO) < 0)
        qFatal("the output can't be recorded");
}

QByteArray PrintedText::text()
{
    finish();
    QByteArray text;
    std::rewind(theRecord);
    for (int letter = std::fgetc(theRecord); letter != EOF; letter = std::fgetc(theRecord))
        text.append(char(letter));
    return text;
}

void PrintedText::finish()
{
    if (theScreen < 0)
        return;
    std::fflush(stdout);
    dup2(theScreen, STDOUT_FILENO);
    close(theScreen);
    theScreen = -1;
}
