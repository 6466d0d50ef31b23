# brindlet_library(<folder> SOURCES ... [USES floors...] [OUTSIDE targets...])
# One static library a folder below src/. USES is public: headers show these floors. OUTSIDE stays
# private: no public header of ours shows an outside library.
function(brindlet_library folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;OUTSIDE" ${ARGN})
  string(REPLACE "/" "_" name brindlet_${folder})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  list(TRANSFORM ARG_USES PREPEND brindlet_)
  target_link_libraries(${name} PUBLIC ${ARG_USES} Threads::Threads PRIVATE ${ARG_OUTSIDE})
endfunction()

# brindlet_test(<folder> SOURCES ... [USES targets...])
# One test program a folder below tests/, run as one test.
function(brindlet_test folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  string(REPLACE "/" "_" name ${folder}_tests)
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE BRINDLET_FIXTURES="${CMAKE_SOURCE_DIR}/tests/fixtures")
  target_link_libraries(${name} PRIVATE ${ARG_USES} GTest::gtest_main)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
endfunction()

# brindlet_resource(<target> <symbol> <file>)
# Embeds a file as `extern const std::string_view <symbol>` in namespace brindlet::resources.
function(brindlet_resource target symbol file)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp)
  get_filename_component(path ${file} ABSOLUTE)
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -DINPUT=${path} -DOUTPUT=${source} -DSYMBOL=${symbol}
            -P ${CMAKE_SOURCE_DIR}/cmake/EmbedResource.cmake
    DEPENDS ${path} ${CMAKE_SOURCE_DIR}/cmake/EmbedResource.cmake
    COMMENT "Embedding ${file}"
    VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
