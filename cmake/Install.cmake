# What `cmake --install` puts where, for people who run timetool and for
# developers of hosts:
#   bin/timetool
#   <libdir>/calendar-module/_binlinux/   Calendar.so and CollectionsEx.so
#   include/calendar-module/              the public headers and the host helper
#   <libdir>/cmake/CalendarModule/        find_package(CalendarModule CONFIG)
#   <libdir>/pkgconfig/calendar-module.pc
#   share/doc/calendar-module/            README, guides, formats, the host example
#   share/man/man1/timetool.1.gz          timetool's manual page
#   share/bash-completion/completions/timetool
# The two libraries are opened with dlopen by path, never linked, so nothing
# installed carries an RPATH.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(${CMAKE_CURRENT_LIST_DIR}/Version.cmake)

set(CAL_INSTALL_MODULEDIR ${CMAKE_INSTALL_LIBDIR}/calendar-module/_binlinux)
set(CAL_INSTALL_HEADERDIR ${CMAKE_INSTALL_INCLUDEDIR}/calendar-module)
set(CAL_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/CalendarModule)
set(CAL_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(CAL_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/calendar-module)

# The public headers as one interface target, CalendarModule::headers both in
# this tree and in the installed package.
add_library(calendar_module_headers INTERFACE)
add_library(CalendarModule::headers ALIAS calendar_module_headers)
set_target_properties(calendar_module_headers PROPERTIES EXPORT_NAME headers)
target_sources(calendar_module_headers INTERFACE FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR}/include FILES
  ${CMAKE_SOURCE_DIR}/include/com_types.h
  ${CMAKE_SOURCE_DIR}/include/framework_interfaces.h
  ${CMAKE_SOURCE_DIR}/include/module_entry.h
  ${CMAKE_SOURCE_DIR}/include/module_interfaces.h
  ${CMAKE_SOURCE_DIR}/include/module_host.h)
target_compile_features(calendar_module_headers INTERFACE cxx_std_20)
target_link_libraries(calendar_module_headers INTERFACE ${CMAKE_DL_LIBS})

install(TARGETS calendar_module_headers EXPORT CalendarModuleTargets
  FILE_SET HEADERS DESTINATION ${CAL_INSTALL_HEADERDIR}
  INCLUDES DESTINATION ${CAL_INSTALL_HEADERDIR})
