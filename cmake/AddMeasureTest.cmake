# Tests are most of the code: their own lines are hardly optimised, and the tests of a folder share one precompiled
# header of what all of them include, unless MEASURETOOLS_NO_SHARED_HEADER is set because their definitions differ.
# Together that more than halves the time that a build takes.
function(make_quick_to_compile name)
    target_compile_options(${name} PRIVATE $<IF:$<BOOL:${MEASURETOOLS_SANITIZE}>,-O0,-O1>)
    if(MEASURETOOLS_NO_SHARED_HEADER)
        return()
    endif()
    get_property(first DIRECTORY PROPERTY MEASURETOOLS_FIRST_TEST)
    if(first)
        target_precompile_headers(${name} REUSE_FROM ${first})
    else()
        target_precompile_headers(${name} PRIVATE <QApplication> <QtTest>)
        set_property(DIRECTORY PROPERTY MEASURETOOLS_FIRST_TEST ${name})
    endif()
endfunction()

# add_measure_test(NAME LIBRARY...) builds NAME.cpp into a test program and registers it with CTest. The program's one
# class is passed through moc by name: automatic moc would search the headers of each of the many programs.
function(add_measure_test name)
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
    qt_generate_moc(${name}.cpp ${moc})
    add_executable(${name} ${name}.cpp ${moc})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${name} PRIVATE ${ARGN} TestSupport Qt6::Test)
    make_quick_to_compile(${name})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
