# The Debian packages kalvex and kalvex-cli, made by CPack; scripts/make-packages builds them.
# Their version comes from debian/changelog and must belong to the program's version.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/changelog entry LIMIT_COUNT 1)
if(NOT entry MATCHES "^kalvex \\(${PROJECT_VERSION}-([0-9]+)\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with version ${PROJECT_VERSION}")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME kalvex)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own as its first line
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/complete.cmake)
set(CPACK_KALVEX_DEBIAN_FILES ${CMAKE_CURRENT_LIST_DIR})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL kalvex kalvex-cli)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_1})
# No mail is ever delivered to this domain.
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Kalvex developers <kalvex@example.org>")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Dependencies on libraries are found automatically. The platform plug-ins of Qt are loaded at run time
# and must be named; the tool uses the one that needs no screen. A minimal system has no font, and
# without a font all texts are empty.
set(runtime "qt6-qpa-plugins, fonts-dejavu-core")

set(CPACK_DEBIAN_KALVEX_PACKAGE_NAME kalvex)
set(CPACK_DEBIAN_KALVEX_PACKAGE_SECTION math)
set(CPACK_DEBIAN_KALVEX_PACKAGE_DEPENDS "${runtime}")
set(CPACK_DEBIAN_KALVEX_PACKAGE_RECOMMENDS kalvex-cli)
set(CPACK_DEBIAN_KALVEX_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_COMPONENT_KALVEX_DESCRIPTION "graphing and analysis calculator
Kalvex draws up to nine functions together: y of x, polar, parametric and
implicit curves, and files of points joined by a method of your choice. Graphs
can be zoomed, traced and analysed, pictures saved as PNG, SVG, PDF or bitmap.
.
It knows many functions, among them Gamma, Bessel, Airy and hypergeometric
ones, and can be used by pointer, pen, finger and keyboard.")

set(CPACK_DEBIAN_KALVEX-CLI_PACKAGE_NAME kalvex-cli)
set(CPACK_DEBIAN_KALVEX-CLI_PACKAGE_SECTION math)
set(CPACK_DEBIAN_KALVEX-CLI_PACKAGE_DEPENDS "${runtime}")
set(CPACK_DEBIAN_KALVEX-CLI_PACKAGE_SUGGESTS kalvex)
set(CPACK_COMPONENT_KALVEX-CLI_DESCRIPTION "graphing calculator for the command line
This tool checks and evaluates expressions, joins the points of files, and
analyses and draws functions with the same code as the windows of kalvex. It
needs no display.")

include(CPack)
