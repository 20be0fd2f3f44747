#ifndef SCALEBARVIEW_H
#define SCALEBARVIEW_H

#include "ScaleBar.h"

#include <QWidget>

class LmCvEditor;
class Media;
class QAction;

/// The scale bar in the lower left corner of the view. It follows zoom, calibration and picture, leaves the
/// mouse to the canvas and stands still while the picture scrolls.
///
/// It is an opaque child of the viewport. Beside the viewport, or translucent, it would make Qt paint the
/// whole view anew for every step of a pan instead of moving its pixels.
class ScaleBarView : public QWidget
{
    Q_OBJECT

public:
    ScaleBarView(LmCvEditor& aEditor, const Media& aMedia);
    ~ScaleBarView() override;

    bool isOn() const { return theOn; }
    /// Empty while none is shown.
    QString text() const;
    void setOn(bool aOn);
    /// Shows and hides itself with the check mark, which is kept for the next start.
    void obey(QAction& aAction);

protected:
    bool eventFilter(QObject* aObject, QEvent* aEvent) override;
    void paintEvent(QPaintEvent* aEvent) override;

private:
    void refresh();
    void place();

    LmCvEditor& theEditor;
    ScaleBar theBar;
    bool theOn = false;
};

#endif
