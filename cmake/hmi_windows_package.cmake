# What XRVHMI.dll ships with: a version resource, its debug information in XRVHMI.dll.debug beside it
# (linked by .gnu_debuglink, the DLL itself stripped), and besides the GNU import library an
# MSVC-style one (XRVHMI.lib) made from the .def by llvm-dlltool.
enable_language(RC)
configure_file(${PROJECT_SOURCE_DIR}/platform/win32/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
target_sources(xrvhmi PRIVATE ${PROJECT_BINARY_DIR}/version.rc)

find_program(HMI_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-16 llvm-dlltool-15 llvm-dlltool-14 REQUIRED)
set(HMI_DEF ${PROJECT_SOURCE_DIR}/hmiapi/src/access/XRVHMI.def)
add_custom_command(TARGET xrvhmi POST_BUILD
  COMMAND ${CMAKE_OBJCOPY} --only-keep-debug $<TARGET_FILE:xrvhmi> $<TARGET_FILE:xrvhmi>.debug
  COMMAND ${CMAKE_STRIP} --strip-all $<TARGET_FILE:xrvhmi>
  COMMAND ${CMAKE_OBJCOPY} --add-gnu-debuglink=$<TARGET_FILE:xrvhmi>.debug $<TARGET_FILE:xrvhmi>
  COMMAND ${HMI_LLVM_DLLTOOL} -m i386:x86-64 -d ${HMI_DEF} -l $<TARGET_FILE_DIR:xrvhmi>/XRVHMI.lib
  WORKING_DIRECTORY $<TARGET_FILE_DIR:xrvhmi>
  VERBATIM)
install(FILES $<TARGET_FILE:xrvhmi>.debug DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
install(FILES $<TARGET_FILE_DIR:xrvhmi>/XRVHMI.lib ${HMI_DEF} DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION . COMPONENT runtime)
