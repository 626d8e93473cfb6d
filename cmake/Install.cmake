# Installs the program, its desktop files and its documentation.

include(GNUInstallDirs)
find_program(GZIP gzip REQUIRED)

# The application ID.
set(MORVANE_APP_ID org.morvane.Morvane)
set(MORVANE_ICON_SIZES 16 24 32 48 64 128 256)

# Compresses a file of packaging/ into the file `out` in the pages folder of the build, without its
# time.
function(morvane_pack page out)
  set(packed ${CMAKE_BINARY_DIR}/pages/${out})
  add_custom_command(OUTPUT ${packed}.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/packaging/${page} ${packed}
    COMMAND ${GZIP} -9nf ${packed}
    DEPENDS ${CMAKE_SOURCE_DIR}/packaging/${page}
    COMMENT "Packing ${out}.gz" VERBATIM)
endfunction()

install(TARGETS morvane RUNTIME)
install(FILES packaging/${MORVANE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${MORVANE_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(made)
foreach(size IN LISTS MORVANE_ICON_SIZES)
  set(icon icons/${size}x${size}.png)
  morvane_render(ui/morvane.svg ${icon} --width ${size} --height ${size})
  list(APPEND made ${CMAKE_BINARY_DIR}/art/${icon})
  install(FILES ${CMAKE_BINARY_DIR}/art/${icon} DESTINATION ${hicolor}/${size}x${size}/apps
          RENAME ${MORVANE_APP_ID}.png)
endforeach()
install(FILES art/ui/morvane.svg DESTINATION ${hicolor}/scalable/apps
        RENAME ${MORVANE_APP_ID}.svg)

morvane_pack(morvane.1 morvane.1)
morvane_pack(changelog changelog)
list(APPEND made ${CMAKE_BINARY_DIR}/pages/morvane.1.gz ${CMAKE_BINARY_DIR}/pages/changelog.gz)
install(FILES ${CMAKE_BINARY_DIR}/pages/morvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/pages/changelog.gz packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/morvane)

# Builds everything that is installed, without the tests.
add_custom_target(installable ALL DEPENDS morvane ${made})
