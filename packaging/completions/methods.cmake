# The largest number of a method, which the completions offer: the rows of the table of methods,
# counted from 0.
set(table ${PROJECT_SOURCE_DIR}/src/resources/methods.h)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
file(READ ${table} rows)
string(REGEX MATCHALL "{ApproxMethod::" rows "${rows}")
list(LENGTH rows count)
if(count EQUAL 0)
  message(FATAL_ERROR "The table of methods has no rows.")
endif()
math(EXPR KALVEX_LAST_METHOD "${count} - 1")
