# Links a Windows program or DLL so that it needs only system DLLs.
function(hmi_static_runtime target)
  if(WIN32)
    target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++)
  endif()
endfunction()

# Refuses undefined symbols in a Linux shared library. Not with clang's sanitizers, whose runtimes are
# linked into programs only and reach shared libraries at load time.
function(hmi_no_undefined target)
  if(NOT (HMI_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
endfunction()

# Exports only what the version script lists from a Linux shared library.
function(hmi_version_script target script)
  target_link_options(${target} PRIVATE -Wl,--version-script=${script})
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()
