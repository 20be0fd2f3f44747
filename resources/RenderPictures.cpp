#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

namespace {

/// Renders a drawing at its own size into a PNG of the same name beside it.
bool renderPicture(const QString& aDrawing)
{
    QSvgRenderer renderer(aDrawing);
    if (!renderer.isValid())
        return false;
    QImage picture(renderer.defaultSize(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    renderer.render(&painter);
    painter.end();
    const QString target = aDrawing.chopped(4) + QStringLiteral(".png"); // in place of ".svg"
    return picture.save(target, "PNG", 0);
}

} // namespace

/// Makes the PNG files of the resources from their drawings: render_pictures DRAWING.svg...
int main(int aCount, char* aArguments[])
{
    QGuiApplication application(aCount, aArguments);
    const QStringList drawings = application.arguments().mid(1);
    for (const QString& drawing : drawings)
        if (!drawing.endsWith(QLatin1String(".svg")) || !renderPicture(drawing)) {
            std::fprintf(stderr, "%s is no drawing that can be rendered\n", qPrintable(drawing));
            return 1;
        }
    return 0;
}
