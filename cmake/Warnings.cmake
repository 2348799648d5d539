# Compiler settings of every target of our own: link parlune_settings.
add_library(parlune_settings INTERFACE)
target_include_directories(parlune_settings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(PARLUNE_WARNINGS_AS_ERRORS)
  set(parlune_errors -Werror)
endif()
target_compile_options(parlune_settings INTERFACE
  -Wall -Wextra -Wpedantic ${parlune_errors} -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough -Wunused)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 takes the joining of two texts for an overlapping copy, or for one of half the memory.
  target_compile_options(parlune_settings INTERFACE
    -Wduplicated-cond -Wlogical-op -Wextra-semi -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
  if(NOT CMAKE_CROSSCOMPILING)  # Elsewhere sizes differ: a cast needed here is useless there.
    target_compile_options(parlune_settings INTERFACE -Wuseless-cast)
  endif()
else()
  target_compile_options(parlune_settings INTERFACE -Wextra-semi -Wnewline-eof -Wrange-loop-analysis -Wthread-safety)
endif()
if(PARLUNE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(PARLUNE_SANITIZE_THREADS)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
if(PARLUNE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
