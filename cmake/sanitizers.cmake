# TG_SANITIZE: sanitizers for every target of the build, as -fsanitize takes
# them ("address,undefined", "thread"). Any report stops the program, so that
# a test run fails on the first one. With clang the sanitizer runtime is a
# shared library, found through the run path, so that the shared library of
# the tracer links with all its symbols resolved.
set(TG_SANITIZE "" CACHE STRING "Sanitizers for the whole build, e.g. address,undefined or thread")
if(TG_SANITIZE)
  add_compile_options(-fsanitize=${TG_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${TG_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    if(TG_SANITIZE MATCHES "thread")
      message(FATAL_ERROR "TSan: build with gcc; clang's shared TSan runtime crashes at start")
    endif()
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-runtime-dir OUTPUT_VARIABLE TG_SANITIZER_RUNTIME_DIR
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    add_link_options(-shared-libsan -Wl,-rpath,${TG_SANITIZER_RUNTIME_DIR})
  endif()
endif()

# TG_FUZZ: the loader's libFuzzer target (fuzz/). Every target is compiled
# with the fuzzer's coverage hooks, so that it is guided by the branches of
# the library, not only by those of the target's own file. The hooks of the
# shared library are resolved by the sanitizer runtime, so TG_SANITIZE must
# name one (make fuzz gives address,undefined).
option(TG_FUZZ "Build the libFuzzer target of the trace loader (clang only)" OFF)
if(TG_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "TG_FUZZ needs clang's libFuzzer: configure with -DCMAKE_CXX_COMPILER=clang++")
  endif()
  if(NOT TG_SANITIZE)
    message(FATAL_ERROR "TG_FUZZ needs TG_SANITIZE (e.g. address,undefined)")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
