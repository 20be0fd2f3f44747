# The distribution's OpenCVConfig.cmake wants every module installed; only core and imgproc are used here.
find_path(OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
add_library(OpenCvModules INTERFACE)
target_include_directories(OpenCvModules SYSTEM INTERFACE ${OPENCV_INCLUDE_DIR})
foreach(module core imgproc)
    find_library(OPENCV_${module}_LIBRARY opencv_${module} REQUIRED)
    target_link_libraries(OpenCvModules INTERFACE ${OPENCV_${module}_LIBRARY})
endforeach()
