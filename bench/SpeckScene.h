#ifndef SPECKSCENE_H
#define SPECKSCENE_H

#include "Workbench.h"

#include <QEvent>
#include <QMainWindow>
#include <QPolygon>
#include <QTemporaryDir>

class LmCvManipulator;

/// A window with the measurement table and a gray picture of 4000 x 3000 pixels, on whose ground, darker to
/// one side, bright specks stand in rows. Mouse events go to the viewport at canvas points.
class SpeckScene
{
public:
    static constexpr int kCounter = 1107; // object type
    static constexpr QSize kPicture{4000, 3000};

    explicit SpeckScene(int aSpecks);

    /// One counter with so many marks in the left three quarters of the picture; the first mark is current
    /// and the Counter in the hand.
    void addCounter(int aMarks);
    /// Takes the automatic creation, to mark all that is found in a rectangle.
    void pickGroupCounting();
    void click(const QPoint& aCanvasPoint);
    void drag(const QPoint& aFrom, const QPoint& aTo);
    void paintPending();
    /// The points of the counter, two for each mark.
    QPolygon marks() const;
    int markCount() const { return int(marks().size()) / 2; }

    QMainWindow theWindow;
    Workbench theWorkbench;

private:
    void send(QEvent::Type aType, const QPoint& aCanvasPoint);
    LmCvManipulator* tool(const char* aClass) const;

    QTemporaryDir theFolder;
};

#endif
