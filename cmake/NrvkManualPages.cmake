# The manual pages say what --help says: help2man makes them where it is installed.

find_program(NRVK_HELP2MAN help2man)
find_program(NRVK_GZIP gzip)
if(NOT NRVK_HELP2MAN OR NOT NRVK_GZIP)
  return()
endif()

set(pages)
foreach(program IN ITEMS onu-sim omci-olt)
  set(page "${CMAKE_CURRENT_BINARY_DIR}/man/${program}.1")
  add_custom_command(OUTPUT "${page}.gz"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/man"
    COMMAND "${NRVK_HELP2MAN}" --no-info --section=1 --no-discard-stderr
            "--include=${CMAKE_CURRENT_SOURCE_DIR}/packaging/man/${program}.h2m" "--output=${page}"
            "$<TARGET_FILE:${program}>"
    COMMAND "${NRVK_GZIP}" -9 -n -f "${page}"
    DEPENDS "${program}" "${CMAKE_CURRENT_SOURCE_DIR}/packaging/man/${program}.h2m"
    COMMENT "Manual page of ${program}"
    VERBATIM)
  list(APPEND pages "${page}.gz")
endforeach()
add_custom_target(manual_pages ALL DEPENDS ${pages})
install(FILES ${pages} DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
