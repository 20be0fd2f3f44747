#include "LmAppSettings.h"

QColor LmAppSettings::theGridColor(208, 16, 76); // dark enough for the white text of labels
QString LmAppSettings::theLastExcelFile;
