#ifndef CLIPFILES_H
#define CLIPFILES_H

#include <QByteArray>
#include <QString>

/// What the tests of broken videos share.
namespace ClipFiles {

QByteArray content(const QString& aPath);
bool write(const QString& aPath, const QByteArray& aContent);
/// Whether a text for the user is whole: what is wrong and what to do next, with nothing left to be filled
/// in.
bool isSentence(const QString& aText);

} // namespace ClipFiles

#endif
