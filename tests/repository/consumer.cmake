# Installs the build tree into a folder of its own, builds examples/consumer against it as a stranger would, runs it and
# compares what it prints. Further checks of the same tree: every installed header stands alone, pkg-config agrees, and
# the tree still works when it has been moved.
#   cmake -D BUILD=<build tree> -D SOURCE=<source tree> -D CXX=<compiler> -D FLAGS=<switches> -D QT=<ON|OFF> -P consumer.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " line)
    message(FATAL_ERROR "failed (${result}): ${line}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect program wanted)
  run(${program} ${SOURCE}/examples/consumer)
  if(NOT output MATCHES "(^|\n)${wanted}\n")
    message(FATAL_ERROR "${program} printed\n${output}\ninstead of\n${wanted}")
  endif()
endfunction()

set(work ${BUILD}/consumer-test)
file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/first)
file(RENAME ${work}/first ${work}/stage) # nothing may remember where it was installed
set(ENV{LD_LIBRARY_PATH} "")
set(ENV{QT_QPA_PLATFORM} offscreen)

run(${CMAKE_COMMAND} -S ${SOURCE}/examples/consumer -B ${work}/build -G Ninja -DCMAKE_BUILD_TYPE=Debug
    -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${FLAGS}" -DCMAKE_PREFIX_PATH=${work}/stage)
run(${CMAKE_COMMAND} --build ${work}/build)
expect(${work}/build/consumer "headless: Hall, code 1")
if(QT)
  expect(${work}/build/consumer_qt "qt: Hall, code 1")
endif()

file(GLOB_RECURSE pc ${work}/stage/kxgui.pc)
get_filename_component(pc_folder ${pc} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pc_folder})
run(pkg-config --cflags --libs kxgui)
separate_arguments(pc_flags UNIX_COMMAND "${output}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run(pkg-config --variable=libdir kxgui)
string(STRIP "${output}" libdir)
run(${CXX} -std=c++20 ${flags} ${SOURCE}/examples/consumer/main.cpp -o ${work}/consumer_pc ${pc_flags} -Wl,-rpath,${libdir})
expect(${work}/consumer_pc "headless: Hall, code 1")

set(all "")
file(GLOB_RECURSE headers RELATIVE ${work}/stage/include/kxGui ${work}/stage/include/kxGui/platform/*.h
                                                              ${work}/stage/include/kxGui/kxgui/*.h)
foreach(header ${headers})
  string(APPEND all "#include \"${header}\"\n")
endforeach()
file(WRITE ${work}/all_headers.cpp "${all}")
run(${CXX} -std=c++20 -fsyntax-only ${flags} ${work}/all_headers.cpp ${pc_flags})

file(GLOB messages ${work}/stage/share/kxGui/messages/*_kr.ini)
file(GLOB source_messages ${SOURCE}/messages/*_kr.ini)
list(LENGTH messages installed)
list(LENGTH source_messages wanted)
if(NOT installed EQUAL wanted)
  message(FATAL_ERROR "${installed} Korean message files installed instead of ${wanted}")
endif()
run(${work}/stage/bin/tavocad --version)
message(STATUS "${output}")
