#include "WildRegions.h"

#include <QByteArrayList>
#include <QtTest>

#include <cmath>

using ProjectText::RegionText;

namespace {

void addRow(const char* aTitle, int aNodes, const RegionText& aText)
{
    QTest::newRow(aTitle) << aText << aNodes;
}

/// A region of these points with so many states.
RegionText pointsAndStates(const QByteArray& aPoints, int aStates, const char* aClosed = "true")
{
    RegionText text;
    text.thePoints = aPoints;
    text.theStates = RegionText::states(aStates);
    text.theClosed = aClosed;
    return text;
}

RegionText withStates(const QByteArray& aBytes)
{
    RegionText text;
    text.theStates = aBytes.toBase64();
    return text;
}

RegionText at(const char* aPos, RegionText aText = RegionText())
{
    aText.thePos = aPos;
    return aText;
}

/// Corners along an ellipse of 180 x 140.
QByteArray ring(int aCount)
{
    QByteArrayList anchors;
    for (int i = 0; i < aCount; ++i) {
        const double angle = 2.0 * M_PI * i / aCount;
        anchors << QByteArray::number(qRound(90 * std::cos(angle))) + ',' +
                       QByteArray::number(qRound(70 * std::sin(angle)));
    }
    return RegionText::corners(anchors.join(' '));
}

void addWrongCounts()
{
    const QByteArray good = RegionText().thePoints;
    addRow("one point too many", 4, pointsAndStates(good + " 5,5", 4));
    addRow("two points too many", 4, pointsAndStates(good + " 5,5 6,6", 5));
    addRow("two points alone", 0, pointsAndStates("0,0 9,9", 1));
    addRow("fewer states", 4, pointsAndStates(good, 2));
    addRow("more states", 4, pointsAndStates(good, 9));
    addRow("no states", 4, pointsAndStates(good, 0));
    addRow("very many states", 4, pointsAndStates(good, 200'000));
    addRow("very many nodes", 10'000, pointsAndStates(ring(10'000), 10'000));
    addRow("states with a rest", 4, withStates(QByteArray("\xff\0\1", 3).repeated(4) + "\1\1"));
    addRow("states of unknown kinds", 4,
           withStates(QByteArray("\x63\x7f\x80\x80\xff\x7f\2\1\2\0\1\x63", 12)));
    RegionText uneven;
    uneven.theKeyframes = "<keyframe frame=\"0\">1,1 1,1 1,1 9,9 9,9 9,9 5,5</keyframe>"
                          "<keyframe frame=\"4\">7,7</keyframe>";
    addRow("keyframes of other counts", 2, uneven);
}

void addFewNodes()
{
    addRow("one node", 1, pointsAndStates("0,0 0,0 0,0", 1));
    addRow("one open node", 1, pointsAndStates("0,0 0,0 0,0", 1, "false"));
    addRow("no nodes", 0, pointsAndStates("", 0));
    addRow("no nodes and open", 0, pointsAndStates("", 0, "false"));
    addRow("states without nodes", 0, pointsAndStates("", 4));
    addRow("all nodes in one place", 4, pointsAndStates(RegionText::corners("0,0 0,0 0,0 0,0"), 4));
}

void addFarPlaces()
{
    const QByteArray ends = RegionText::corners(WildRegions::kEnds);
    addRow("outside the picture", 4, at("-3000 5000"));
    addRow("larger than the picture", 4,
           pointsAndStates(RegionText::corners("-5000,-5000 5000,-5000 5000,5000 -5000,5000"), 4));
    addRow("handles far away", 2, pointsAndStates("0,0 0,0 1000000,0 -1000000,50 50,50 50,50", 2));
    addRow("ends of the number range", 4, pointsAndStates(ends, 4));
    addRow("ends of the number range, open", 4, pointsAndStates(ends, 4, "false"));
    addRow("handles at the ends of the number range", 2,
           pointsAndStates("-2147483648,2147483647 0,0 2147483647,-2147483648 "
                           "2147483647,0 30,30 -2147483648,0",
                           2));
    addRow("position at one end", 4, at("2147483647 -2147483648"));
    addRow("position and points at the ends", 4, at("-2147483648 2147483647", pointsAndStates(ends, 4)));
}

} // namespace

void WildRegions::addRows()
{
    QTest::addColumn<RegionText>("region");
    QTest::addColumn<int>("nodes");
    addRow("a good one", 4, RegionText());
    addWrongCounts();
    addFewNodes();
    addFarPlaces();
}
