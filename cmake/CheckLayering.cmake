# cmake -DUTILS_DIR=<dir> -DLIBRARY_DIRS=<dir;dir> -P CheckLayering.cmake
# Fails when a source or header under UTILS_DIR includes, by its quoted name, a header that lives
# in one of LIBRARY_DIRS: a lower layer must not know the one above it.

file(GLOB_RECURSE lower_files "${UTILS_DIR}/*.h" "${UTILS_DIR}/*.cpp")
set(upper_headers "")
foreach(dir ${LIBRARY_DIRS})
    file(GLOB headers RELATIVE "${dir}" "${dir}/*.h")
    list(APPEND upper_headers ${headers})
endforeach()

set(violations "")
foreach(file ${lower_files})
    file(STRINGS "${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"[^\"]+\"")
    foreach(line ${includes})
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]+)\".*" "\\1" name "${line}")
        get_filename_component(base "${name}" NAME)
        list(FIND upper_headers "${base}" found)
        if(NOT found EQUAL -1)
            string(APPEND violations "\n  ${file} includes \"${name}\"")
        endif()
    endforeach()
endforeach()

if(lower_files STREQUAL "" OR upper_headers STREQUAL "")
    message(FATAL_ERROR "layering check found nothing to compare: wrong folders?")
endif()
if(NOT violations STREQUAL "")
    message(FATAL_ERROR "the utility library includes headers of the library:${violations}")
endif()
message(STATUS "layering: ${UTILS_DIR} includes no header of the library")
