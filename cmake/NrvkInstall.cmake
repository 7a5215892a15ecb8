# What `cmake --install` lays down, and the packages that CPack makes of it, in three components:
#
#   library       libnrvk-omci-me.so, for the board
#   development   headers, the thin host's static libraries, CMake package and pkg-config files
#   tools         onu-sim and omci-olt with manual pages and completion, for the desk

include(CMakePackageConfigHelpers)

set(NRVK_INCLUDE_DIR "${CMAKE_INSTALL_INCLUDEDIR}/nrvk-omci-me")
set(NRVK_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/nrvk-omci-me")

install(TARGETS nrvk-omci-me EXPORT nrvk-library
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library NAMELINK_COMPONENT development)
install(TARGETS nrvk_omci_codec nrvk_omci_host nrvk_host_pm EXPORT nrvk-host
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)

install(DIRECTORY publicapi/ DESTINATION "${NRVK_INCLUDE_DIR}" COMPONENT development FILES_MATCHING PATTERN "*.h")
install(DIRECTORY "${NRVK_GENERATED_DIR}/publicapi/" DESTINATION "${NRVK_INCLUDE_DIR}"
  COMPONENT development FILES_MATCHING PATTERN "*.h")
install(DIRECTORY host/ DESTINATION "${NRVK_INCLUDE_DIR}/host" COMPONENT development FILES_MATCHING PATTERN "*.h")

configure_package_config_file(packaging/cmake/nrvk-omci-me-config.cmake.in nrvk-omci-me-config.cmake
  INSTALL_DESTINATION "${NRVK_CMAKE_DIR}")
write_basic_package_version_file(nrvk-omci-me-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/nrvk-omci-me-config.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/nrvk-omci-me-config-version.cmake"
  DESTINATION "${NRVK_CMAKE_DIR}" COMPONENT development)
install(EXPORT nrvk-library NAMESPACE nrvk:: DESTINATION "${NRVK_CMAKE_DIR}" COMPONENT development)
install(EXPORT nrvk-host NAMESPACE nrvk:: DESTINATION "${NRVK_CMAKE_DIR}" COMPONENT development)

foreach(name IN ITEMS nrvk-omci-me nrvk-omci-host)
  configure_file("packaging/pkgconfig/${name}.pc.in" "${name}.pc" @ONLY)
  install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)
endforeach()

if(NRVK_PROGRAMS)
  install(TARGETS onu-sim omci-olt RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  install(FILES packaging/bash-completion/omci-olt packaging/bash-completion/onu-sim
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT tools)
  install(FILES packaging/systemd/onu-sim@.service DESTINATION lib/systemd/system COMPONENT tools)
  include(NrvkManualPages)
endif()

include(NrvkPackages)
