# Headers without a source of their own have nothing that proves them complete: each gets a source
# here that includes it alone.
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/src
  ${CMAKE_SOURCE_DIR}/src/*.h)
list(FILTER headers EXCLUDE REGEX "^(screens|app)/")
set(sources)
foreach(header IN LISTS headers)
  string(REGEX REPLACE "\\.h$" ".cpp" source ${header})
  if(NOT EXISTS ${CMAKE_SOURCE_DIR}/src/${source})
    string(REPLACE "/" "_" name ${source})
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}
      CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND sources ${CMAKE_CURRENT_BINARY_DIR}/headers/${name})
  endif()
endforeach()
add_library(headers_alone OBJECT ${sources})
target_include_directories(headers_alone PRIVATE ${CMAKE_SOURCE_DIR}/src)
