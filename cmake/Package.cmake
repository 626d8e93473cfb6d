# The Debian package, built by scripts/package.

# The version must be the same as in the changelog and the metainfo.
set(first_line "^morvane \\(${PROJECT_VERSION}\\)")
file(STRINGS packaging/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "${first_line}")
  message(FATAL_ERROR "packaging/changelog doesn't begin with version ${PROJECT_VERSION}")
endif()
file(STRINGS packaging/${MORVANE_APP_ID}.metainfo.xml newest REGEX "<release " LIMIT_COUNT 1)
if(NOT newest MATCHES "version=\"${PROJECT_VERSION}\"")
  message(FATAL_ERROR "The newest release in the metainfo is not version ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME morvane)
set(CPACK_PACKAGE_CONTACT "Morvane developers <morvane@morvane.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for painting maps for role-playing games")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Morvane paints maps of dungeons, cathedrals, graveyards and villages, seen
from above. Tiles are chosen on the left and painted on the map on the right;
walls, doors and secret doors follow the lines of the grid. Four tile sets are
built in, and your own pictures can be used as tiles. Maps are saved as BMP
files and can be printed.")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Dependencies on libraries are found automatically, those on fonts and the Wayland plugin aren't.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
