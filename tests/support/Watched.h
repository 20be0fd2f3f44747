#ifndef WATCHED_H
#define WATCHED_H

/// A build whose memory is watched runs many times slower, so that tests of many random cases take fewer of
/// them there.
namespace Watched {

#ifdef __SANITIZE_ADDRESS__
constexpr bool kIsOn = true;
#else
constexpr bool kIsOn = false;
#endif

constexpr int rounds(int aAll)
{
    constexpr int kPart = 5;
    return kIsOn ? aAll / kPart : aAll;
}

} // namespace Watched

#endif
