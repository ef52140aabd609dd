# Builds the package host against dockpanes and runs it; `cmake -P` so that
# the steps run the same under any shell. Arguments (-D):
#   MODE          installed: install BINARY_DIR into a fresh prefix and find it there;
#                 subproject: make SOURCE_DIR part of the host's own build (FetchContent)
#   SOURCE_DIR, BINARY_DIR, HOST_DIR (the host's sources), WORK_DIR (scratch)
#   VERSION, SOVERSION: the libraries' version and ABI version
#   GENERATOR, CXX_COMPILER, C_COMPILER, LAUNCHER, BUILD_TYPE, CXX_FLAGS,
#   C_FLAGS, EXE_LINKER_FLAGS, SHARED_LINKER_FLAGS: the dockpanes build's own,
#   so the host is built as the library was (sanitizers included)
cmake_minimum_required(VERSION 3.25)

foreach(required IN ITEMS MODE SOURCE_DIR BINARY_DIR HOST_DIR WORK_DIR GENERATOR CXX_COMPILER VERSION SOVERSION)
    if(NOT DEFINED ${required})
        message(FATAL_ERROR "run_host.cmake: ${required} not given")
    endif()
endforeach()

function(run)
    string(JOIN " " shown ${ARGN})
    message(STATUS "Running ${shown}")
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(configure_args -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${EXE_LINKER_FLAGS}"
    "-DCMAKE_SHARED_LINKER_FLAGS=${SHARED_LINKER_FLAGS}")
if(LAUNCHER)
    list(APPEND configure_args -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
endif()

if(MODE STREQUAL "installed")
    # A fresh prefix and host build each time, so nothing left from an earlier
    # install can stand in for a file the install rules miss.
    set(prefix ${WORK_DIR}/prefix)
    set(build ${WORK_DIR}/host)
    file(REMOVE_RECURSE ${prefix} ${build})
    run(${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${prefix})
    # Each library under its versioned name, with the link name a host's linker finds.
    foreach(library IN ITEMS platform siblings dockpanes)
        file(GLOB installed LIST_DIRECTORIES false RELATIVE ${prefix} ${prefix}/lib*/lib${library}.so*)
        list(SORT installed)
        list(TRANSFORM installed REPLACE "^lib[^/]*/" "")
        if(NOT installed STREQUAL "lib${library}.so;lib${library}.so.${SOVERSION};lib${library}.so.${VERSION}")
            message(FATAL_ERROR "Installed ${library} as '${installed}', not as lib${library}.so, .so.${SOVERSION} and .so.${VERSION}")
        endif()
    endforeach()
    run(${CMAKE_COMMAND} -S ${HOST_DIR} -B ${build} ${configure_args} -DCMAKE_PREFIX_PATH=${prefix})
elseif(MODE STREQUAL "subproject")
    # Kept between runs: the library's first build here is the long part.
    set(build ${WORK_DIR}/subproject)
    # The library's project also enables C.
    list(APPEND configure_args "-DCMAKE_C_FLAGS=${C_FLAGS}")
    if(C_COMPILER)
        list(APPEND configure_args -DCMAKE_C_COMPILER=${C_COMPILER})
    endif()
    if(LAUNCHER)
        list(APPEND configure_args -DCMAKE_C_COMPILER_LAUNCHER=${LAUNCHER})
    endif()
    run(${CMAKE_COMMAND} -S ${HOST_DIR} -B ${build} ${configure_args} -DDOCKPANES_SOURCE_DIR=${SOURCE_DIR})
    # Added to another project's build, dockpanes brings its libraries only.
    foreach(option IN ITEMS DOCKPANES_BUILD_TESTS DOCKPANES_BUILD_BENCH DOCKPANES_BUILD_DEMO)
        file(STRINGS ${build}/CMakeCache.txt value REGEX "^${option}:")
        if(NOT value MATCHES "=OFF$")
            message(FATAL_ERROR "As a subproject ${option} should default to OFF, the cache has '${value}'")
        endif()
    endforeach()
else()
    message(FATAL_ERROR "run_host.cmake: MODE is installed or subproject, not '${MODE}'")
endif()

run(${CMAKE_COMMAND} --build ${build} --target package_host)
run(${build}/package_host)
