#include "ViewZoom.h"

#include "LmCvEditor.h"

#include <QEvent>

ViewZoom::ViewZoom(LmCvEditor& aEditor, QObject* aParent) : QObject(aParent), theEditor(aEditor)
{
    connect(&theEditor, &LmCvEditor::signalZoomChanged, this, &ViewZoom::zoomChanged);
    theEditor.installEventFilter(this);
}

void ViewZoom::fit()
{
    theSelfChange = true;
    theEditor.zoomToFit();
    theSelfChange = false;
    theFitting = true;
}

void ViewZoom::refit()
{
    if (theFitting)
        fit();
}

void ViewZoom::one()
{
    const QPoint middle = theEditor.viewport()->rect().center();
    theFitting = false;
    theEditor.zoomAbout(1.0, middle);
}

void ViewZoom::step(int aSteps)
{
    theEditor.zoomStep(aSteps, theEditor.viewport()->rect().center());
}

void ViewZoom::zoomChanged()
{
    if (!theSelfChange)
        theFitting = false;
}

bool ViewZoom::eventFilter(QObject* aObject, QEvent* aEvent)
{
    // The editor's own resize event comes after its layout, with the viewport at its new size.
    if (aEvent->type() == QEvent::Resize && theFitting)
        QMetaObject::invokeMethod(this, &ViewZoom::refit, Qt::QueuedConnection);
    return QObject::eventFilter(aObject, aEvent);
}
