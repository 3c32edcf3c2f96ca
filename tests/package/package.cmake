# SPDX-License-Identifier: MIT
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output TIMEOUT 240)
  if(NOT status EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nended with ${status}:\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${build} --prefix ${work}/installed)
# Also from a tree that has been moved.
file(RENAME ${work}/installed ${work}/moved)
set(installed ${work}/moved)
set(example ${installed}/share/doc/vellum/example-host)
run(${CMAKE_COMMAND} -S ${example} -B ${work}/example -G Ninja -D CMAKE_BUILD_TYPE=Debug
    -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_PREFIX_PATH=${installed}
    "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Werror")
run(${CMAKE_COMMAND} --build ${work}/example)
run(${work}/example/example-host --quit)

set(ENV{PKG_CONFIG_PATH} ${installed}/${libdir}/pkgconfig)
execute_process(COMMAND pkg-config --variable=plugin vlhost OUTPUT_VARIABLE plugin OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND pkg-config --cflags --libs vlhost OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${compiler} -std=c++17 -fPIC -c ${example}/requests.cpp -o ${work}/requests.o ${flags})
cmake_path(RELATIVE_PATH plugin BASE_DIRECTORY ${work} OUTPUT_VARIABLE relative)
run(${CMAKE_COMMAND} -E chdir ${work} ${work}/example/example-host ${relative} --quit)
