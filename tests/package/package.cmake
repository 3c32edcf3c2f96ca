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
run(${CMAKE_COMMAND} -S ${example} -B ${work}/example -G Ninja -D CMAKE_BUILD_TYPE=Debug
    -D CMAKE_CXX_COMPILER=${compiler} -D CMAKE_PREFIX_PATH=${work}/installed
    "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Werror")
run(${CMAKE_COMMAND} --build ${work}/example)
run(${work}/example/example-host ${work}/installed/${libdir}/vellum/plugins/plg_vltagmanagerplugin.so --quit)
