#include "LmAppSettings.h"

QColor LmAppSettings::theGridColor(255, 208, 0);
QString LmAppSettings::theLastExcelFile;
