# The Debian package: `cpack -G DEB` in the build folder. The library
# dependencies are read from the binaries by dpkg-shlibdeps; Qt's platform
# plugins are loaded at run time, so no binary names them.

set(TESSALY_PACKAGE_MAINTAINER "Tessaly developers <tessaly@example.org>"
  CACHE STRING "Maintainer field of the Debian package")

# Debian wants a copyright file and a changelog beside every package.
string(TIMESTAMP TESSALY_PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${PROJECT_SOURCE_DIR}/data/debian/changelog.in debian/changelog @ONLY)
add_custom_command(OUTPUT debian/changelog.gz
  COMMAND gzip -9nf -k debian/changelog
  DEPENDS ${PROJECT_BINARY_DIR}/debian/changelog)
add_custom_target(debian_changelog ALL DEPENDS debian/changelog.gz)
install(FILES ${PROJECT_SOURCE_DIR}/data/debian/copyright ${PROJECT_BINARY_DIR}/debian/changelog.gz
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaly)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaly)
set(CPACK_PACKAGE_VENDOR "Tessaly developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "batch rename wizard")
set(CPACK_PACKAGE_DESCRIPTION
  "Tessaly renames many files in one pass. Each new name is built from six\n"
  "placements (the old name, a serial number or letter, the extension, the\n"
  "date, a piece of the path, free text) and cleaned by options for case,\n"
  "spacing, underscores and extensions. Every new name is shown for review\n"
  "before anything moves, and the run ends in a log with one outcome per\n"
  "file.\n"
  "\n"
  "The package holds the desktop wizard (tessaly) and a console program for\n"
  "scripts (tessaly-cli).")
string(JOIN "" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(CPACK_PACKAGE_CONTACT "${TESSALY_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${TESSALY_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
