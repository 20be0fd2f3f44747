# add_measure_test(NAME LIBRARY...) builds NAME.cpp into a test program and registers it with CTest. The program's one
# class is passed through moc by name: automatic moc would search the headers of each of the many programs.
function(add_measure_test name)
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
    qt_generate_moc(${name}.cpp ${moc})
    add_executable(${name} ${name}.cpp ${moc})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${name} PRIVATE ${ARGN} TestSupport Qt6::Test)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
