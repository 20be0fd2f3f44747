# Warnings are errors for our own code; Qt's and OpenCV's headers are system headers to the compiler.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
                    -Wnull-dereference -Wdouble-promotion -Werror)
# QLinkedList's shared empty list, inlined, looks to GCC as if it were freed.
add_compile_options(-Wno-free-nonheap-object)
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH)

if(MEASURETOOLS_SANITIZE)
    # Lines are enough for a report's stack; more would double the time to compile and link.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -O1 -g1)
    add_link_options(-fsanitize=address,undefined)
endif()

# There are hundreds of programs to link, and this linker takes a sixth of the time.
find_program(GOLD_LINKER ld.gold)
if(GOLD_LINKER)
    add_link_options(-fuse-ld=gold)
endif()
