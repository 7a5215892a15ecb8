#[[
Finds a Python 3.11 that has what the generator needs (Jinja2; tomllib comes with 3.11).

A developer's PATH may lead to a Python without Jinja2 (pyenv, a virtual environment) while the distribution's has it:
each candidate is asked, the one given by -DNRVK_PYTHON=... first.

Sets NRVK_PYTHON (cached) and NrvkPython_FOUND; refuses with the name of the Debian package otherwise.
]]

# `outcome` becomes the interpreter itself, not a wrapper around it, or empty when it does not serve.
function(_nrvk_python_serves interpreter outcome)
  execute_process(
    COMMAND "${interpreter}" -c "import sys, tomllib, jinja2; print(sys.executable)"
    RESULT_VARIABLE _result OUTPUT_VARIABLE _executable OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(_result EQUAL 0)
    set(${outcome} "${_executable}" PARENT_SCOPE)
  else()
    set(${outcome} "" PARENT_SCOPE)
  endif()
endfunction()

find_program(_nrvk_python_on_path NAMES python3 NO_CACHE)
set(_nrvk_python_asked "")
set(NrvkPython_FOUND FALSE)
foreach(_candidate IN ITEMS "${NRVK_PYTHON}" "${_nrvk_python_on_path}" /usr/bin/python3)
  if(NOT _candidate OR NOT EXISTS "${_candidate}" OR _candidate IN_LIST _nrvk_python_asked)
    continue()
  endif()
  list(APPEND _nrvk_python_asked "${_candidate}")
  _nrvk_python_serves("${_candidate}" _serves)
  if(_serves)
    set(NRVK_PYTHON "${_serves}" CACHE FILEPATH "Python 3.11 with Jinja2, runs the generator" FORCE)
    set(NrvkPython_FOUND TRUE)
    break()
  endif()
endforeach()

if(NOT NrvkPython_FOUND)
  list(JOIN _nrvk_python_asked ", " _asked)
  set(_text "No Python 3.11 with Jinja2 here (asked: ${_asked}). Install the Debian packages python3 and "
            "python3-jinja2 (scripts/install-dependencies does), or name one with -DNRVK_PYTHON=/path/to/python3.")
  list(JOIN _text "" _text)
  # include() instead of find_package() means that there is no going on without it.
  if(NrvkPython_FIND_REQUIRED OR NOT DEFINED CMAKE_FIND_PACKAGE_NAME)
    message(FATAL_ERROR "${_text}")
  elseif(NOT NrvkPython_FIND_QUIETLY)
    message(STATUS "${_text}")
  endif()
endif()
