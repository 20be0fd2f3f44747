#ifndef PROJECTNAMES_H
#define PROJECTNAMES_H

/// The names in a project file, shared by reading and writing.
namespace ProjectNames {

constexpr char kRoot[] = "measuretools";
constexpr char kVersion[] = "version";
constexpr char kPicture[] = "picture";
constexpr char kPath[] = "path";
constexpr char kAbsolutePath[] = "absolute";
constexpr char kWidth[] = "width";
constexpr char kHeight[] = "height";
constexpr char kFrame[] = "frame";
constexpr char kFrames[] = "frames";
constexpr char kRegion[] = "region";             // x, y, width, height; missing for the whole picture
constexpr char kViewAnimated[] = "viewanimated"; // 1; missing for no
constexpr char kCalibrations[] = "calibrations";
constexpr char kCurrent[] = "current";
constexpr char kCalibration[] = "calibration";
constexpr char kName[] = "name";
constexpr char kValue[] = "value";
constexpr char kUnit[] = "unit";
constexpr char kObjects[] = "objects";
constexpr char kObjectType[] = "type"; // written by the descriptors

} // namespace ProjectNames

#endif
