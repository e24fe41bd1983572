# The Debian package: `cpack -G DEB` in a release build folder makes
# calendar-module_<version>_amd64.deb holding everything cmake/Install.cmake
# installs, under /usr. Its dependencies are read from the binaries by
# dpkg-shlibdeps (packages dpkg-dev and file).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME calendar-module)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Calendar module maintainers <maintainers@calendar-module.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calendar component module for framework hosts, with timetool")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Calendar.so serves the components Time (seven calendars over one day count,\n\
weekday, Linux time, sunrise and sunset, moon phase, persistence) and\n\
DblBuffer (a notifying ring buffer of doubles) to hosts of a COM-like\n\
component framework; CollectionsEx.so provides the framework services it\n\
needs. timetool shows dates, conversions, sun and moon from the command\n\
line. Headers, a CMake package and a pkg-config file serve host developers.")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
