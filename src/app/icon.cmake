# Makes program.ico from the drawing of the program.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ICOTOOL icotool REQUIRED)
set(drawing ${PROJECT_SOURCE_DIR}/data/pictures/program.svg)
set(sides)
foreach(side IN ITEMS 16 20 24 32 40 48 64 128 256)
  set(picture ${CMAKE_CURRENT_BINARY_DIR}/program-${side}.png)
  add_custom_command(OUTPUT ${picture} COMMAND ${RSVG_CONVERT} -w ${side} -h ${side} -o ${picture} ${drawing}
                     DEPENDS ${drawing} VERBATIM)
  list(APPEND sides ${picture})
endforeach()
add_custom_command(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/program.ico
                   COMMAND ${ICOTOOL} --create --output=${CMAKE_CURRENT_BINARY_DIR}/program.ico ${sides}
                   DEPENDS ${sides} VERBATIM)
