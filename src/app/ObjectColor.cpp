#include "ObjectColor.h"

#include "AppIcon.h"
#include "LmAppSettings.h"

#include <QAction>
#include <QColorDialog>
#include <QPainter>
#include <QSettings>

namespace {

constexpr QLatin1String kKey("objectColor");
constexpr int kIconSize = 24;

} // namespace

ObjectColor::ObjectColor(QAction& aAction, QWidget& aWindow)
    : QObject(&aWindow), theAction(aAction), theWindow(aWindow)
{
    const QColor kept(QSettings().value(kKey).toString());
    if (kept.isValid())
        LmAppSettings::theGridColor = kept;
    connect(&theAction, &QAction::triggered, this, &ObjectColor::ask);
    showInIcon();
}

void ObjectColor::set(const QColor& aColor)
{
    LmAppSettings::theGridColor = aColor;
    QSettings().setValue(kKey, aColor.name());
    showInIcon();
}

void ObjectColor::ask()
{
    const QColor color =
        QColorDialog::getColor(LmAppSettings::theGridColor, &theWindow, tr("Color for New Objects"));
    if (color.isValid())
        set(color);
}

void ObjectColor::showInIcon()
{
    // The drawing with a bar of the colour under it.
    QIcon icon;
    for (const int ratio : {1, 2, 3}) {
        QPixmap pixmap = appIcon(QStringLiteral("color")).pixmap(QSize(kIconSize, kIconSize), ratio);
        QPainter painter(&pixmap);
        painter.fillRect(QRectF(0, kIconSize - 5, kIconSize, 5), LmAppSettings::theGridColor);
        painter.end();
        icon.addPixmap(pixmap);
    }
    theAction.setIcon(icon);
}
