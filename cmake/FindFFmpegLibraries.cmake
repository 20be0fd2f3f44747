# The distribution ships the libraries that read video with pkg-config files only; their headers and names are enough.
find_path(FFMPEG_INCLUDE_DIR libavformat/avformat.h REQUIRED)
add_library(FFmpeg INTERFACE)
target_include_directories(FFmpeg SYSTEM INTERFACE ${FFMPEG_INCLUDE_DIR})
foreach(library avformat avcodec swscale avutil)
    find_library(FFMPEG_${library}_LIBRARY ${library} REQUIRED)
    target_link_libraries(FFmpeg INTERFACE ${FFMPEG_${library}_LIBRARY})
endforeach()
