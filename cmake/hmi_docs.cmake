# The API reference (Doxygen, when installed): `cmake --build BUILD --target docs` writes BUILD/docs/html;
# an undocumented entry point fails it, and the tests run it.
find_package(Doxygen QUIET)
if(DOXYGEN_FOUND AND NOT CMAKE_CROSSCOMPILING)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/docs
    COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    COMMENT "API reference in ${PROJECT_BINARY_DIR}/docs/html" VERBATIM)
  if(HMI_TESTS)
    add_test(NAME hmi_api_reference COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target docs)
    set_tests_properties(hmi_api_reference PROPERTIES TIMEOUT 60)
  endif()
endif()
