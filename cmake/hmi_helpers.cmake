# Links a Windows program or DLL so that it needs only system DLLs.
function(hmi_static_runtime target)
  if(WIN32)
    target_link_options(${target} PRIVATE -static -static-libgcc -static-libstdc++)
  endif()
endfunction()
