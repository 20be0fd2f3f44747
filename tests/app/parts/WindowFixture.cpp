#include "WindowFixture.h"

#include "Drawn.h"
#include "LmCvEditor.h"
#include "LmCvManipulator.h"
#include "LmKSKernelData.h"
#include "LmKernelObjectData.h"
#include "LmKernelObjectDataDescr.h"
#include "MadeFiles.h"
#include "TestSamples.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QSettings>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

WindowFixture::WindowFixture(Start aStart)
{
    QCoreApplication::setOrganizationName(QStringLiteral("measuretools-tests"));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, theFolder.path());
    if (!madePicture(400, 300).save(picturePath()))
        QTest::qFail("the test's picture couldn't be written", __FILE__, __LINE__);
    startWindow();
    if (aStart == kPicture && !theWindow->openAtStart(picturePath()))
        QTest::qFail("the test's picture couldn't be opened", __FILE__, __LINE__);
}

WindowFixture::~WindowFixture() = default;

void WindowFixture::startWindow()
{
    theWindow = std::make_unique<MainWindow>();
    theWindow->resize(900, 700);
    theWindow->show();
    activate();
    editor().setFocus();
}

void WindowFixture::activate()
{
    // The change of focus that a closed menu brings about may still be under way.
    QCoreApplication::processEvents();
    if (theWindow->isActiveWindow())
        return;
    theWindow->activateWindow();
    if (!QTest::qWaitForWindowActive(theWindow.get()))
        QTest::qFail("the window didn't become the active one", __FILE__, __LINE__);
}

void WindowFixture::restart()
{
    theWindow.reset();
    startWindow();
}

LmKSKernelData& WindowFixture::kernel()
{
    return *LmKSKernelData::getInstance();
}

void WindowFixture::openPages(int aCount)
{
    QList<QImage> pages;
    for (int page = 0; page < aCount; ++page)
        pages << madePicture(400, 300).convertToFormat(QImage::Format_Grayscale8);
    MadeFiles::write(path(QStringLiteral("pages.tif")), MadeFiles::tiff(pages));
    if (!theWindow->openAtStart(path(QStringLiteral("pages.tif"))))
        QTest::qFail("the pages couldn't be opened", __FILE__, __LINE__);
}

void WindowFixture::send(QEvent::Type aType, const QPoint& aCanvasPoint, Qt::MouseButton aButton,
                         Qt::KeyboardModifiers aModifiers)
{
    // The middle of the canvas pixel.
    const QPointF pos = editor().toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5));
    QWidget* viewport = editor().viewport();
    QMouseEvent event(aType, pos, viewport->mapToGlobal(pos), aButton, theButtons, aModifiers);
    QApplication::sendEvent(viewport, &event);
}

void WindowFixture::press(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    theButtons = Qt::LeftButton;
    send(QEvent::MouseButtonPress, aCanvasPoint, Qt::LeftButton, aModifiers);
}

void WindowFixture::release(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    theButtons = Qt::NoButton;
    send(QEvent::MouseButtonRelease, aCanvasPoint, Qt::LeftButton, aModifiers);
}

void WindowFixture::move(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    send(QEvent::MouseMove, aCanvasPoint, Qt::NoButton, aModifiers);
}

void WindowFixture::click(const QPoint& aCanvasPoint, Qt::KeyboardModifiers aModifiers)
{
    press(aCanvasPoint, aModifiers);
    release(aCanvasPoint, aModifiers);
}

void WindowFixture::drag(const QPoint& aFrom, const QPoint& aTo, Qt::KeyboardModifiers aModifiers)
{
    press(aFrom, aModifiers);
    move((aFrom + aTo) / 2, aModifiers);
    move(aTo, aModifiers);
    release(aTo, aModifiers);
}

void WindowFixture::key(Qt::Key aKey, Qt::KeyboardModifiers aModifiers)
{
    // A dialog or menu that closed may have left no window active, and shortcuts need one.
    activate();
    QTest::keyClick(theWindow->windowHandle(), aKey, aModifiers);
}

QMenu* WindowFixture::contextMenu(const QPoint& aCanvasPoint)
{
    theButtons = Qt::RightButton;
    send(QEvent::MouseButtonPress, aCanvasPoint, Qt::RightButton, Qt::NoModifier);
    const QPoint pos = editor().toViewport(QPointF(aCanvasPoint) + QPointF(0.5, 0.5)).toPoint();
    QWidget* viewport = editor().viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, viewport->mapToGlobal(pos));
    QApplication::sendEvent(viewport, &event);
    theButtons = Qt::NoButton;
    send(QEvent::MouseButtonRelease, aCanvasPoint, Qt::RightButton, Qt::NoModifier);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QAction* WindowFixture::find(const QMenu& aMenu, const QString& aText)
{
    const QList<QAction*> actions = aMenu.actions();
    for (QAction* action : actions) {
        if (action->text().remove(QLatin1Char('&')) == aText)
            return action;
        QAction* inside = action->menu() ? find(*action->menu(), aText) : nullptr;
        if (inside)
            return inside;
    }
    return nullptr;
}

bool WindowFixture::choose(QMenu& aMenu, const QString& aText)
{
    QAction* action = find(aMenu, aText);
    if (!action || !action->isEnabled() || !action->isVisible()) {
        QTest::qFail(qPrintable(QStringLiteral("there is no entry ") + aText), __FILE__, __LINE__);
        aMenu.close();
        return false;
    }
    if (aMenu.actions().contains(action)) {
        aMenu.setActiveAction(action);
        QTest::keyClick(&aMenu, Qt::Key_Return);
    } else {
        action->trigger();
        aMenu.close();
    }
    return true;
}

LmCvManipulator* WindowFixture::distanceTool()
{
    return kernel().getCvManipulator(kDistanceType);
}

void WindowFixture::pickDistance()
{
    QToolButton* button = distanceTool()->theToolButton;
    if (!button->isChecked())
        QTest::mouseClick(button, Qt::LeftButton);
}

void WindowFixture::pickArrow()
{
    QWidget* button = actions().theToolBar->widgetForAction(actions().theArrow);
    QTest::mouseClick(button, Qt::LeftButton);
}

int WindowFixture::draw(const QPoint& aFrom, const QPoint& aTo)
{
    const int idx = distanceTool()->nextObjectIdx();
    pickDistance();
    drag(aFrom, aTo);
    pickArrow();
    return distance(idx) ? idx : 0;
}

const LmKernelObjectData* WindowFixture::distance(int aIdx)
{
    return kernel().getObject(kDistanceType, aIdx);
}

int WindowFixture::distanceCount()
{
    return int(kernel().getObjectsOfType(kDistanceType).size());
}

QVariant WindowFixture::value(int aIdx, const QString& aParam)
{
    const LmKernelObjectData* record = distance(aIdx);
    if (!record)
        return QVariant();
    return kernel()
        .getDataDescriptor(kDistanceType)
        ->getValue(record->getKeyframesAt(kernel().theCurrentFrame), aParam);
}
