// What a session sees on the screen, beside what it should see.
#include "FigureSession.h"

#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "PlainValues.h"
#include "Q3Table.h"
#include "ScaleBarView.h"

#include <QDockWidget>

QString FigureSession::labelFault()
{
    const auto& objects = theWindow.kernel().theObjects;
    for (auto type = objects.begin(); type != objects.end(); ++type) {
        if (type.key() == FindWindow::kCounterType)
            continue; // marks carry a name and a number
        for (auto object = type->begin(); object != type->end(); ++object) {
            const LmCvObject* item = itemOf({type.key(), object.key()});
            if (!item)
                return QStringLiteral("no item for %1 %2").arg(type.key()).arg(object.key());
            const QString wanted = theBare.contains({type.key(), object.key()})
                                       ? QString()
                                       : PlainValues::label(*tool(type.key()), **object);
            if (item->theDisplayValue != wanted)
                return QStringLiteral("label of %1 %2: %3 instead of %4")
                    .arg(type.key())
                    .arg(object.key())
                    .arg(item->theDisplayValue, wanted);
        }
    }
    return QString();
}

Q3Table& FigureSession::table()
{
    return *theWindow.window()
                .findChild<QDockWidget*>(QStringLiteral("Measurements"))
                ->findChild<Q3Table*>(QStringLiteral("theTable"));
}

QString FigureSession::cellFault()
{
    Q3Table& cells = table();
    int rows = 0;
    const auto& objects = theWindow.kernel().theObjects;
    for (auto type = objects.begin(); type != objects.end(); ++type)
        for (auto object = type->begin(); object != type->end(); ++object, ++rows) {
            const QString key =
                QStringLiteral("%1 %2").arg(tool(type.key())->getObjectName(object.key())).arg(object.key());
            int row = 0;
            while (row < cells.numRows() && cells.verticalHeader()->label(row) != key)
                ++row;
            if (row == cells.numRows())
                return QStringLiteral("no row for ") + key;
            for (int column = 0; column < cells.numCols(); ++column) {
                const QString name =
                    cells.horizontalHeader()->label(cells.horizontalHeader()->mapToSection(column));
                const QString wanted = PlainValues::cell(*tool(type.key()), **object, name);
                if (cells.text(row, column) != wanted)
                    return QStringLiteral("%1 of %2: %3 instead of %4")
                        .arg(name, key, cells.text(row, column), wanted);
            }
        }
    return rows == cells.numRows() ? QString()
                                   : QStringLiteral("%1 rows too many").arg(cells.numRows() - rows);
}

QString FigureSession::fault()
{
    QString found = labelFault();
    if (found.isEmpty())
        found = cellFault();
    if (found.isEmpty() && theWindow.field("calibration") != PlainValues::calibrationField())
        found = QStringLiteral("status bar: ") + theWindow.field("calibration");
    const QWidget* viewport = theWindow.editor().viewport();
    const QString bar = viewport->findChild<ScaleBarView*>()->text();
    const QString wanted = PlainValues::scaleBar(theWindow.editor().zoom(), viewport->width());
    if (found.isEmpty() && bar != wanted)
        found = QStringLiteral("scale bar: %1 instead of %2").arg(bar, wanted);
    return found;
}
