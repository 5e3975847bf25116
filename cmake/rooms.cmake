# The rooms of the program, from the bottom up, with the rooms and libraries that each may use. The
# build links the rooms by this table, and tests/rooms compares it with the includes of src/ and with
# the table in docs/architecture.md.
set(KALVEX_ROOMS
  # room     | rooms that it uses                                                               | libraries
  "base      |                                                                                  |"
  "numbers   | base                                                                             |"
  "resources | base                                                                             |"
  "specfun   | numbers                                                                          |"
  "expr      | base numbers resources specfun                                                   | PkgConfig::SLEEF"
  "interp    | base numbers resources expr                                                      |"
  "workspace | base numbers resources expr interp                                               |"
  "settings  | base numbers resources workspace                                                 | Qt6::Core"
  "graph     | base numbers resources expr interp workspace                                     |"
  "analysis  | base numbers resources workspace                                                 |"
  "commands  | base numbers resources expr workspace settings graph                             |"
  "painter   | base numbers resources workspace graph                                           | Qt6::Gui Qt6::Svg PkgConfig::LIBDEFLATE"
  "ui        | base numbers resources interp workspace settings graph analysis commands painter | Qt6::Widgets Qt6::Network Qt6::PrintSupport"
  "cli       | base numbers resources expr interp workspace graph analysis painter              | CLI11::CLI11 Qt6::Gui"
)

# kalvex_room_row(ROW NAME USES LIBRARIES): the columns of one row.
function(kalvex_room_row ROW NAME USES LIBRARIES)
  string(REPLACE "|" ";|" columns "${ROW}")
  list(GET columns 0 name)
  list(GET columns 1 uses)
  list(GET columns 2 libraries)
  string(STRIP "${name}" name)
  string(REGEX MATCHALL "[^| ]+" uses "${uses}")
  string(REGEX MATCHALL "[^| ]+" libraries "${libraries}")
  set(${NAME} "${name}" PARENT_SCOPE)
  set(${USES} "${uses}" PARENT_SCOPE)
  set(${LIBRARIES} "${libraries}" PARENT_SCOPE)
endfunction()

# kalvex_built_rooms(NAMES): the rooms of this build, from the bottom up.
function(kalvex_built_rooms NAMES)
  set(names)
  foreach(row ${KALVEX_ROOMS})
    kalvex_room_row("${row}" name uses libraries)
    if(NOT name STREQUAL ui OR KALVEX_WINDOWS)
      list(APPEND names ${name})
    endif()
  endforeach()
  set(${NAMES} ${names} PARENT_SCOPE)
endfunction()
