# Compiler settings that hold for every target, and where the outcome lands.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()
# -O2 on purpose: -O3 makes the library larger and not faster.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -g1 -DNDEBUG")

find_program(NRVK_CCACHE ccache)
if(NRVK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${NRVK_CCACHE}")
endif()

file(RELATIVE_PATH NRVK_SOURCE_FROM_BUILD "${CMAKE_BINARY_DIR}" "${CMAKE_SOURCE_DIR}")
string(REGEX REPLACE "/$" "" NRVK_SOURCE_FROM_BUILD "${NRVK_SOURCE_FROM_BUILD}")

# What every target of the project is compiled with. The file names in log lines are those of the source tree; what counts
# coverage finds the sources by their true names.
set(NRVK_PREFIX_MAP "$<IF:$<CONFIG:Coverage>,-fmacro-prefix-map,-ffile-prefix-map>")
add_library(nrvk_build INTERFACE)
target_compile_options(nrvk_build INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Werror
  # Values in tests are literals: what narrows there is meant.
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:NRVK_TEST>>>:-Wconversion>
  # The last that fits is taken; ccache may have made the paths relative to the build directory.
  "${NRVK_PREFIX_MAP}=${NRVK_SOURCE_FROM_BUILD}/="
  "${NRVK_PREFIX_MAP}=${CMAKE_SOURCE_DIR}/="
  "${NRVK_PREFIX_MAP}=generated/="
  "${NRVK_PREFIX_MAP}=${CMAKE_BINARY_DIR}/generated/=")
