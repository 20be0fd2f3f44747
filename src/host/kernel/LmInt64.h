#ifndef LMINT64_H
#define LMINT64_H

/// A frame number. Signals and slots that carry one spell it `Int64`, since they are connected by their text.
using Int64 = long long;

/// The frame of an object's default keyframes.
constexpr Int64 kDefaultFrame = -1;

#endif
