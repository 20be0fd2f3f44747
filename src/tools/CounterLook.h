#ifndef COUNTERLOOK_H
#define COUNTERLOOK_H

#include <QColor>
#include <QFont>
#include <QMap>
#include <QPolygon>
#include <QString>

/// All that the marks of a counter are made of.
struct CounterLook
{
    /// "2 #3" for the third mark of counter 2; numbers from 1.
    static QString markText(const QString& aName, qsizetype aNumber);
    /// Whether it is that text, without making it: asked of all marks at each change of a counter.
    static bool isMarkText(const QString& aText, const QString& aName, qsizetype aNumber);

    /// A point without a second one makes no mark.
    qsizetype markCount() const { return thePoints.size() / 2; }
    // Canvas points of the mark at a position from 0.
    QPoint anchor(qsizetype aPos) const;
    QPoint tip(qsizetype aPos) const;
    /// Whether the marks differ in nothing but their points.
    bool isLike(const CounterLook& aOther) const;

    QPolygon thePoints; // image points, two per mark
    QPoint theOrigin;   // of the region of interest
    QString theName;
    QColor theColor;
    QFont theFont;
    double theStep = 0.0; // pixels per unit
    QString theUnit;
    bool theVisible = true;
};

/// What is known of the marks on the canvas, so that one mark more or less among ten thousand costs no look
/// at all the others. It is void once a mark has been set or pressed, which the marks count.
class KnownLooks
{
public:
    /// To be called before marks are touched: drops all when a mark was changed that nobody told of.
    void notice();
    /// What has changed since are marks of which nothing is known.
    void accept();
    void forget(int aIdx) { theCounters.remove(aIdx); }
    void forgetAll() { theCounters.clear(); }
    /// The counter loses the mark at the position, and the numbers behind it change.
    void forgetFrom(int aIdx, qsizetype aPos);

    /// All marks of the counter stand as if they had just been made of the look.
    void learn(int aIdx, const CounterLook& aLook);
    /// How many marks of the counter from the first on would come out as they stand, made of the look.
    qsizetype keptCount(int aIdx, const CounterLook& aLook) const;

    /// All marks of the counter have these image points, and texts of the name.
    void learnPoints(int aIdx, const QPolygon& aPoints, const QString& aName, const QPoint& aOrigin);
    /// The image points of those first marks that are known to stand there with texts of that name.
    QPolygon knownPoints(int aIdx, const QString& aName, const QPoint& aOrigin) const;

private:
    struct Known
    {
        CounterLook theLook;
        qsizetype theNewCount = 0; // marks from the first on that are as newly made of the look
    };

    QMap<int, Known> theCounters; // by object index
    quint64 theChangeCount = 0;   // of arrows, up to which theCounters is right
};

#endif
