#include "PictureRenderer.h"

#include "LmCvEditor.h"
#include "LmCvObject.h"
#include "LmKSKernelData.h"
#include "ScaleBar.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>

#include <utility>
#include <vector>

namespace {

QString tr(const char* aText)
{
    return QCoreApplication::translate("PictureRenderer", aText);
}

/// Shows all objects as they are at zoom 1, none of them selected or current, and hides the lines that only
/// help with drawing or calibrating; gives all of them back as they were.
class PlainItems
{
public:
    explicit PlainItems(LmCvEditor& aEditor) : theEditor(aEditor)
    {
        const QList<LmCvObject*> items = aEditor.cvItems();
        theItems.reserve(size_t(items.size()));
        for (LmCvObject* item : items) {
            theItems.push_back({item, item->isSelected(), item->isActive()});
            if (item->isSelected())
                item->setSelected(false);
            if (item->isActive())
                item->setActive(false);
            item->adjustScale(QTransform());
        }
        for (Q3CanvasItem* item : aEditor.canvas()->allItems())
            if (item->isVisible() && !dynamic_cast<LmCvObject*>(item))
                theHelpers.append(item);
        for (Q3CanvasItem* item : std::as_const(theHelpers))
            item->hide();
    }

    ~PlainItems()
    {
        for (Q3CanvasItem* item : std::as_const(theHelpers))
            item->show();
        for (const State& state : theItems) {
            if (state.theSelected)
                state.theItem->setSelected(true);
            if (state.theActive)
                state.theItem->setActive(true);
            state.theItem->adjustScale(theEditor.worldMatrix());
        }
    }
    Q_DISABLE_COPY_MOVE(PlainItems)

private:
    struct State
    {
        LmCvObject* theItem; // owned by the canvas
        bool theSelected;
        bool theActive;
    };

    LmCvEditor& theEditor;
    std::vector<State> theItems;
    QList<Q3CanvasItem*> theHelpers; // owned by their tools
};

QByteArray formatOf(const QString& aPath)
{
    const QString suffix = QFileInfo(aPath).suffix().toLower();
    return suffix.isEmpty() ? QByteArray("png") : suffix.toLatin1();
}

} // namespace

QImage PictureRenderer::render(LmCvEditor& aEditor, bool aScaleBar)
{
    LmCvCanvas* canvas = aEditor.imageCanvas();
    if (!LmKSKernelData::getInstance()->theCurrentImage)
        return QImage();
    QImage picture(canvas->size(), QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    // The note of programs that know none; that of the screen would be taken for the picture's own.
    constexpr int kUnknownResolution = 2835; // pixels per metre, 72 per inch
    picture.setDotsPerMeterX(kUnknownResolution);
    picture.setDotsPerMeterY(kUnknownResolution);
    picture.fill(canvas->backgroundColor());
    const PlainItems plain(aEditor);
    QPainter painter(&picture);
    canvas->drawArea(QRegion(canvas->rect()), painter);
    painter.resetTransform();
    painter.setClipping(false);
    if (aScaleBar)
        ScaleBar::paintInto(painter, picture.size());
    return picture;
}

bool PictureRenderer::renderTo(LmCvEditor& aEditor, const QString& aPath, QString& aError, bool aScaleBar)
{
    const QByteArray format = formatOf(aPath);
    const QString name = QDir::toNativeSeparators(aPath);
    if (!QImageWriter::supportedImageFormats().contains(format)) {
        aError = tr("Pictures can't be written as .%1; choose a name that ends in .png.")
                     .arg(QLatin1String(format));
        return false;
    }
    const QImage picture = render(aEditor, aScaleBar);
    if (picture.isNull()) {
        aError = tr("There is no picture to write, or memory is short; open one first.");
        return false;
    }
    QSaveFile file(aPath);
    QString reason;
    if (file.open(QIODevice::WriteOnly)) {
        QImageWriter writer(&file, format);
        if (writer.write(picture) && file.commit())
            return true;
        reason = file.error() == QFileDevice::NoError ? writer.errorString() : file.errorString();
    } else {
        reason = file.errorString();
    }
    aError = tr("The picture %1 can't be written (%2); choose another folder.").arg(name, reason);
    return false;
}
