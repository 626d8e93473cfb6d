# Renders the pictures in art/ and puts them into the program as resources:
#   :/tiles/<set>/<sheet>.png   the sheets of the tile sets, natural size
#   :/ui/<name>.png             buttons and icons, with an @2x version for high-DPI displays
#   :/ui/<name>.jpg             splash screen and About picture, also with an @2x version

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(GRAPHICSMAGICK gm REQUIRED)

set(MORVANE_TILE_SHEETS
  abandoned-cathedral/tiles abandoned-cathedral/furniture abandoned-cathedral/various
  abandoned-cathedral/edges
  grave-dungeon/tiles grave-dungeon/furniture grave-dungeon/various grave-dungeon/edges
  tsr-original/tiles tsr-original/edges
  classic-village/tiles classic-village/buildings classic-village/various classic-village/edges
)
set(MORVANE_ICONS
  mode-tile mode-wall mode-door flip-horizontal flip-vertical rotate-left rotate-right
  new open save print undo redo cut copy paste morvane secret
)
set(MORVANE_JPEGS splash about)

# Renders an SVG file to `out` in the folder art/ of the build. Further arguments set the size.
function(morvane_render svg out)
  set(png ${CMAKE_BINARY_DIR}/art/${out})
  get_filename_component(folder ${png} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${png}
    COMMAND ${RSVG_CONVERT} ${ARGN} --output ${png} ${CMAKE_SOURCE_DIR}/art/${svg}
    DEPENDS ${CMAKE_SOURCE_DIR}/art/${svg}
    COMMENT "Rendering ${out}" VERBATIM)
endfunction()

# Renders an SVG file to `out`.jpg.
function(morvane_render_jpeg svg out)
  morvane_render(${svg} ${out}.png ${ARGN})
  set(jpeg ${CMAKE_BINARY_DIR}/art/${out}.jpg)
  add_custom_command(OUTPUT ${jpeg}
    COMMAND ${GRAPHICSMAGICK} convert ${CMAKE_BINARY_DIR}/art/${out}.png
            -sampling-factor 1x1 -quality 93 ${jpeg}
    DEPENDS ${CMAKE_BINARY_DIR}/art/${out}.png
    COMMENT "Rendering ${out}.jpg" VERBATIM)
endfunction()

# Renders all art and adds it to the target as resources.
function(morvane_add_art target)
  set(files)
  foreach(sheet IN LISTS MORVANE_TILE_SHEETS)
    morvane_render(${sheet}.svg tiles/${sheet}.png --zoom 1)
    list(APPEND files tiles/${sheet}.png)
  endforeach()
  foreach(icon IN LISTS MORVANE_ICONS)
    morvane_render(ui/${icon}.svg ui/${icon}.png --zoom 1)
    morvane_render(ui/${icon}.svg ui/${icon}@2x.png --zoom 2)
    list(APPEND files ui/${icon}.png ui/${icon}@2x.png)
  endforeach()
  foreach(picture IN LISTS MORVANE_JPEGS)
    morvane_render_jpeg(ui/${picture}.svg ui/${picture} --zoom 1)
    morvane_render_jpeg(ui/${picture}.svg ui/${picture}@2x --zoom 2)
    list(APPEND files ui/${picture}.jpg ui/${picture}@2x.jpg)
  endforeach()
  list(TRANSFORM files PREPEND ${CMAKE_BINARY_DIR}/art/)
  # Format version 1 stores no times, so that builds are reproducible.
  qt_add_resources(${target} art PREFIX "/" BASE ${CMAKE_BINARY_DIR}/art FILES ${files}
                   OPTIONS --format-version 1)
endfunction()
