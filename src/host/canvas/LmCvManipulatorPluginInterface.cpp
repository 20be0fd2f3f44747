#include "LmCvManipulatorPluginInterface.h"

LmCvManipulatorPluginInterface::~LmCvManipulatorPluginInterface() = default;
