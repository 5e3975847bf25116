# Adds to the Debian packages what they need beside the installed files: copyright, change logs,
# exceptions for lintian. Change logs and manual pages are compressed. CPack runs this before it packs, once for both packages.
find_program(GZIP gzip REQUIRED)

function(compress FILE)
  execute_process(COMMAND ${GZIP} -9 -n -f ${FILE} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(place FILE TARGET)
  configure_file(${FILE} ${TARGET} COPYONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

foreach(package ${CPACK_COMPONENTS_ALL})
  set(share ${CPACK_TEMPORARY_DIRECTORY}/${package}/usr/share)
  set(doc ${share}/doc/${package})
  place(${CPACK_KALVEX_DEBIAN_FILES}/copyright ${doc}/copyright)
  place(${CPACK_KALVEX_DEBIAN_FILES}/lintian-overrides ${share}/lintian/overrides/${package})
  place(${CPACK_KALVEX_DEBIAN_FILES}/changelog ${doc}/changelog.Debian)
  place(${CPACK_KALVEX_DEBIAN_FILES}/../../CHANGELOG.md ${doc}/changelog)
  file(GLOB pages ${share}/man/man1/*.1)
  foreach(file ${doc}/changelog.Debian ${doc}/changelog ${pages})
    compress(${file})
  endforeach()
endforeach()
