#ifndef FIGURESESSION_H
#define FIGURESESSION_H

#include "InterestWindow.h"

#include <QPair>
#include <QRandomGenerator>
#include <QSet>

class CalibrationCommands;

/// A person who calibrates, draws, animates, undoes, saves and opens again, in any order.
class FigureSession
{
public:
    explicit FigureSession(quint32 aSeed);

    /// Does something; what it was.
    QString step();
    /// The first thing on the screen that isn't what it should be, or an empty text.
    QString fault();

    InterestWindow& window() { return theWindow; }
    class Q3Table& table();

private:
    using Key = QPair<int, int>; // type and index of an object

    int random(int aMost) { return theRandom.bounded(aMost); }
    QPoint place();
    LmCvManipulator* tool(int aType);
    void pick(int aType);
    Key anyObject();
    LmCvObject* itemOf(const Key& aKey);
    QString anyCalibration();

    QString calibrate();
    QString draw();
    QString change();
    QString walk();
    QString limit();
    QString reload();
    void chooseValue(const Key& aKey);
    void listen();

    QString labelFault();
    QString cellFault();

    QRandomGenerator theRandom;
    InterestWindow theWindow;
    CalibrationCommands& theCalibration;
    /// Objects that came back by undo show no value until they change; that is how tools make them.
    QSet<Key> theBare;
    bool theUndoing = false;
    int theRenames = 0;
};

#endif
