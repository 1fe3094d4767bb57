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
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-runtime-dir OUTPUT_VARIABLE TG_SANITIZER_RUNTIME_DIR
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    add_link_options(-shared-libsan -Wl,-rpath,${TG_SANITIZER_RUNTIME_DIR})
  endif()
endif()
