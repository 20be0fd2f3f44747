#ifndef QMATRIX_H
#define QMATRIX_H

#include <QTransform>

/// The affine matrix under the name that the tools use.
using QMatrix = QTransform;

#endif
