# Warnings, sanitizers and the compiler cache, for every target alike.
find_program(BRINDLET_CCACHE ccache)
if(BRINDLET_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_C_COMPILER_LAUNCHER ${BRINDLET_CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${BRINDLET_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 reports these two inside its own library at -O2, where they are not ours to mend.
  add_compile_options(-Wno-restrict -Wno-maybe-uninitialized)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_compile_options(-Wthread-safety)
  # std::stable_sort of GCC 12's library calls a function that it deprecates itself.
  add_compile_options(-Wno-deprecated-declarations)
endif()
if(BRINDLET_WERROR)
  add_compile_options(-Werror)
endif()

# What people get defends itself as Debian's own programs do; its compilers make them
# position-independent by themselves.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT BRINDLET_SANITIZE)
  add_compile_options(-fstack-protector-strong -D_FORTIFY_SOURCE=2)
  add_link_options(-Wl,-z,relro,-z,now)
endif()

if(BRINDLET_SANITIZE)
  add_compile_options(-fsanitize=${BRINDLET_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BRINDLET_SANITIZE})
endif()
if(BRINDLET_COVERAGE)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

find_program(BRINDLET_LLD NAMES ld.lld ld.lld-19)
if(BRINDLET_LLD AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_link_options(-fuse-ld=${BRINDLET_LLD})
endif()
