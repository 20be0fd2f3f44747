#include "FigureSession.h"

#include "Calibration.h"
#include "CalibrationCommands.h"
#include "CmdChangeObject.h"
#include "CmdSwitchAnimation.h"
#include "Document.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "Media.h"
#include "PlainValues.h"
#include "Q3Table.h"
#include "ScaleBarView.h"

#include <QAction>
#include <QDockWidget>
#include <QToolButton>
#include <QUndoStack>
#include <QtTest>

#include <cmath>

namespace {

constexpr int kDimensionType = 1112;
constexpr int kAngleType = 1106;

} // namespace

FigureSession::FigureSession(quint32 aSeed)
    : theRandom(aSeed), theCalibration(*theWindow.window().findChild<CalibrationCommands*>())
{
    theWindow.openPages(4);
    theWindow.actions().theScaleBar->setChecked(true);
    listen();
}

void FigureSession::listen()
{
    LmKSKernelData* kernel = &theWindow.kernel();
    QWidget* context = &theWindow.window();
    const auto bringBack = [this](int aType, int aIdx) {
        if (theUndoing)
            theBare.insert({aType, aIdx});
    };
    const auto dress = [this](int aType, int aIdx) { theBare.remove({aType, aIdx}); };
    QObject::connect(kernel, &LmKSKernelData::signalObjectCreated, context, bringBack);
    QObject::connect(kernel, &LmKSKernelData::signalObjectChanged, context, dress);
    QObject::connect(kernel, &LmKSKernelData::signalObjectRemoved, context, dress);
    QObject::connect(kernel, &LmKSKernelData::signalCalibrationChanged, context, [this] { theBare.clear(); });
    QObject::connect(kernel, &LmKSKernelData::signalCalibrationCurrent, context, [this] { theBare.clear(); });
    QObject::connect(&theWindow.bench().media(), &Media::regionChanged, context, [this] { theBare.clear(); });
    QObject::connect(kernel, &LmKSKernelData::signalFrameReadyStop, context, [this] {
        const QSet<Key> bare = theBare;
        for (const Key& key : bare)
            if (theWindow.kernel().getObject(key.first, key.second)->theAnimated)
                theBare.remove(key);
    });
}

LmCvManipulator* FigureSession::tool(int aType)
{
    return theWindow.kernel().getCvManipulator(aType);
}

LmCvObject* FigureSession::itemOf(const Key& aKey)
{
    return tool(aKey.first)->getCvObject(aKey.second);
}

QPoint FigureSession::place()
{
    const QSize size = theWindow.editor().canvas()->size();
    return QPoint(random(size.width()), random(size.height()));
}

void FigureSession::pick(int aType)
{
    QToolButton* button = tool(aType)->theToolButton;
    if (!button->isChecked())
        QTest::mouseClick(button, Qt::LeftButton);
}

FigureSession::Key FigureSession::anyObject()
{
    QList<Key> all;
    const auto& objects = theWindow.kernel().theObjects;
    for (auto type = objects.begin(); type != objects.end(); ++type)
        for (auto object = type->begin(); object != type->end(); ++object)
            all.append({type.key(), object.key()});
    return all.isEmpty() ? Key(0, 0) : all[random(int(all.size()))];
}

QString FigureSession::anyCalibration()
{
    const QStringList names = Calibration::names();
    return names.isEmpty() ? QString() : names[random(int(names.size()))];
}

QString FigureSession::calibrate()
{
    const QString unit =
        QStringList{QStringLiteral("mm"), QStringLiteral("µm"), QStringLiteral("in")}[random(3)];
    const LmCalibData data =
        Calibration::fromPixelSize(std::exp(8.0 * theRandom.generateDouble() - 4.0), unit);
    const QString name = anyCalibration();
    switch (name.isEmpty() ? 0 : random(6)) {
    case 0:
        theCalibration.set(Calibration::freeName(), data);
        return QStringLiteral("new calibration");
    case 1:
        theCalibration.set(name, data);
        return QStringLiteral("edited calibration");
    case 2:
        theCalibration.rename(name, QStringLiteral("lens %1").arg(++theRenames));
        return QStringLiteral("renamed calibration");
    case 3:
        theCalibration.remove(name);
        return QStringLiteral("removed calibration");
    case 4:
        theCalibration.makeCurrent(QString());
        return QStringLiteral("no calibration");
    default:
        theCalibration.makeCurrent(name);
        return QStringLiteral("another calibration");
    }
}

