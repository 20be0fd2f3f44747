#ifndef PLAINWINDOW_H
#define PLAINWINDOW_H

#include "LmInt64.h"

#include <QMap>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <functional>

class LmCvManipMeasure;
class LmCvManipulator;
class LmCvObject;
class LmKernelObjectData;

/// What the measurement window has to show, kept as plain texts. It hears the same signals as the window,
/// finds rows by reading all their keys, takes columns out and puts them back each time, and makes statistics
/// from the texts.
class PlainWindow : public QObject
{
    Q_OBJECT

public:
    struct Column
    {
        QString theLabel;
        bool theStretches = false;
        QStringList theCells;
    };
    using Columns = QList<Column>; // in the order of the screen

    /// To be made when the window has its tabs and no rows yet.
    explicit PlainWindow(const LmCvManipMeasure& aWindow);

    void moveColumn(int aFrom, int aTo);
    void moveStatistics(const QString& aTypeName, int aFrom, int aTo);
    /// The user selects a row.
    void chooseRow(int aRow);
    QStringList labels() const;
    int findRow(const QString& aRowKey) const { return int(theRowKeys.indexOf(aRowKey)); }

    QStringList theNames;
    QStringList theRowKeys;
    Columns theColumns;
    QMap<QString, Columns> theStatistics; // by type name, of four cells each
    QMap<QString, QPair<int, int>> theObjects;
    int theSelectedRow = -1;
    QString theTab;
    int theRelabellings = 0; // how often a heading changed over cells that were there

private:
    void created(int aType, int aIdx, const LmKernelObjectData* aData);
    void changed(int aType, int aIdx, const LmKernelObjectData* aData);
    void beforeRemove(int aType, int aIdx);
    void removed(int aType, int aIdx);
    void canvasCurrent(LmCvObject* aItem);
    void rewrite(int aFlags, const std::function<bool(const LmKernelObjectData&)>& aIsMeant);

    LmCvManipulator* measuringTool(int aType) const;
    int findRow(LmCvManipulator* aTool, int aIdx) const;
    void writeRow(int aRow, LmCvManipulator* aTool, const LmKernelObjectData* aData);
    void writeAllOf(int aType, LmCvManipulator* aTool);
    void setColumnCount(int aCount);
    void removeEmptyColumns();
    void refresh(const QString& aTypeName);
    void show(const QString& aTypeName);
    static QString valueText(const QVariant& aValue, const QString& aUnit);
    static QString cut(const QString& aText);
    static QStringList fourTexts(const QList<double>& aNumbers, const QString& aUnit);

    const LmCvManipMeasure& theWindow;
};

#endif
