#include "ScaleBarView.h"

#include "LmCvEditor.h"
#include "LmKSKernelData.h"
#include "Media.h"

#include <QAction>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSettings>

namespace {

constexpr QLatin1String kSettingsKey("view/scaleBar");
constexpr int kTextHeight = 13; // logical pixels, as in menus
constexpr int kDistance = 10;   // from the edges of the view

} // namespace

ScaleBarView::ScaleBarView(LmCvEditor& aEditor, const Media& aMedia)
    : QWidget(aEditor.viewport()), theEditor(aEditor)
{
    setObjectName(QStringLiteral("scaleBar"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    hide();
    aEditor.viewport()->installEventFilter(this);
    // The bars tell of a step after the viewport has scrolled and taken this widget along.
    connect(aEditor.horizontalScrollBar(), &QScrollBar::valueChanged, this, &ScaleBarView::place);
    connect(aEditor.verticalScrollBar(), &QScrollBar::valueChanged, this, &ScaleBarView::place);
    connect(&aEditor, &LmCvEditor::signalZoomChanged, this, &ScaleBarView::refresh);
    connect(&aMedia, &Media::opened, this, &ScaleBarView::refresh);
    connect(LmKSKernelData::getInstance(), &LmKSKernelData::signalAfterCalibrationChanged, this,
            &ScaleBarView::refresh);
}

ScaleBarView::~ScaleBarView() = default;

QString ScaleBarView::text() const
{
    return isVisibleTo(&theEditor) ? theBar.theText : QString();
}

void ScaleBarView::setOn(bool aOn)
{
    theOn = aOn;
    refresh();
}

void ScaleBarView::obey(QAction& aAction)
{
    connect(&aAction, &QAction::toggled, this, [this](bool aOn) {
        setOn(aOn);
        QSettings().setValue(kSettingsKey, aOn);
    });
    aAction.setChecked(QSettings().value(kSettingsKey, false).toBool());
}

void ScaleBarView::refresh()
{
    const QSize room = theEditor.viewport()->size() - 2 * QSize(kDistance, kDistance);
    const ScaleBar bar =
        theOn ? ScaleBar::forPicture(theEditor.zoom(), theEditor.viewport()->width()) : ScaleBar();
    const QSize plate = bar.size(kTextHeight);
    if (bar.isNull() || plate.width() > room.width() || plate.height() > room.height()) {
        hide();
        return;
    }
    if (!(bar == theBar))
        update();
    theBar = bar;
    setAccessibleName(tr("Scale bar, %1").arg(bar.theText));
    resize(plate);
    place();
    show();
}

void ScaleBarView::place()
{
    move(kDistance, theEditor.viewport()->height() - kDistance - height());
}

bool ScaleBarView::eventFilter(QObject* aObject, QEvent* aEvent)
{
    if (aEvent->type() == QEvent::Resize)
        refresh();
    return QWidget::eventFilter(aObject, aEvent);
}

void ScaleBarView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    theBar.paint(painter, kTextHeight);
}
