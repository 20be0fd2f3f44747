# Tests are most of the code: their own lines and those that they share aren't optimised, and all share one precompiled
# header of what they include. The target that asks first owns it and has no definitions of its own.
function(make_quick_to_compile name)
    # Definitions that Qt's test header looks at, and that differ: where the data of tests are, which these tests make
    # themselves, and whether there is a network, which they don't use.
    # Undefined behaviour is looked for in what they test; looking for it in their own lines takes as long as compiling
    # them.
    target_compile_options(${name} PRIVATE -O0 $<$<BOOL:${MEASURETOOLS_SANITIZE}>:-fno-sanitize=undefined>
                           -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR -UQT_NETWORK_LIB)
    get_property(owner GLOBAL PROPERTY MEASURETOOLS_TEST_HEADERS)
    if(owner)
        target_precompile_headers(${name} REUSE_FROM ${owner})
    else()
        target_precompile_headers(${name} PRIVATE <QApplication> <QtTest>)
        set_property(GLOBAL PROPERTY MEASURETOOLS_TEST_HEADERS ${name})
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
