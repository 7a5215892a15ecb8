# Debian packages: `cpack -G DEB --config build/release/CPackConfig.cmake`.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nrvk-omci-me)
set(CPACK_PACKAGE_VENDOR "nrvk-omci-me developers")
set(NRVK_MAINTAINER "nrvk-omci-me developers <nrvk-omci-me@localhost.localdomain>" CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGE_CONTACT "${NRVK_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development)
if(NRVK_PROGRAMS)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_BINARY_DIR}/lib")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libnrvk-omci-me0)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
  "${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/shlibs;${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "managed-entity library of an optical network unit
 The ONU side of OMCI (ITU-T G.988): the 115 classes of the management
 information base, loaded by the host process of an ONU.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnrvk-omci-me-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libnrvk-omci-me0 (= ${PROJECT_VERSION}), libssl-dev, libspdlog-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "managed-entity library of an ONU: development files
 Headers of the contract between library, host process and hardware layer,
 and the thin host as static libraries.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME nrvk-omci-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION net)
# libpcap is loaded with the first capture, so that no program shows that it needs it.
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libnrvk-omci-me0 (= ${PROJECT_VERSION}), libpcap0.8")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "simulated ONU and command-line OLT for OMCI
 onu-sim answers OMCI over UDP as an optical network unit does; omci-olt is
 the line terminal's side of it.")

# Debian asks for a copyright file and a change log in each package.
find_program(NRVK_GZIP gzip)
if(NRVK_GZIP)
  set(changelog "${CMAKE_CURRENT_BINARY_DIR}/changelog")
  configure_file(packaging/debian/changelog.in "${changelog}" @ONLY)
  execute_process(COMMAND "${NRVK_GZIP}" -9 -n -k -f "${changelog}")
endif()
foreach(pair IN ITEMS "library;libnrvk-omci-me0" "development;libnrvk-omci-me-dev" "tools;nrvk-omci-tools")
  list(GET pair 0 component)
  list(GET pair 1 package)
  if(component STREQUAL tools AND NOT NRVK_PROGRAMS)
    continue()
  endif()
  install(FILES packaging/debian/copyright DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
  if(NRVK_GZIP)
    install(FILES "${changelog}.gz" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
  endif()
endforeach()

include(CPack)
