#ifndef MADEFILES_H
#define MADEFILES_H

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

class QTemporaryDir;

/// Files that tests make for themselves.
namespace MadeFiles {

/// Writes the bytes; the test fails if that doesn't work.
void write(const QString& aPath, const QByteArray& aBytes);
/// Writes into a folder; the path of the file.
QString writeIn(const QTemporaryDir& aFolder, const QString& aName, const QByteArray& aBytes);
QByteArray read(const QString& aPath);

/// The picture as a file of the format, in memory.
QByteArray encoded(const QImage& aPicture, const char* aFormat);

/// An uncompressed TIFF file with a page for each picture; Grayscale8, Grayscale16 and RGB888 are written as
/// such.
QByteArray tiff(const QList<QImage>& aPages);
/// The same with one page that can't be read.
QByteArray withDamagedPage(const QList<QImage>& aPages, int aDamaged);
/// A TIFF page of 64-bit floating point numbers, which picture viewers don't show.
QByteArray floatTiff(int aWidth, int aHeight);

/// A PNG file that says it has this size and holds only a few pixels.
QByteArray pngHeader(quint32 aWidth, quint32 aHeight);

/// A JPEG file with the note that the camera was turned.
QByteArray turnedJpeg(const QImage& aPicture, int aOrientation);

} // namespace MadeFiles

#endif
