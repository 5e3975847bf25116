# The compiler settings of all targets, and functions for the two kinds of target: a room (a static
# library for each folder of src/) and a test program (one for each folder of tests/).

add_library(kalvex_flags INTERFACE)
target_compile_options(kalvex_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
  $<$<BOOL:${KALVEX_WARNINGS_AS_ERRORS}>:-Werror>
  # GCC 12 has false positives of this warning for concatenated strings.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # No fused multiply-add where the source does not ask for one: the values at a single point and in
  # an array of points must have the same bits.
  -ffp-contract=off
  # The installed files must not contain the path of the build folder.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
# A release build uses the hardening flags of Debian's packages, so that the tested programs are the
# packaged ones. (GCC on Debian makes position-independent code by default.) docs/decisions.md has
# the cost in speed.
target_compile_options(kalvex_flags INTERFACE
  $<$<CONFIG:Release>:-fstack-protector-strong -Wformat-security -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
target_link_options(kalvex_flags INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
if(KALVEX_SANITIZE)
  target_compile_options(kalvex_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kalvex_flags INTERFACE -fsanitize=address,undefined)
endif()
if(KALVEX_COVERAGE)
  # Counters must be updated atomically: the windows use threads, and many test processes add to the
  # same counts.
  target_compile_options(kalvex_flags INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(kalvex_flags INTERFACE --coverage)
endif()

# kalvex_room(NAME SOURCES file...): the library of a room, linked to the rooms and libraries in its
# row of the table of rooms.
function(kalvex_room NAME)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  if(ROOM_USES)
    message(FATAL_ERROR "What the room ${NAME} uses stands in cmake/rooms.cmake.")
  endif()
  foreach(row ${KALVEX_ROOMS})
    kalvex_room_row("${row}" name uses libraries)
    if(name STREQUAL NAME)
      break()
    endif()
  endforeach()
  if(NOT name STREQUAL NAME)
    message(FATAL_ERROR "The room ${NAME} has no row in cmake/rooms.cmake.")
  endif()
  list(TRANSFORM uses PREPEND kalvex_)
  add_library(kalvex_${NAME} STATIC ${ROOM_SOURCES})
  target_include_directories(kalvex_${NAME} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(kalvex_${NAME} PUBLIC ${uses} ${libraries} PRIVATE kalvex_flags)
endfunction()

# kalvex_test(NAME SOURCES file... [USES library...] [TIMEOUT seconds]): a GoogleTest program with CTest
# entries. Each test gets 300 seconds unless another limit is given.
function(kalvex_test NAME)
  cmake_parse_arguments(TEST "" "TIMEOUT" "SOURCES;USES" ${ARGN})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 300)
  endif()
  add_executable(${NAME}_tests ${TEST_SOURCES})
  target_include_directories(${NAME}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${NAME}_tests PRIVATE ${TEST_USES} GTest::gtest_main kalvex_flags)
  gtest_discover_tests(${NAME}_tests TEST_PREFIX ${NAME}. DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT ${TEST_TIMEOUT} ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
                                  ENVIRONMENT_MODIFICATION "LOCPATH=set:${KALVEX_LOCALES}")
endfunction()
