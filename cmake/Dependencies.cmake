# Every outside library, found once. Which target may use which is told in docs/architecture.md and
# held by tools/check_layers.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ICU 70 REQUIRED COMPONENTS uc i18n)
find_package(SQLite3 REQUIRED)
pkg_check_modules(PCRE2 REQUIRED IMPORTED_TARGET libpcre2-8)
find_package(simdjson REQUIRED)
pkg_check_modules(LIBCURL REQUIRED IMPORTED_TARGET libcurl>=7.85)
pkg_check_modules(OPENSSL REQUIRED IMPORTED_TARGET openssl>=3.0)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
  pkg_check_modules(LIBSECRET REQUIRED IMPORTED_TARGET libsecret-1)
endif()

if(BRINDLET_TESTS)
  find_package(GTest REQUIRED)
endif()
if(BRINDLET_UI)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Network Qml Quick Svg Test
               Widgets)
endif()
