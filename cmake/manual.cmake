# The manual pages, formatted from *.scd. Only packages and "cmake --install" need them, so a
# build without scdoc goes on without pages.
find_program(SCDOC scdoc)
if(NOT SCDOC)
  message(STATUS "scdoc is not installed: no manual pages")
endif()

# zolt_manual_page(PAGE COMPONENT): PAGE is the name with its section, such as zolt.8; its source
# PAGE.scd lies in the caller's folder.
function(zolt_manual_page page component)
  if(NOT SCDOC)
    return()
  endif()
  set(source "${CMAKE_CURRENT_SOURCE_DIR}/${page}.scd")
  set(formatted "${PROJECT_BINARY_DIR}/man/${page}")
  string(REGEX MATCH "[1-8]$" section "${page}")
  add_custom_command(
    OUTPUT "${formatted}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${PROJECT_BINARY_DIR}/man"
    COMMAND "${SCDOC}" < "${source}" > "${formatted}"
    DEPENDS "${source}"
    VERBATIM)
  add_custom_target(manual_page_${page} ALL DEPENDS "${formatted}")
  install(
    FILES "${formatted}"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man${section}"
    COMPONENT ${component})
endfunction()
