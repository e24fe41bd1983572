# The project's version and, when the sources are a git checkout, the commit
# they were configured from, as a generated header for the tools:
# ${CMAKE_BINARY_DIR}/generated/calendar_module_version.h, reached by linking
# the interface target cal_version. The commit is read at configure time; a
# new commit or checkout reconfigures, so the header follows HEAD.
# CAL_SOURCE_DATE_EPOCH is the date generated documents carry: the variable
# SOURCE_DATE_EPOCH when set, else the time of the commit, else empty (the
# day of the build), so that a rebuild of one commit gives the same bytes.
set(CAL_GIT_DESCRIBE "")
set(CAL_SOURCE_DATE_EPOCH "$ENV{SOURCE_DATE_EPOCH}")
find_package(Git QUIET)
if(GIT_FOUND)
  execute_process(COMMAND ${GIT_EXECUTABLE} describe --always --dirty
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    OUTPUT_VARIABLE CAL_GIT_DESCRIBE OUTPUT_STRIP_TRAILING_WHITESPACE
    RESULT_VARIABLE describe_result ERROR_QUIET)
  if(NOT describe_result EQUAL 0)
    set(CAL_GIT_DESCRIBE "")
  endif()
  if(CAL_SOURCE_DATE_EPOCH STREQUAL "")
    execute_process(COMMAND ${GIT_EXECUTABLE} log -1 --format=%ct
      WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
      OUTPUT_VARIABLE CAL_SOURCE_DATE_EPOCH OUTPUT_STRIP_TRAILING_WHITESPACE
      RESULT_VARIABLE date_result ERROR_QUIET)
    if(NOT date_result EQUAL 0)
      set(CAL_SOURCE_DATE_EPOCH "")
    endif()
  endif()
  execute_process(COMMAND ${GIT_EXECUTABLE} rev-parse --path-format=absolute --git-path logs/HEAD
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    OUTPUT_VARIABLE head_log OUTPUT_STRIP_TRAILING_WHITESPACE
    RESULT_VARIABLE head_log_result ERROR_QUIET)
  if(head_log_result EQUAL 0 AND EXISTS "${head_log}")
    set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${head_log}")
  endif()
endif()

configure_file(${CMAKE_CURRENT_LIST_DIR}/calendar_module_version.h.in
  ${CMAKE_BINARY_DIR}/generated/calendar_module_version.h @ONLY)
add_library(cal_version INTERFACE)
target_include_directories(cal_version INTERFACE ${CMAKE_BINARY_DIR}/generated)
