#ifndef SENTENCE_H
#define SENTENCE_H

#include <QString>

/// What is wrong with a text as a message for the user: it has to be one line, begin large, end with one full
/// stop and say behind a semicolon what to do next. Empty if nothing is wrong.
QString sentenceFault(const QString& aText);

#endif
