# Installs the program, its desktop files and its documentation.

include(GNUInstallDirs)
find_program(GZIP gzip REQUIRED)

# The application ID.
set(MORVANE_APP_ID org.morvane.Morvane)
set(MORVANE_ICON_SIZES 16 24 32 48 64 128 256)

# Compresses a file of packaging/ into the folder pages/ of the build, without a timestamp.
function(morvane_compress page)
  set(compressed ${CMAKE_BINARY_DIR}/pages/${page})
  add_custom_command(OUTPUT ${compressed}.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/packaging/${page} ${compressed}
    COMMAND ${GZIP} -9nf ${compressed}
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/${page}
    COMMENT "Compressing ${page}" VERBATIM)
endfunction()

install(TARGETS morvane RUNTIME)
install(FILES packaging/${MORVANE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${MORVANE_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(generated)
foreach(size IN LISTS MORVANE_ICON_SIZES)
  set(icon icons/${size}x${size}.png)
  morvane_render(ui/morvane.svg ${icon} --width ${size} --height ${size})
  list(APPEND generated ${CMAKE_BINARY_DIR}/art/${icon})
  install(FILES ${CMAKE_BINARY_DIR}/art/${icon} DESTINATION ${hicolor}/${size}x${size}/apps
          RENAME ${MORVANE_APP_ID}.png)
endforeach()
install(FILES art/ui/morvane.svg DESTINATION ${hicolor}/scalable/apps
        RENAME ${MORVANE_APP_ID}.svg)

morvane_compress(morvane.1)
morvane_compress(changelog)
list(APPEND generated ${CMAKE_BINARY_DIR}/pages/morvane.1.gz ${CMAKE_BINARY_DIR}/pages/changelog.gz)
install(FILES ${CMAKE_BINARY_DIR}/pages/morvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/pages/changelog.gz packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/morvane)

# Builds everything that is installed, without the tests.
add_custom_target(installable ALL DEPENDS morvane ${generated})