QString FigureSession::draw()
{
    const int kind = random(5);
    switch (kind) {
    case 0:
        theWindow.pickDistance();
        theWindow.drag(place(), place());
        break;
    case 1:
        pick(kAngleType);
        theWindow.drag(place(), place());
        theWindow.click(place());
        break;
    case 2:
        pick(kDimensionType);
        theWindow.drag(place(), place());
        theWindow.drag(place(), place(), Qt::AltModifier);
        break;
    case 3: {
        theWindow.pickPen();
        const QPoint first = place();
        theWindow.clickAll({first, place(), place(), first});
        break;
    }
    case 4:
        theWindow.count({place(), place()});
        break;
    }
    theWindow.pickArrow();
    return QStringLiteral("drawn with tool %1").arg(kind);
}

void FigureSession::chooseValue(const Key& aKey)
{
    const QStringList names = tool(aKey.first)->theValueNames;
    const LmKernelObjectDataDescr* descr = theWindow.kernel().getDataDescriptor(aKey.first);
    LmParamKeyframeVector values = descr->createKeyframeVector();
    descr->setValue(values, QStringLiteral("dispv"), names[random(int(names.size()))]);
    theWindow.stack().push(new CmdChangeObject(aKey.first, aKey.second, values, false));
}

QString FigureSession::change()
{
    const Key key = anyObject();
    if (key.first == 0)
        return draw();
    LmCvObject* item = itemOf(key);
    switch (random(5)) {
    case 0:
        theWindow.stack().push(new CmdSwitchAnimation(key.first, key.second, random(2) > 0));
        return QStringLiteral("animated");
    case 1:
        if (key.first != FindWindow::kCounterType)
            chooseValue(key);
        return QStringLiteral("another value");
    case 2:
        if (item)
            tool(key.first)->removeCvObject(item);
        return QStringLiteral("removed");
    case 3:
        if (item)
            tool(key.first)->showCvObject(item, random(2) > 0);
        return QStringLiteral("shown or hidden");
    default: {
        const QPoint from = item ? item->boundingRect().center() : place();
        theWindow.drag(from, from + QPoint(random(41) - 20, random(41) - 20));
        return QStringLiteral("dragged");
    }
    }
}

QString FigureSession::walk()
{
    theUndoing = true;
    const int way = random(9) - 5;
    QUndoStack& stack = theWindow.stack();
    stack.setIndex(std::clamp(stack.index() + way, 0, stack.count()));
    theUndoing = false;
    return QStringLiteral("walked %1 steps").arg(way);
}

QString FigureSession::limit()
{
    if (random(3) == 0)
        theWindow.actions().theClearRegion->trigger();
    else
        theWindow.setRegion(QRect(place(), place()).normalized());
    theWindow.pickArrow();
    return QStringLiteral("region of interest");
}

QString FigureSession::reload()
{
    const QString path = theWindow.path(QStringLiteral("session.mtp"));
    QString error;
    if (!theWindow.bench().document().save(path, error) || !theWindow.window().openAtStart(path))
        qFatal("the session couldn't be saved and opened: %s", qPrintable(error));
    theBare.clear();
    return QStringLiteral("opened again");
}

QString FigureSession::step()
{
    QString error;
    switch (random(12)) {
    case 0:
    case 1:
    case 2:
        return calibrate();
    case 3:
    case 4:
        return draw();
    case 5:
    case 6:
        return change();
    case 7:
        return walk();
    case 8:
        return limit();
    case 9:
        theWindow.bench().media().showFrame(random(4), error);
        return QStringLiteral("another frame");
    case 10:
        theWindow.editor().setZoom(std::exp2(8.0 * theRandom.generateDouble() - 4.0));
        return QStringLiteral("another zoom");
    default:
        return random(4) == 0 ? reload() : calibrate();
    }
}
