#ifndef OUTLINEFIXTURE_H
#define OUTLINEFIXTURE_H

#include "LmCvRegion.h"
#include "Q3Canvas.h"

#include <QList>

/// A region on a canvas of 1000 x 800 pixels as the pencil leaves it: nodes without handles, states fresh,
/// handles that can't be picked.
struct OutlineFixture
{
    OutlineFixture() : theRegion(new LmCvRegion(nullptr, &theCanvas, QStringLiteral("7"), nullptr))
    {
        theRegion->show();
    }

    void draw(const QList<QPoint>& aStroke);
    /// Nodes with handles, three points each.
    void setNodes(const QList<QPoint>& aPoints);
    QList<QPoint> anchors() const;
    QList<QPoint> points() const { return theRegion->thePoints; }
    /// Three points per node.
    bool isWhole() const { return theRegion->thePoints.size() == 3 * theRegion->theNodeStates.size(); }
    bool hasFreshStates() const;

    Q3Canvas theCanvas{1000, 800};
    LmCvRegion* theRegion; // owned by the canvas
};

/// The points of nodes whose handles lie on their anchors.
QList<QPoint> withoutHandles(const QList<QPoint>& aAnchors);

/// What is printed to standard output while it lives.
class PrintedText
{
public:
    PrintedText();
    PrintedText(const PrintedText&) = delete;
    PrintedText& operator=(const PrintedText&) = delete;
    ~PrintedText() { finish(); }

    /// Ends the recording.
    QByteArray text();

private:
    void finish();

    std::FILE* theRecord;
    int theScreen; // the real output, -1 once it is back in place
};

#endif