install(TARGETS Calendar CollectionsEx LIBRARY DESTINATION ${CAL_INSTALL_MODULEDIR})
install(TARGETS timetool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# timetool finds the installed module folder from its own location; the
# loading code is in timetool_host.
file(RELATIVE_PATH CAL_MODULE_DIR_FROM_BIN /${CMAKE_INSTALL_BINDIR} /${CAL_INSTALL_MODULEDIR})
target_compile_definitions(timetool_host PRIVATE CAL_MODULE_DIR_FROM_BIN="${CAL_MODULE_DIR_FROM_BIN}")

# timetool's manual page, rendered by scdoc when it is present (the package
# build sets CAL_REQUIRE_MAN_PAGE so that it cannot be left out), and its bash
# completion, loaded by bash-completion on first use of the command.
option(CAL_REQUIRE_MAN_PAGE "Fail to configure when scdoc is missing" OFF)
find_program(SCDOC_EXECUTABLE scdoc)
find_program(GZIP_EXECUTABLE gzip)
if(SCDOC_EXECUTABLE AND GZIP_EXECUTABLE)
  set(CAL_MAN_PAGE ${CMAKE_BINARY_DIR}/man/timetool.1)
  add_custom_command(OUTPUT ${CAL_MAN_PAGE} ${CAL_MAN_PAGE}.gz
    COMMAND ${CMAKE_COMMAND} -DSCDOC=${SCDOC_EXECUTABLE} -DGZIP=${GZIP_EXECUTABLE} -DEPOCH=${CAL_SOURCE_DATE_EPOCH}
            -DPAGE=${CMAKE_SOURCE_DIR}/docs/timetool.1.scd -DGRAMMAR=${CMAKE_SOURCE_DIR}/tools/commands.h
            -DOUTPUT=${CAL_MAN_PAGE} -P ${CMAKE_CURRENT_LIST_DIR}/ManPage.cmake
    DEPENDS ${CMAKE_SOURCE_DIR}/docs/timetool.1.scd ${CMAKE_SOURCE_DIR}/tools/commands.h
            ${CMAKE_CURRENT_LIST_DIR}/ManPage.cmake
    COMMENT "Rendering timetool.1")
  add_custom_target(timetool_man_page ALL DEPENDS ${CAL_MAN_PAGE} ${CAL_MAN_PAGE}.gz)
  install(FILES ${CAL_MAN_PAGE}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
elseif(CAL_REQUIRE_MAN_PAGE)
  message(FATAL_ERROR "scdoc and gzip are needed for timetool.1: bash scripts/setup.sh installs them")
endif()
install(FILES ${CMAKE_SOURCE_DIR}/tools/completion/timetool.bash
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions RENAME timetool)

# The CMake package.
install(EXPORT CalendarModuleTargets NAMESPACE CalendarModule:: DESTINATION ${CAL_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CalendarModuleConfig.cmake.in
  ${CMAKE_BINARY_DIR}/package/CalendarModuleConfig.cmake
  INSTALL_DESTINATION ${CAL_INSTALL_CMAKEDIR}
  PATH_VARS CAL_INSTALL_HEADERDIR CAL_INSTALL_MODULEDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/CalendarModuleConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/package/CalendarModuleConfig.cmake
  ${CMAKE_BINARY_DIR}/package/CalendarModuleConfigVersion.cmake DESTINATION ${CAL_INSTALL_CMAKEDIR})

# The pkg-config file.
file(RELATIVE_PATH CAL_PC_TO_PREFIX /${CAL_INSTALL_PKGCONFIGDIR} /)
string(REGEX REPLACE "/$" "" CAL_PC_TO_PREFIX "${CAL_PC_TO_PREFIX}")
set(CAL_PC_LIBS "")
foreach(library IN LISTS CMAKE_DL_LIBS)
  string(APPEND CAL_PC_LIBS " -l${library}")
endforeach()
string(STRIP "${CAL_PC_LIBS}" CAL_PC_LIBS)
configure_file(${CMAKE_CURRENT_LIST_DIR}/calendar-module.pc.in ${CMAKE_BINARY_DIR}/package/calendar-module.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/package/calendar-module.pc DESTINATION ${CAL_INSTALL_PKGCONFIGDIR})

# Documentation, keeping the relative places the README links to.
install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CAL_INSTALL_DOCDIR})
if(EXISTS ${CMAKE_SOURCE_DIR}/COMPATIBILITY.md)
  install(FILES ${CMAKE_SOURCE_DIR}/COMPATIBILITY.md DESTINATION ${CAL_INSTALL_DOCDIR})
endif()
# The manual page's source is installed rendered, under share/man.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${CAL_INSTALL_DOCDIR}/docs PATTERN "*.scd" EXCLUDE)
install(FILES ${CMAKE_SOURCE_DIR}/hostkit/REGISTRY.md DESTINATION ${CAL_INSTALL_DOCDIR}/hostkit)
install(FILES ${CMAKE_SOURCE_DIR}/hostkit/streams/FORMATS.md DESTINATION ${CAL_INSTALL_DOCDIR}/hostkit/streams)
install(FILES ${CMAKE_SOURCE_DIR}/examples/host/CMakeLists.txt ${CMAKE_SOURCE_DIR}/examples/host/host_example.cpp
  DESTINATION ${CAL_INSTALL_DOCDIR}/examples/host)

include(${CMAKE_CURRENT_LIST_DIR}/Package.cmake)
