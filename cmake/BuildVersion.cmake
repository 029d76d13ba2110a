# The commit in what --version says, looked up by every build and not only when CMake configures. The file is
# rewritten only if the commit has changed. The library is linked into programs, not into rooms: a new commit then
# links only those again.
if(NOT CMAKE_SCRIPT_MODE_FILE)
  set(orvenza_build_version ${PROJECT_BINARY_DIR}/build_version.cpp)
  add_custom_target(
    orvenza_commit
    COMMAND ${CMAKE_COMMAND} -D SOURCES=${PROJECT_SOURCE_DIR} -D OUTPUT=${orvenza_build_version} -P
            ${CMAKE_CURRENT_LIST_FILE}
    BYPRODUCTS ${orvenza_build_version}
    VERBATIM)
  set_source_files_properties(${orvenza_build_version} PROPERTIES GENERATED TRUE)
  add_library(orvenza_build_version STATIC ${orvenza_build_version})
  add_dependencies(orvenza_build_version orvenza_commit)
  target_link_libraries(orvenza_build_version PUBLIC orvenza_core PRIVATE orvenza_options)
  return()
endif()

# cmake -D SOURCES=FOLDER -D OUTPUT=FILE -P BuildVersion.cmake writes the file. ORVENZA_COMMIT in the environment stands
# for sources without history; sources inside another project's checkout have none.
set(commit "")
if(DEFINED ENV{ORVENZA_COMMIT})
  set(commit "$ENV{ORVENZA_COMMIT}")
  if(NOT commit MATCHES "^[0-9a-f]*$")
    message(FATAL_ERROR "ORVENZA_COMMIT is '${commit}', but a commit is written in hexadecimal digits")
  endif()
elseif(EXISTS ${SOURCES}/.git)
  execute_process(COMMAND git -C ${SOURCES} rev-parse --short=10 HEAD RESULT_VARIABLE result OUTPUT_VARIABLE commit
                  ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT result STREQUAL "0")
    set(commit "")
  endif()
endif()
set(remark "")
if(NOT commit STREQUAL "")
  set(remark " (commit ${commit})")
endif()
configure_file(${SOURCES}/src/core/build_version.cpp.in ${OUTPUT} @ONLY)
